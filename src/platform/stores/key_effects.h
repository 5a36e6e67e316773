#pragma once

#include "platform/stores/key.h"

namespace zb {

class Control;

/// What a key does to a control by itself, after its key down has been handled: enters a character, presses a
/// button, moves a selection. Escape presses the window's cancel button.
void applyKey(Control& control, KeyEvent key);

/// Presses a button, toggles a check box, turns an option on, with all that follows.
void pressByClick(Control& control);

} // namespace zb
