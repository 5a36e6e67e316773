#pragma once

#include "controls/key.h"

namespace zb {

class Control;
class List;
class ListRow;
class MenuEntry;
class Node;
class Tree;

/// The default effect of a key on a control, after its key down was handled: enters a character, presses a
/// button, moves a selection. Escape presses the window's cancel button.
void applyKey(Control& control, KeyEvent key);

/// The entry of the window's menu bar that the key runs while the control has the focus; null for none. Text
/// fields handle their editing keys themselves. Whether the entry can be used now is not checked.
MenuEntry* entryOfKey(const Control& control, KeyEvent key);

/// The keyboard has come to a node or row, with these modifier keys held: it is selected, and shown as by a
/// click on it. Only the focus stays where it is.
/// @{
void reachNode(Tree& tree, Node& node, int shift = 0);
void reachRow(List& list, ListRow& row);
/// @}

/// Presses a button, toggles a check box, turns an option on, with all effects.
void pressByClick(Control& control);

} // namespace zb
