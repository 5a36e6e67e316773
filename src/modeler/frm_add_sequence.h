#pragma once

#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/window.h"

#include <string>

namespace zb {

class Sequences;
struct ModuleState;

/// Asks for the name of a new sequence.
class frmAddSequence final : public Window {
public:
    frmAddSequence(Desktop& desktop, ModuleState& state);

    Label lblSequence{*this, "lblSequence", "Define Sequence Name"};
    TextField txtSequence{*this, "txtSequence"};
    Button cmdAdd{*this, "cmdAdd", "&Add"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};

    /// Runs modally; `sequences` are those that the project has already.
    void requestSequenceName(const Sequences& sequences);
    /// The entered name; empty when no sequence is to be added.
    std::string SequenceName;

private:
    bool mayEnter(KeyEvent key) const;
    void add();
    /// The existing use of the name; empty when it is free.
    std::string whyNot(const std::string& name) const;

    ModuleState& state_;
    const Sequences* sequences_ = nullptr;
};

} // namespace zb
