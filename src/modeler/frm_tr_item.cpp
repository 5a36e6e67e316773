#include "modeler/frm_tr_item.h"

#include "modeler/modeler_state.h"

namespace zb {

frmTRItem::frmTRItem(ModelerState& state, ModelViews& views)
    : Window(state.desktop, "frmTRItem"), state_(state), views_(views), arrayDialog_(state.desktop),
      valueDialog_(state.desktop) {
    setCancelButton(cmdCancel);
    txtSECSMessage.setReadOnly(true);
}

void frmTRItem::addTRItem(std::string_view /*messageName*/) {}
void frmTRItem::updateTRItem(std::string_view /*messageName*/, std::string_view /*itemKey*/) {}

} // namespace zb
