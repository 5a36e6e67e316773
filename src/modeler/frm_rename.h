#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <functional>
#include <string>

namespace zb {

/// Asks for another name of something.
class frmRename final : public Window {
public:
    explicit frmRename(Desktop& desktop);

    Label lblNewName{*this, "lblNewName", "New name"};
    TextField txtNewName{*this, "txtNewName"};
    Button cmdRename{*this, "cmdRename", "&Rename"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

    /// Why a name cannot be taken, as a sentence; empty when it can.
    using FaultOf = std::function<std::string(const std::string& name)>;
    /// Returns when the dialog has closed: the new name, or nothing when the user cancelled or kept the name.
    /// A name that cannot be taken keeps the dialog open.
    std::string requestName(std::string caption, const std::string& name, FaultOf faultOf);

private:
    void accept();

    std::string name_;
    std::string chosen_;
    FaultOf faultOf_;
};

} // namespace zb
