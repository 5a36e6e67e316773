#include "modeler/frm_tr_message.h"

#include "modeler/modeler_state.h"

namespace zb {

frmTRMessage::frmTRMessage(ModelerState& state, ModelViews& views)
    : Window(state.desktop, "frmTRMessage"), state_(state), views_(views), arrayDialog_(state.desktop) {
    setCancelButton(cmdCancel);
    txtResultCondition.setReadOnly(true);
}

void frmTRMessage::addRcvTRMessage() {}
void frmTRMessage::addSndTRMessage() {}
void frmTRMessage::updateRcvTRMessage(std::string_view /*name*/) {}
void frmTRMessage::updateSndTRMessage(std::string_view /*name*/) {}

} // namespace zb
