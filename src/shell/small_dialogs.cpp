#include "shell/small_dialogs.h"

#include "controls/desktop.h"
#include "platform/settings.h"
#include "platform/version.h"
#include "shell/linked_libraries.h"
#include "shell/option_settings.h"

namespace zb {

namespace {

std::string titled(std::string_view start) {
    return std::string(start) + std::string(kApplicationTitle);
}

} // namespace

frmOption::frmOption(Desktop& desktop, SettingsStore& settings)
    : Window(desktop, "frmOption"), settings_(settings) {
    setCaption(titled("Option - "));
    setCancelButton(cmdCancel);
    optSrcGen1.setToolTip("The generator writes the source of the plug-in");
    optSrcGen2.setToolTip("The generator writes no source");
    cmdSave.onClick = [this] { save(); };
    cmdCancel.onClick = [this] { hide(); };
    optSrcGen2.setOn(true);
    optZeltoPlugInType5.setOn(true);
}

void frmOption::request() {
    const bool yes = readSetting(settings_, kSrcGen) == kGenerateSource;
    (yes ? optSrcGen1 : optSrcGen2).setOn(true);
    optZeltoPlugInType5.setOn(true);
    setFirstFocus(yes ? optSrcGen1 : optSrcGen2);
    showModal();
}

void frmOption::save() {
    writeSetting(settings_, kSrcGen, optSrcGen1.on() ? kGenerateSource : kGenerateNoSource);
    std::string_view type = "5";
    if (optZeltoPlugInType2.on())
        type = "2";
    else if (optZeltoPlugInType3.on())
        type = "3";
    else if (optZeltoPlugInType4.on())
        type = "4";
    else if (optZeltoPlugInType1.on())
        type = "1";
    writeSetting(settings_, kPlugInType, type);
    hide();
}

frmResult::frmResult(Desktop& desktop) : Window(desktop, "frmResult") {
    setCaption(titled("Result - "));
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

frmAbout::frmAbout(Desktop& desktop) : Window(desktop, "frmAbout") {
    setCaption(titled("About "));
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
