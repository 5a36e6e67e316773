#pragma once

#include "controls/undo_history.h"
#include "platform/tree/node_tree.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zb {

class Tree;

/// One change of a tree, with what is needed to go to its other side: the old value while it is done, the new
/// one while it is undone.
struct TreeEdit {
    enum class Kind { Value, Add, Remove, Clear, Recolor };
    using Value = std::variant<std::monostate, bool, OptionalColor, std::unique_ptr<std::string>,
                               std::unique_ptr<NodeBranch>>;

    Node* node = nullptr; ///< null for a change of the whole tree
    Kind kind = Kind::Value;
    NodePart part = NodePart::Text; ///< of a value
    Value other;
};

/// What one step changed in a tree.
class TreePart final : public StepPart {
public:
    TreePart(Tree& tree, bool isDocument) : tree_(tree), isDocument_(isDocument) {}

    void record(TreeEdit edit);
    bool empty() const { return edits_.empty(); }
    /// Leaves out values that are as they were before.
    void dropUnchanged();
    void setSelectedBefore(Node* node) { selectedBefore_ = node; }
    void setSelectedAfter(Node* node) { selectedAfter_ = node; }

    void undo() override;
    void redo() override;
    /// Nodes, texts or Keys, and not only looks.
    bool changesNodes() const { return changesNodes_; }
    bool changesDocument() const override { return isDocument_ && changesNodes_; }
    std::size_t bytes() const override { return bytes_; }
    void append(std::unique_ptr<StepPart> later) override;

    /// The node to show after this part was undone or redone: what came back or was changed, preferably the
    /// node that was selected then, unless it is a root without a name. Null for none.
    Node* affected(UndoHistory::Way way) const;

private:
    void swap(TreeEdit& edit);
    void compact();
    bool isInTree(const Node* node) const;

    Tree& tree_;
    std::vector<TreeEdit> edits_;
    std::size_t bytes_ = sizeof(TreePart);
    std::size_t compactAt_ = 16;
    Node* selectedBefore_ = nullptr;
    Node* selectedAfter_ = nullptr;
    bool isDocument_;
    bool changesNodes_ = false;
};

/// Records what changes in a tree.
class TreeJournal final : public StepSource, private NodeTreeRecorder {
public:
    /// Whether the nodes are the document itself or a view of it.
    enum class Holds { Document, View };

    explicit TreeJournal(Tree& tree, Holds holds = Holds::Document) : tree_(tree), holds_(holds) {}
    ~TreeJournal() override;

    bool hasChanged() const override { return part_ != nullptr; }
    std::unique_ptr<StepPart> take() override;
    void drop() noexcept override;
    void setRecording(bool on) override;

    /// The tree was replaced; nothing is recorded any more until recording is set on again.
    std::function<void()> onReplaced;

private:
    void beforeChange(Node& node, NodePart part) override;
    void afterAdd(Node& node) override;
    void afterRemove(NodeBranch branch) override;
    void beforeRecolor(OptionalColor ordinary) override;
    void afterReplace() override;
    void record(TreeEdit edit);

    Tree& tree_;
    Holds holds_;
    std::unique_ptr<TreePart> part_; // what has changed since the last step
};

} // namespace zb
