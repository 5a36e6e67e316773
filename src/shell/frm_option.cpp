#include "shell/frm_option.h"

#include "controls/desktop.h"
#include "shell/option_settings.h"

namespace zb {

frmOption::frmOption(Desktop& desktop, SettingsStore& settings)
    : Window(desktop, "frmOption"), settings_(settings) {
    setCaption("Option - " + std::string(kApplicationTitle));
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

} // namespace zb
