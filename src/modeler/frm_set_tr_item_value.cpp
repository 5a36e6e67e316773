#include "modeler/frm_set_tr_item_value.h"

#include "controls/desktop.h"
#include "platform/number.h"
#include "platform/text.h"

namespace zb {

frmSetTRItemValue::frmSetTRItemValue(Desktop& desktop) : Window(desktop, "frmSetTRItemValue") {
    setCaption("Set Item Value");
    setCancelButton(cmdCancel);
    setDefaultButton(cmdSet);
    txtTRItemName.setReadOnly(true);
    cmdSet.onClick = [this] { accept(); };
    cmdCancel.onClick = [this] { hide(); };
}

void frmSetTRItemValue::reqeustTRItemValue(std::string_view name, std::string_view type) {
    lblInformation.setText("Insert " + std::string(type) + " type Value!");
    itemType_ = type;
    TRItemValue.clear();
    txtTRItemValue.setText("");
    txtTRItemName.setText(name);
    setFirstFocus(txtTRItemValue);
    showModal();
}

void frmSetTRItemValue::accept() {
    if (itemType_ == "NUMERIC" && !isNumeric(txtTRItemValue.text())) {
        desktop().showBox("Insert Numeric type value!", BoxIcon::Information);
        txtTRItemValue.setFocus();
        txtTRItemValue.selectAll();
        return;
    }
    TRItemValue = trim(txtTRItemValue.text());
    hide();
}

} // namespace zb
