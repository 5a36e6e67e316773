#pragma once

#include "controls/user_hands.h"

#include <string_view>

namespace zb {

class Desktop;
class ScriptedProgram;
class Window;
struct StatusPanel;

/// What an address of a script means.
struct Place {
    enum class Kind { Program, Window, Control, Node, Row, Column, ToolbarButton, StatusPanel };

    Kind kind = Kind::Program;
    Window* window = nullptr;
    Target target; ///< the control and its member; no control for the program and for windows
    const StatusPanel* panel = nullptr;
};

/// Finds what an address means now. Throws ScriptFailure, with the names that there are, when it means
/// nothing.
Place resolveAddress(Desktop& desktop, std::string_view address);

} // namespace zb
