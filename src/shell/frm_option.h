#pragma once

#include "controls/simple_controls.h"
#include "controls/window.h"

namespace zb {

class SettingsStore;

/// Whether source is generated, and what kind of driver plug-in the generator makes.
class frmOption final : public Window {
public:
    frmOption(Desktop& desktop, SettingsStore& settings);

    /// Runs modally. The kind of plug-in is set to ".NET(C#) Component" at each opening, whatever is stored.
    void request();

    Pane fraGenSource{*this, "fraGenSource", "Generate Source"};
    OptionGroup sourceChoices;
    Option optSrcGen1{*this, "optSrcGen[1]", "Yes", sourceChoices, &fraGenSource};
    Option optSrcGen2{*this, "optSrcGen[2]", "No", sourceChoices, &fraGenSource};
    Pane fraDriverType{*this, "fraDriverType", "ZeltoPluIn Type"};
    OptionGroup plugInTypes;
    Option optZeltoPlugInType1{*this, "optZeltoPlugInType[1]", "ActiveX Dll", plugInTypes, &fraDriverType};
    Option optZeltoPlugInType2{*this, "optZeltoPlugInType[2]", "ActiveX Control", plugInTypes,
                               &fraDriverType};
    Option optZeltoPlugInType3{*this, "optZeltoPlugInType[3]", "ActiveX Exe", plugInTypes, &fraDriverType};
    Option optZeltoPlugInType4{*this, "optZeltoPlugInType[4]", "Java Component", plugInTypes, &fraDriverType};
    Option optZeltoPlugInType5{*this, "optZeltoPlugInType[5]", ".NET(C#) Component", plugInTypes,
                               &fraDriverType};
    Button cmdSave{*this, "cmdSave", "&Save"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

private:
    void save();

    SettingsStore& settings_;
};

} // namespace zb
