#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zb {

class frmSECSEditor;
class Node;

/// The messages, or the items of one message, that are marked beside the one selected node. Ctrl and a click
/// marks one or takes its mark away; Shift and a click or an arrow key marks all from where the marks began;
/// a plain click or key ends the marks. The three nodes of a message are marked together.
class MarkedNodes {
public:
    explicit MarkedNodes(frmSECSEditor& window);

    /// The MessageNodes or items in the order of the tree, without items that are below a marked one. Empty
    /// without marks.
    std::vector<Node*> units() const;
    /// These are marked from now on; they are messages, or items of one message.
    void set(const std::vector<Node*>& units);
    void clear() { set({}); }
    /// Takes the mark of the selected node away, or gives it one.
    void toggleSelected();
    /// Marks up to the message before (`Down`: after) the selected one, whose items are passed over, and
    /// selects it. False while an item is selected, whose neighbour is one row away.
    enum class Way { Up, Down };
    bool extend(Way way);
    /// "3 messages", "1 item"; empty without marks.
    std::string count() const;

    /// Another number after each change of the marks.
    unsigned long changes() const { return changes_; }

    /// There are other marks than before.
    std::function<void()> onChange;

private:
    void press(Node& node, int shift);
    void toggle(Node& node);
    void extendTo(Node& node);
    Node* anchor() const;

    frmSECSEditor& window_;
    Node* anchor_ = nullptr; // valid while the tree has it at its position
    int anchorIndex_ = 0;
    unsigned long changes_ = 0;
};

/// The MessageNode before the message of this node, or after it; null when there is none.
/// @{
Node* messageBefore(Node& node);
Node* messageAfter(Node& node);
/// @}

/// The MessageNode of a root node, or the item itself; null when a root node belongs to no message.
Node* unitOf(Node& node);

} // namespace zb
