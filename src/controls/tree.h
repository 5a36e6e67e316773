#pragma once

#include "controls/control.h"
#include "controls/drag.h"
#include "controls/tree_marks.h"
#include "platform/tree/node_tree.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zb {

/// A tree control. Its nodes can be replaced by a fresh tree in one step.
class Tree : public Control {
public:
    Tree(Window& window, std::string name, Control* pane = nullptr)
        : Control(Kind::Tree, window, std::move(name), pane), nodes_(std::make_unique<NodeTree>()) {
        marks_.follow(*nodes_);
        addWatcher(marks_);
    }

    NodeTree& nodes() { return *nodes_; }
    const NodeTree& nodes() const { return *nodes_; }
    /// Removes all nodes at once, and shows those of another tree, by default an empty one. The listener
    /// moves to it.
    void replaceNodes(std::unique_ptr<NodeTree> fresh = std::make_unique<NodeTree>());

    void setBackColor(OptionalColor color) {
        backColor_ = color;
        ring(Change::State);
    }
    const OptionalColor& backColor() const { return backColor_; }

    /// Shows only the nodes for which `shows` is true, on the screen and for the arrow keys; nodes below a
    /// hidden one are hidden too. `nodes()` still has all of them. Empty shows all.
    void setFilter(std::function<bool(const Node&)> shows);
    bool isFiltered() const { return static_cast<bool>(shows_); }
    bool shows(const Node& node) const { return !shows_ || shows_(node); }

    /// The screen's listener, for the current tree and its replacements.
    void setListener(NodeTreeListener* listener);
    /// Another listener for the current tree and its replacements. A replacement is reported by `afterFill`.
    /// @{
    void addWatcher(NodeTreeListener& watcher);
    void removeWatcher(const NodeTreeListener& watcher);
    /// @}
    /// The recorder of the current tree. A replacement has none until this is called again.
    void setRecorder(NodeTreeRecorder* recorder) { nodes_->setRecorder(recorder); }
    TreeMarks& marks() { return marks_; }
    const TreeMarks& marks() const { return marks_; }
    /// The user presses a node with the left button, or comes to it by a key, with these modifier keys held;
    /// it is selected afterwards. For trees with marks.
    std::function<void(Node& node, int shift)> onMarking;

    /// The whole tree was replaced.
    std::function<void()> onReplaced;

    /// The left (1) or right (2) button went down or up; `node` is null below all nodes.
    std::function<void(int button, Node* node)> onMouseDown;
    std::function<void(int button, Node* node)> onMouseUp;
    /// A node was clicked, or reached by the arrow keys; it is selected by then.
    std::function<void(Node& node)> onNodeClick;
    /// The arrow keys reached a node; in place of `onNodeClick`, for a tree that acts on the press.
    std::function<void(Node& node)> onReached;
    std::function<void(Node& node)> onDoubleClick;
    /// A drag of the node starts; without a handler or a result it is refused.
    std::function<std::optional<DragData>(Node& node)> onDragStart;
    std::function<void(const DragData&, Node* node)> onDragOver;
    std::function<void(const DragData&, Node* node)> onDrop;

private:
    /// The screen's listener and the watchers as one.
    class Listeners final : public NodeTreeListener {
    public:
        void beforeInsert(Node* parent, Node* previous) override;
        void afterInsert(Node& node) override;
        void beforeRemove(Node& node) override;
        void afterRemove() override;
        void nodeChanged(Node& node) override;
        void nodeExpanded(Node& node) override;
        void selectionChanged() override;
        void allChanged() override;
        void beforeFill() override;
        void afterFill() override;

        std::vector<NodeTreeListener*> all; // the screen's is the first
    };
    NodeTreeListener* allListeners();

    std::unique_ptr<NodeTree> nodes_;
    OptionalColor backColor_;
    std::function<bool(const Node&)> shows_;
    NodeTreeListener* listener_ = nullptr;
    std::vector<NodeTreeListener*> watchers_;
    Listeners listeners_;
    TreeMarks marks_;
};

} // namespace zb
