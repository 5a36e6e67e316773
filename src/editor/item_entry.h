#pragma once

#include "controls/key.h"

namespace zb {

class frmSECSEditor;
class Node;
class TextField;

/// Entry of items by the keyboard alone: what a command has made is selected, and the keyboard goes where the
/// next key belongs.
class ItemEntry {
public:
    explicit ItemEntry(frmSECSEditor& window) : window_(window) {}

    /// The commands Insert Item and Add Child Item; the new item is then selected, with the keyboard in its
    /// name. A message means each of its three nodes.
    /// @{
    void insertAfter();
    void addChild();
    /// @}
    /// The keyboard goes from the tree to the name of the selected item or message.
    void edit();
    /// The same for the sibling after the selected item; the keyboard goes to the tree after the last one.
    void editNext();
    /// The keyboard goes on within the selected item: from its name and count to its value, and of a list to
    /// the name of its first item.
    void goOn();
    /// The keyboard returns to the tree.
    void backToTree();
    /// Presses the button of a type, from 1, for the selected item. False without one.
    bool chooseType(int button);

private:
    /// What is typed goes into the item when the key goes up, which a command's key never does. False when
    /// the text was refused.
    bool finishTyping();
    void selectMessage();
    void editNode(Node& node);

    frmSECSEditor& window_;
};

} // namespace zb
