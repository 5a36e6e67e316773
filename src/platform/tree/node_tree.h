#pragma once

#include "platform/tree/node.h"

#include <cstddef>
#include <memory>
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

/// An ordered tree of nodes that are also in one flat collection, in order of insertion. Keys are unique,
/// compared upper-cased. Look-ups by Key and by Index take constant time; a removal moves the positions after
/// it up.
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
