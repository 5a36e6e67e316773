#pragma once

#include "platform/tree/node.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// Where a new node goes, seen from its relative. With no relative, First and Last are the ends of the root
/// level and all others its end.
enum class Relation { First, Last, Next, Previous, Child };

/// Told of every change of a tree; a view hangs itself on one.
class NodeTreeListener {
public:
    virtual ~NodeTreeListener() = default;
    /// A node is about to come in below `parent` (null: root level) behind `previous` (null: as the first).
    virtual void beforeInsert(Node* /*parent*/, Node* /*previous*/) {}
    virtual void afterInsert(Node& /*node*/) {}
    /// The node is about to go with all that lies below it.
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

/// An ordered tree of nodes that also stand in one flat collection, in order of insertion. Keys are unique,
/// compared upper-cased. Look-ups by Key and by Index take constant time; a removal closes up the positions
/// behind it.
class NodeTree {
public:
    NodeTree();
    ~NodeTree();
    NodeTree(const NodeTree&) = delete;
    NodeTree& operator=(const NodeTree&) = delete;

    std::size_t count() const { return nodes_.size(); }
    bool empty() const { return nodes_.empty(); }
    /// By flat position, from 1; null when there is none.
    Node* at(int index) const;
    /// Null when no node has the Key; the empty Key finds nothing.
    Node* find(std::string_view key) const;
    Node* firstRoot() const { return firstRoot_; }
    Node* lastRoot() const { return lastRoot_; }

    Node& add(Node* relative, Relation relation, std::string text);
    /// False, and nothing changed, when another node has the Key. The empty text takes the Key away.
    bool setKey(Node& node, std::string_view key);
    /// Removes the node with its subtree. A selection inside it is gone.
    void remove(Node& node);
    void clear();

    Node* selected() const { return selected_; }
    /// Sets the selection; no click is told. Null selects nothing.
    void select(Node* node);

    /// Every node, now and later, shows this colour until it gets its own; own colours are dropped.
    void setOrdinaryForeColor(OptionalColor color);

    void setListener(NodeTreeListener* listener) { listener_ = listener; }

    /// While one of these lives, the listener is not told of single changes, but of the whole at the end: a
    /// view of a hundred thousand nodes is then laid out once. They may be nested; the tree must outlive
    /// them.
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

private:
    friend class Node;
    struct Place {
        Node* parent;
        Node* previous;
    };
    Place placeOf(Node* relative, Relation relation) const;
    void link(Node& node, Place place);
    void unlink(Node& node);
    int markLeaving(Node& root);
    void closeUp(int from);

    std::vector<std::unique_ptr<Node>> nodes_;
    std::unordered_map<std::string, Node*> byKey_; // upper-cased
    Node* firstRoot_ = nullptr;
    Node* lastRoot_ = nullptr;
    Node* selected_ = nullptr;
    OptionalColor ordinaryForeColor_;
    bool ownForeColors_ = false;
    /// Null while the tree is being filled.
    NodeTreeListener* told() const { return fillings_ == 0 ? listener_ : nullptr; }

    NodeTreeListener* listener_ = nullptr;
    int fillings_ = 0;
};

/// Whether the Key of a node other than the one at `skipIndex` (0: of any node) equals the name, both
/// upper-cased.
bool isMessageKeyUsed(const NodeTree& tree, std::string_view name, int skipIndex);

} // namespace zb
