#pragma once

#include "controls/key.h"

#include <string_view>

namespace zb {

class frmTRModeler;
class MenuEntry;
class Node;
class Tree;

/// The actions of the user in the two trees of the modeler: presses, keys, drags and the commands of their
/// pop-ups. A command whose node no longer exists ends without effect.
class ModelTreeCommands {
public:
    explicit ModelTreeCommands(frmTRModeler& window);

    /// The commands of several steps. They remove messages and items from the store together with their
    /// nodes.
    /// @{
    void deleteTRMessageNode(Tree& tree, Node& node);
    void deleteTRItemNode(Tree& tree, Node& node);
    /// Removes the messages that a failed build has marked.
    void removeErrorNodes(Tree& tree);
    /// Removes all messages of this tree; sequences keep their names.
    void clearTree(Tree& tree);
    /// @}

    /// Selects the node, or the root for null, and shows it as a press does, but leaves its mark: the trees
    /// are as an undo left them.
    void showAgain(Tree& tree, Node* node);
    /// Opens the dialog that changes what the node shows; a root has none.
    void edit(const Tree& tree, const Node& node);

private:
    void wireKeys();
    void wireReceived();
    void wireSent();
    void press(Tree& tree, Node* node);
    /// Shows the selection in the table and in the open dialogs.
    void follow(Tree& tree, const Node* node);
    void followInDialogs(const Tree& tree, const Node& node);
    Tree& focusedTree();
    /// Renames the message in the tree with the focus; false when none is selected.
    bool rename();
    void keyDown(Tree& tree, KeyEvent key);
    void deleteNode(Tree& tree, Node& node);
    void openPopup(Tree& tree);
    void setRcvPopupState();
    void setSndPopupState();
    void setRootEntries(const Tree& tree, MenuEntry& add, MenuEntry& removeErrors, MenuEntry& clearAll);
    void showRoot(Tree& tree);
    void selectPosition(Tree& tree, int position, std::string_view shown);

    frmTRModeler& window_;
};

} // namespace zb
