#include "shell/frm_about.h"

#include "controls/desktop.h"
#include "platform/version.h"
#include "shell/linked_libraries.h"

namespace zb {

frmAbout::frmAbout(Desktop& desktop) : Window(desktop, "frmAbout") {
    setCaption("About " + std::string(kApplicationTitle));
    lblTitle.setText(kApplicationTitle);
    lblVersion.setText("Version " + std::string(kVersion));
    lblDescription.setText("Authoring of SECS-II message definitions and transaction models");
    lblDisclaimer.setText(
        "Definitions built with this program are the responsibility of those who use them: check them "
        "against the manual of the equipment before production.\n\n" +
        licenceNotice());
    setFirstFocus(cmdOK);
    setCancelButton(cmdOK);
    cmdOK.onClick = [this] { hide(); };
    cmdSysInfo.onClick = [this] {
        if (!this->desktop().screen().showSystemInformation())
            this->desktop().showBox("System Information Is Unavailable At This Time");
    };
}

} // namespace zb
