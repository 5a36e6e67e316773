#pragma once

#include <string>

namespace zb {

class frmSECSEditor;
class Node;
class SECSItemRecord;
class StructureEntries;
class TextField;

/// Mouse actions on the message tree: a click fills the panes and repairs the node, a right click opens the
/// pop-up.
class TreeInteraction {
public:
    explicit TreeInteraction(frmSECSEditor& window);

    /// Shows the selected node in the panes, as a click on it does. Nothing without a selection.
    void nodeClick();
    /// Selects the node and shows it as a click does, but changes nothing in the tree and shows no box: the
    /// tree is as an undo left it. Null selects nothing.
    void showAgain(Node* node);
    /// Enables the entries of the menu bar that apply to the selected node. Without a selection nothing
    /// changes.
    void updateEditMenuState();

private:
    void rootClick(Node& node);
    /// Shows a message's stream or function; one that is not a number is replaced in the tree, with a box.
    void showNumber(TextField& field, std::string_view number, const std::string& what, const Node* message);
    void showRootAgain(Node& node);
    void showItemAgain(Node& node);
    void itemClick(Node& node);
    void showMessageOfItem(Node& node);
    void showCount(Node& node, const SECSItemRecord& record);
    void showKeyAndValue(Node& node, const SECSItemRecord& record);
    void setStates(StructureEntries& entries, const Node& node);
    void openPopup();

    frmSECSEditor& window_;
};

} // namespace zb
