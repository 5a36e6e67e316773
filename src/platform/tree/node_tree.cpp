#include "platform/tree/node_tree.h"

#include "platform/text.h"
#include "platform/tree/node_walk.h"

#include <utility>

namespace zb {

void Node::setText(std::string text) {
    if (text_ == text)
        return;
    text_ = std::move(text);
    changed();
}

Node* Node::firstSibling() {
    return parent_ != nullptr ? parent_->firstChild_ : tree_->firstRoot_;
}

Node* Node::lastSibling() {
    return parent_ != nullptr ? parent_->lastChild_ : tree_->lastRoot_;
}

int Node::level() const {
    int level = 0;
    for (const Node* above = parent_; above != nullptr; above = above->parent_)
        ++level;
    return level;
}

void Node::setBold(bool bold) {
    bold_ = bold;
    changed();
}

void Node::setExpanded(bool expanded) {
    if (expanded_ == expanded)
        return;
    expanded_ = expanded;
    if (NodeTreeListener* listener = tree_->told(); listener != nullptr)
        listener->nodeExpanded(*this);
}

void Node::setBackColor(OptionalColor color) {
    if (backColor_ == color)
        return;
    backColor_ = color;
    changed();
}

OptionalColor Node::foreColor() const {
    return foreColor_ ? foreColor_ : tree_->ordinaryForeColor_;
}

void Node::setForeColor(OptionalColor color) {
    foreColor_ = color;
    tree_->ownForeColors_ = true;
    changed();
}

const std::string& Node::image() const {
    static const std::string none;
    return image_ ? *image_ : none;
}

void Node::setImage(std::string image) {
    image_ = image.empty() ? nullptr : std::make_unique<std::string>(std::move(image));
    changed();
}

void Node::changed() {
    if (NodeTreeListener* listener = tree_->told(); listener != nullptr)
        listener->nodeChanged(*this);
}

NodeTree::NodeTree() = default;
NodeTree::~NodeTree() = default;

Node* NodeTree::at(int index) const {
    if (index < 1 || static_cast<std::size_t>(index) > nodes_.size())
        return nullptr;
    return nodes_[static_cast<std::size_t>(index) - 1].get();
}

Node* NodeTree::find(std::string_view key) const {
    if (key.empty())
        return nullptr;
    const auto found = byKey_.find(upper(key));
    return found == byKey_.end() ? nullptr : found->second;
}

Node& NodeTree::add(Node* relative, Relation relation, std::string text) {
    const Place place = placeOf(relative, relation);
    if (NodeTreeListener* listener = told(); listener != nullptr)
        listener->beforeInsert(place.parent, place.previous);
    // make_unique cannot call the constructor, which is private to trees.
    nodes_.push_back(std::unique_ptr<Node>(new Node(*this)));
    Node& node = *nodes_.back();
    node.text_ = std::move(text);
    node.index_ = static_cast<int>(nodes_.size());
    link(node, place);
    if (NodeTreeListener* listener = told(); listener != nullptr)
        listener->afterInsert(node);
    return node;
}

bool NodeTree::setKey(Node& node, std::string_view key) {
    if (!key.empty()) {
        const Node* holder = find(key);
        if (holder != nullptr && holder != &node)
            return false;
    }
    if (node.key_)
        byKey_.erase(upper(*node.key_));
    node.key_ = key.empty() ? nullptr : std::make_unique<std::string>(key);
    if (node.key_)
        byKey_.emplace(upper(key), &node);
    return true;
}

void NodeTree::remove(Node& node) {
    if (NodeTreeListener* listener = told(); listener != nullptr)
        listener->beforeRemove(node);
    const Node* selectedBefore = selected_;
    unlink(node);
    closeUp(markLeaving(node));
    if (NodeTreeListener* listener = told(); listener != nullptr) {
        listener->afterRemove();
        if (selected_ != selectedBefore)
            listener->selectionChanged();
    }
}

void NodeTree::clear() {
    if (nodes_.empty())
        return;
    const Filling filling(*this);
    byKey_.clear();
    firstRoot_ = lastRoot_ = selected_ = nullptr;
    nodes_.clear();
}

NodeTree::Filling::Filling(NodeTree& tree) : tree_(tree), selectedBefore_(tree.selected_) {
    if (NodeTreeListener* listener = tree_.told(); listener != nullptr)
        listener->beforeFill();
    ++tree_.fillings_;
}

NodeTree::Filling::~Filling() {
    --tree_.fillings_;
    NodeTreeListener* listener = tree_.told();
    if (listener == nullptr)
        return;
    listener->afterFill();
    if (tree_.selected_ != selectedBefore_)
        listener->selectionChanged();
}

void NodeTree::select(Node* node) {
    if (selected_ == node)
        return;
    selected_ = node;
    if (NodeTreeListener* listener = told(); listener != nullptr)
        listener->selectionChanged();
}

void NodeTree::setOrdinaryForeColor(OptionalColor color) {
    if (ordinaryForeColor_ == color && !ownForeColors_)
        return;
    ordinaryForeColor_ = color;
    if (std::exchange(ownForeColors_, false)) {
        for (const auto& node : nodes_)
            node->foreColor_.reset();
    }
    if (NodeTreeListener* listener = told(); listener != nullptr)
        listener->allChanged();
}

NodeTree::Place NodeTree::placeOf(Node* relative, Relation relation) const {
    if (relation == Relation::Child)
        return relative == nullptr ? Place{nullptr, lastRoot_} : Place{relative, relative->lastChild_};
    if (relative == nullptr)
        return relation == Relation::First ? Place{nullptr, nullptr} : Place{nullptr, lastRoot_};
    switch (relation) {
    case Relation::First:
        return {relative->parent_, nullptr};
    case Relation::Last:
        return {relative->parent_, relative->lastSibling()};
    case Relation::Previous:
        return {relative->parent_, relative->previous_};
    default:
        return {relative->parent_, relative};
    }
}

void NodeTree::link(Node& node, Place place) {
    Node*& first = place.parent != nullptr ? place.parent->firstChild_ : firstRoot_;
    Node*& last = place.parent != nullptr ? place.parent->lastChild_ : lastRoot_;
    node.parent_ = place.parent;
    node.previous_ = place.previous;
    node.next_ = place.previous != nullptr ? place.previous->next_ : first;
    (node.previous_ != nullptr ? node.previous_->next_ : first) = &node;
    (node.next_ != nullptr ? node.next_->previous_ : last) = &node;
    if (place.parent != nullptr)
        ++place.parent->children_;
}

void NodeTree::unlink(Node& node) {
    Node*& first = node.parent_ != nullptr ? node.parent_->firstChild_ : firstRoot_;
    Node*& last = node.parent_ != nullptr ? node.parent_->lastChild_ : lastRoot_;
    (node.previous_ != nullptr ? node.previous_->next_ : first) = node.next_;
    (node.next_ != nullptr ? node.next_->previous_ : last) = node.previous_;
    if (node.parent_ != nullptr)
        --node.parent_->children_;
    node.next_ = node.previous_ = nullptr;
}

/// Marks the subtree without recursion, for trees of any depth, and returns its lowest position.
int NodeTree::markLeaving(Node& root) {
    int lowest = root.index_;
    for (Node* node = &root; node != nullptr; node = nextBelow(*node, root)) {
        node->leaving_ = true;
        lowest = node->index_ < lowest ? node->index_ : lowest;
        if (node->key_)
            byKey_.erase(upper(*node->key_));
        if (selected_ == node)
            selected_ = nullptr;
    }
    return lowest;
}

void NodeTree::closeUp(int from) {
    std::size_t kept = static_cast<std::size_t>(from) - 1;
    for (std::size_t i = kept; i < nodes_.size(); ++i) {
        if (nodes_[i]->leaving_)
            continue;
        if (kept != i)
            nodes_[kept] = std::move(nodes_[i]);
        nodes_[kept]->index_ = static_cast<int>(kept) + 1;
        ++kept;
    }
    nodes_.resize(kept);
}

bool isMessageKeyUsed(const NodeTree& tree, std::string_view name, int skipIndex) {
    if (!name.empty()) {
        const Node* holder = tree.find(name);
        return holder != nullptr && holder->index() != skipIndex;
    }
    // Nodes without a Key, such as blank and description nodes, have the empty Key.
    for (int index = 1; Node* node = tree.at(index); ++index) {
        if (index != skipIndex && node->key().empty())
            return true;
    }
    return false;
}

} // namespace zb
