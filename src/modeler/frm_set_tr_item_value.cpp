#include "modeler/frm_set_tr_item_value.h"

namespace zb {

frmSetTRItemValue::frmSetTRItemValue(Desktop& desktop) : Window(desktop, "frmSetTRItemValue") {
    setCaption("Set Item Value");
    setCancelButton(cmdCancel);
    txtTRItemName.setReadOnly(true);
}

void frmSetTRItemValue::reqeustTRItemValue(std::string_view name, std::string_view type) {
    itemType_ = type;
    TRItemValue.clear();
    txtTRItemName.setText(name);
    showModal();
}

} // namespace zb
