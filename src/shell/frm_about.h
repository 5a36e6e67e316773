#pragma once

#include "controls/simple_controls.h"
#include "controls/window.h"

namespace zb {

/// The program's title, version and a legal notice.
class frmAbout final : public Window {
public:
    explicit frmAbout(Desktop& desktop);

    Label lblTitle{*this, "lblTitle"};
    Label lblVersion{*this, "lblVersion"};
    Label lblDescription{*this, "lblDescription"};
    Label lblDisclaimer{*this, "lblDisclaimer"};
    Button cmdOK{*this, "cmdOK", "OK"};
    Button cmdSysInfo{*this, "cmdSysInfo", "&System Info..."};
};

} // namespace zb
