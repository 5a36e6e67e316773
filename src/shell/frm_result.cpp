#include "shell/frm_result.h"

#include "controls/desktop.h"

namespace zb {

frmResult::frmResult(Desktop& desktop) : Window(desktop, "frmResult") {
    setCaption("Result - " + std::string(kApplicationTitle));
    rtbResult.setReadOnly(true);
    setFirstFocus(cmdOK);
    setCancelButton(cmdOK);
    cmdOK.onClick = [this] { hide(); };
}

void frmResult::clearOldData() {
    rtbResult.setText("");
}

void frmResult::addErrorMsg(const std::string& message) {
    rtbResult.setText(rtbResult.text() + message + "\r\n");
}

} // namespace zb
