#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <string>

namespace zb {

/// Shows the output of the generator. It exists between builds.
class frmResult final : public Window {
public:
    explicit frmResult(Desktop& desktop);

    void clearOldData();
    /// Appends the text and CR LF.
    void addErrorMsg(const std::string& message);

    TextField rtbResult{*this, "rtbResult", nullptr, TextField::Lines::Many};
    Button cmdOK{*this, "cmdOK", "&OK"};
};

} // namespace zb
