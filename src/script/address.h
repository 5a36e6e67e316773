#pragma once

#include "controls/user_hands.h"

#include <string_view>

namespace zb {

class Desktop;
class ScriptedProgram;
class Window;
struct StatusPanel;

/// The meaning of an address of a script.
struct Place {
    enum class Kind { Program, Window, Control, Node, Row, Column, ToolbarButton, StatusPanel };

    Kind kind = Kind::Program;
    Window* window = nullptr;
    Target target; ///< the control and its member; no control for the program and for windows
    const StatusPanel* panel = nullptr;
};

/// Finds the current target of an address. Throws ScriptFailure, with the existing names, when there is none.
Place resolveAddress(Desktop& desktop, std::string_view address);

} // namespace zb
