#include "modeler/frm_array_info.h"

namespace zb {

int checkDimension(const SECSMessageRecord& /*message*/, std::string_view /*name*/) {
    return 0;
}

frmArrayInfo::frmArrayInfo(Desktop& desktop) : Window(desktop, "frmArrayInfo") {
    setCaption("Set Array Item");
    setCancelButton(cmdCancel);
    txtItem.setReadOnly(true);
    txtValue.setVisible(false);
    lvwArray.addColumn("", 800);
    lvwArray.addColumn("Value", 2000);
}

void frmArrayInfo::requestArrayIndex(const SECSMessageRecord& message, std::string_view name) {
    txtItem.setText(name);
    ArrayInfo.clear();
    Dimension = checkDimension(message, name);
}

} // namespace zb
