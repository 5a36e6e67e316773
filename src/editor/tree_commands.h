#pragma once

#include <string>
#include <string_view>

namespace zb {

class frmSECSEditor;
class Node;
class StructureEntries;

enum class PastePosition { Previous, Next, Child };

/// The commands that change the structure of the message tree. They work on the selected node and on the
/// window's clipboard, which holds nothing, one message (three root nodes) or one item (one root node).
class TreeCommands {
public:
    explicit TreeCommands(frmSECSEditor& window);

    void cut();
    void copy();
    void duplicate();
    void insertItem();
    void addSubItem();
    /// Adds a copy of the clipboard where that is allowed, and otherwise reports that it is not.
    void pasteFromTemp(PastePosition position);

    /// Replaces the clipboard by a copy of the node's message, or of the item.
    void copyNodeToTemp(Node& node);
    /// Removes the selected message or item and shows a neighbour.
    void deleteSelectedNode();
    /// Writes the number of sub items into the count of a fixed list.
    void updateListCount(Node& list);
    /// The name followed by "New1", as often as needed until no node has it as its Key.
    std::string makeNewMessageName(std::string_view name);

private:
    void wire(StructureEntries& entries);
    /// Names the step of a command on the selected node.
    void nameStep(std::string_view command);
    void refusePaste();
    void pasteMessage(Node& selected, PastePosition position);
    void pasteItem(Node& selected, PastePosition position);
    void pasteItemBelow(Node& selected);
    void addMessageCopy(Node& relative, PastePosition position);
    /// False when nothing was added.
    bool addItemCopy(Node& relative, PastePosition position);
    void deleteItem(Node& item);
    void deleteMessage(Node& root);
    void selectAndShow(Node* node);
    std::string newItemText(const Node& place);
    void sayError();

    frmSECSEditor& window_;
};

} // namespace zb
