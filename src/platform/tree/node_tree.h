#pragma once

#include "platform/tree/node.h"
#include "platform/tree/slot_ranks.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// The position of a new node relative to another one. Without a relative, First and Last are the ends of the
/// root level and all others its end.
enum class Relation { First, Last, Next, Previous, Child };

/// Receives every change of a tree; a view implements it.
class NodeTreeListener {
public:
    virtual ~NodeTreeListener() = default;
    /// A node is about to be inserted below `parent` (null: root level) after `previous` (null: as the
    /// first).
    virtual void beforeInsert(Node* /*parent*/, Node* /*previous*/) {}
    virtual void afterInsert(Node& /*node*/) {}
    /// The node is about to be removed with its subtree.
    virtual void beforeRemove(Node& /*node*/) {}
    virtual void afterRemove() {}
    virtual void nodeChanged(Node& /*node*/) {}
    virtual void nodeExpanded(Node& /*node*/) {}
    virtual void selectionChanged() {}
    /// Colours of all nodes may have changed.
    virtual void allChanged() {}
    /// Many changes follow, and none of them is reported. Until `afterFill` no node may be looked at.
    virtual void beforeFill() {}
    virtual void afterFill() {}
};

/// Siblings that were taken out of a tree, with all nodes below them, and where they were. Their addresses
/// stay.
class NodeBranch {
public:
    /// Of the nodes and their texts.
    std::size_t bytes() const;
    /// The first of the siblings.
    Node& top() const { return *first_; }
    bool holdsSeveral() const { return first_ != last_; }

private:
    friend class NodeTree;
    std::vector<std::unique_ptr<Node>> nodes_; // with gaps when all nodes were taken out
    Node* first_ = nullptr;
    Node* last_ = nullptr;
    Node* parent_ = nullptr;
    Node* previous_ = nullptr;
};

/// Receives every change of a tree together with what was there before, also while the tree is being filled.
class NodeTreeRecorder {
public:
    virtual ~NodeTreeRecorder() = default;
    /// A part of the node is about to change. Keys are reported at each change, all other parts only at the
    /// first change since `NodeTree::startRecording`, and not for nodes that were added since then.
    virtual void beforeChange(Node& node, NodePart part) = 0;
    virtual void afterAdd(Node& node) = 0;
    /// The nodes are out of the tree; they are destroyed unless the recorder keeps them.
    virtual void afterRemove(NodeBranch branch) = 0;
    /// The ordinary text colour is about to change. Own colours were reported before.
    virtual void beforeRecolor(OptionalColor ordinary) = 0;
    /// All nodes are about to be destroyed, and another tree takes the place of this one.
    virtual void afterReplace() = 0;
};

/// An ordered tree of nodes that are also in one flat collection, in order of insertion. Keys are unique,
/// compared upper-cased. Look-ups by Key take constant time, those by Index logarithmic time; a removal moves
/// the positions after it up, without a cost for each of them.
class NodeTree {
public:
    NodeTree();
    ~NodeTree();
    NodeTree(const NodeTree&) = delete;
    NodeTree& operator=(const NodeTree&) = delete;

    std::size_t count() const { return slots_.used(); }
    bool empty() const { return count() == 0; }
    /// By flat position, from 1; null when there is none.
    Node* at(int index) const;
    /// Null when no node has the Key; the empty Key is never found.
    Node* find(std::string_view key) const;
    Node* firstRoot() const { return firstRoot_; }
    Node* lastRoot() const { return lastRoot_; }

    Node& add(Node* relative, Relation relation, std::string text);
    /// False, and nothing changed, when another node has the Key. The empty text removes the Key.
    bool setKey(Node& node, std::string_view key);
    /// Removes the node with its subtree. If it contains the selected node, nothing is selected.
    void remove(Node& node);
    void clear();

    Node* selected() const { return selected_; }
    /// Sets the selection; no click is reported. Null selects nothing.
    void select(Node* node);

    /// All nodes, including later ones, show this colour until they get their own; existing own colours are
    /// removed.
    void setOrdinaryForeColor(OptionalColor color);

    void setListener(NodeTreeListener* listener) { listener_ = listener; }

    /// Receives what was there before each change; null for nobody.
    void setRecorder(NodeTreeRecorder* recorder) { recorder_ = recorder; }
    NodeTreeRecorder* recorder() const { return recorder_; }
    /// From now on the first change of each part of each node is reported to the recorder again.
    void startRecording() { ++recording_; }

    /// Takes the node out with its subtree, or takes out all nodes, and puts them back: to the same place,
    /// flat positions and Keys. The tree must be as it was directly after they were taken out. Recorders are
    /// not notified.
    /// @{
    NodeBranch detach(Node& node);
    NodeBranch detachAll();
    void attach(NodeBranch branch);
    /// @}
    OptionalColor ordinaryForeColor() const { return ordinaryForeColor_; }

    /// During the lifetime of one of these, the listener receives no single changes, but one for the whole at
    /// the end: a view of a hundred thousand nodes is then laid out once. They may be nested; the tree must
    /// outlive them.
    class Filling {
    public:
        explicit Filling(NodeTree& tree);
        ~Filling();
        Filling(const Filling&) = delete;
        Filling& operator=(const Filling&) = delete;

    private:
        NodeTree& tree_;
        const Node* selectedBefore_;
    };

    /// A filling for the lifetime of one of these when so many nodes are going to change that it is faster;
    /// few changes are reported one by one.
    class ManyChanges {
    public:
        ManyChanges(NodeTree& tree, std::size_t changes) {
            if (areMany(changes))
                filling_.emplace(tree);
        }
        static bool areMany(std::size_t changes) { return changes > 64; }

    private:
        std::optional<Filling> filling_;
    };

private:
    friend class Node;
    struct Place {
        Node* parent;
        Node* previous;
    };
    Place placeOf(Node* relative, Relation relation) const;
    void link(Node& first, Node& last, Place place);
    void unlink(Node& node);
    void takeOut(Node& root, std::vector<std::unique_ptr<Node>>& leaving);
    void putBack(std::unique_ptr<Node> node);

    /// In the order of insertion, by slots. The slot of a node that leaves stays empty, for a return by an
    /// undo, and so that no other node needs another slot.
    std::vector<std::unique_ptr<Node>> nodes_;
    SlotRanks slots_;
    std::unordered_map<std::string, Node*> byKey_; // upper-cased
    Node* firstRoot_ = nullptr;
    Node* lastRoot_ = nullptr;
    Node* selected_ = nullptr;
    OptionalColor ordinaryForeColor_;
    bool ownForeColors_ = false;
    /// Null while the tree is being filled.
    NodeTreeListener* activeListener() const { return fillings_ == 0 ? listener_ : nullptr; }

    NodeTreeListener* listener_ = nullptr;
    NodeTreeRecorder* recorder_ = nullptr;
    std::uint32_t recording_ = 1;
    int fillings_ = 0;
};

/// Whether the Key of a node other than the one at `skipIndex` (0: of any node) equals the name, both
/// upper-cased.
bool isMessageKeyUsed(const NodeTree& tree, std::string_view name, int skipIndex);

} // namespace zb
