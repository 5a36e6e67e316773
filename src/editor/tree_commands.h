#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class frmSECSEditor;
class MessageItemNames;
class Node;
class NodeTree;
class StructureEntries;

enum class PastePosition { Previous, Next, Child };

/// The commands that change the structure of the message tree. They work on the selected node and on the
/// window's clipboard, which holds nothing, one message (three root nodes) or one item (one root node).
class TreeCommands {
public:
    explicit TreeCommands(frmSECSEditor& window);
    ~TreeCommands();

    /// These three work on all marked nodes when there are some.
    /// @{
    void cut();
    void copy();
    void duplicate();
    /// @}
    void insertItem();
    void addSubItem();
    /// Adds a copy of the clipboard where that is allowed, and otherwise reports that it is not. Several
    /// marked nodes that were copied last are all added, in their order.
    void pasteFromTemp(PastePosition position);
    /// What was copied last: one message or item each, as in the window's clipboard, which holds the first.
    const std::vector<std::unique_ptr<NodeTree>>& copies() const { return copies_; }
    /// Takes these as what was copied last.
    void takeCopies(std::vector<std::unique_ptr<NodeTree>> copies);
    /// What a copy would take; empty when nothing is selected.
    std::vector<std::unique_ptr<NodeTree>> copiesOfTargets();
    /// Something else was copied.
    std::function<void()> onCopied;

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
    /// What the commands work on: the marked nodes, or the selected one.
    std::vector<Node*> targets();
    void copyTo(Node& node, NodeTree& clipboard);
    void deleteTargets();
    void nameStepOfPaste();
    /// Each of these adds a copy of `source`, and is false when it added nothing. `names` are those of the
    /// items of the message, and get those of the copy.
    /// @{
    bool paste(const NodeTree& source, Node& selected, PastePosition position, MessageItemNames& names);
    bool pasteMessage(const NodeTree& source, Node& selected, PastePosition position);
    bool pasteItem(const NodeTree& source, Node& selected, PastePosition position, MessageItemNames& names);
    bool pasteItemBelow(const NodeTree& source, Node& selected, MessageItemNames& names);
    bool addItemCopy(const NodeTree& source, Node& relative, PastePosition position, MessageItemNames& names);
    /// @}
    void pasteSeveral(Node& selected, PastePosition position, MessageItemNames& names);
    void addMessageCopy(const NodeTree& source, Node& relative, PastePosition position);
    void selectAndShow(Node* node);
    std::string newItemText(const Node& place);
    void sayError();

    frmSECSEditor& window_;
    std::vector<std::unique_ptr<NodeTree>> copies_;
};

} // namespace zb
