#include "platform/tree/node_tree.h"

#include "platform/text.h"
#include "platform/tree/node_walk.h"

#include <optional>
#include <utility>

namespace zb {

void Node::setText(std::string text) {
    if (text_ == text)
        return;
    changes(NodePart::Text);
    text_ = std::move(text);
    changed();
}

int Node::index() const {
    return static_cast<int>(tree_->slots_.rankOf(static_cast<std::size_t>(slot_)));
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
    if (bold_ != bold)
        changes(NodePart::Bold);
    bold_ = bold;
    changed();
}

void Node::setExpanded(bool expanded) {
    if (expanded_ == expanded)
        return;
    changes(NodePart::Expanded);
    expanded_ = expanded;
    if (NodeTreeListener* listener = tree_->activeListener(); listener != nullptr)
        listener->nodeExpanded(*this);
}

void Node::setBackColor(OptionalColor color) {
    if (backColor_ == color)
        return;
    changes(NodePart::BackColor);
    backColor_ = color;
    changed();
}

OptionalColor Node::foreColor() const {
    return foreColor_ ? foreColor_ : tree_->ordinaryForeColor_;
}

void Node::setForeColor(OptionalColor color) {
    if (foreColor_ != color)
        changes(NodePart::ForeColor);
    foreColor_ = color;
    tree_->ownForeColors_ = true;
    changed();
}

const std::string& Node::image() const {
    static const std::string kNone;
    return image_ ? *image_ : kNone;
}

void Node::setImage(std::string image) {
    if (this->image() != image)
        changes(NodePart::Image);
    image_ = image.empty() ? nullptr : std::make_unique<std::string>(std::move(image));
    changed();
}

void Node::changes(NodePart part) {
    if (tree_->recorder_ == nullptr)
        return;
    const auto bit = static_cast<std::uint8_t>(part);
    if (recording_ != tree_->recording_) {
        recording_ = tree_->recording_;
        recordedParts_ = 0;
    }
    if ((recordedParts_ & bit) != 0)
        return;
    recordedParts_ = static_cast<std::uint8_t>(recordedParts_ | bit);
    tree_->recorder_->beforeChange(*this, part);
}

void Node::changed() {
    if (NodeTreeListener* listener = tree_->activeListener(); listener != nullptr)
        listener->nodeChanged(*this);
}

NodeTree::NodeTree() = default;
NodeTree::~NodeTree() = default;

Node* NodeTree::at(int index) const {
    if (index < 1 || static_cast<std::size_t>(index) > count())
        return nullptr;
    return nodes_[slots_.slotOf(static_cast<std::size_t>(index))].get();
}

Node* NodeTree::find(std::string_view key) const {
    if (key.empty())
        return nullptr;
    const auto found = byKey_.find(upper(key));
    return found == byKey_.end() ? nullptr : found->second;
}

Node& NodeTree::add(Node* relative, Relation relation, std::string text) {
    const Place place = placeOf(relative, relation);
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
        listener->beforeInsert(place.parent, place.previous);
    // make_unique cannot call the constructor, which is private to trees.
    nodes_.push_back(std::unique_ptr<Node>(new Node(*this)));
    Node& node = *nodes_.back();
    node.text_ = std::move(text);
    node.slot_ = static_cast<int>(nodes_.size()) - 1;
    slots_.appendUsed();
    node.recording_ = recording_;
    node.recordedParts_ = 0xFF; // what a new node looks like goes with it
    link(node, node, place);
    if (recorder_ != nullptr)
        recorder_->afterAdd(node);
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
        listener->afterInsert(node);
    return node;
}

bool NodeTree::setKey(Node& node, std::string_view key) {
    if (!key.empty()) {
        const Node* holder = find(key);
        if (holder != nullptr && holder != &node)
            return false;
    }
    if (recorder_ != nullptr && node.key() != key)
        recorder_->beforeChange(node, NodePart::Key);
    if (node.key_)
        byKey_.erase(upper(*node.key_));
    node.key_ = key.empty() ? nullptr : std::make_unique<std::string>(key);
    if (node.key_)
        byKey_.emplace(upper(key), &node);
    return true;
}

void NodeTree::remove(Node& node) {
    NodeBranch removed = detach(node);
    if (recorder_ != nullptr)
        recorder_->afterRemove(std::move(removed));
}

void NodeTree::clear() {
    if (empty())
        return;
    NodeBranch removed = detachAll();
    if (recorder_ != nullptr)
        recorder_->afterRemove(std::move(removed));
}

NodeBranch NodeTree::detach(Node& node) {
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
        listener->beforeRemove(node);
    const Node* selectedBefore = selected_;
    NodeBranch branch;
    branch.first_ = branch.last_ = &node;
    branch.parent_ = node.parent_;
    branch.previous_ = node.previous_;
    unlink(node);
    takeOut(node, branch.nodes_);
    if (NodeTreeListener* listener = activeListener(); listener != nullptr) {
        listener->afterRemove();
        if (selected_ != selectedBefore)
            listener->selectionChanged();
    }
    return branch;
}

NodeBranch NodeTree::detachAll() {
    const Filling filling(*this);
    NodeBranch branch;
    branch.first_ = firstRoot_;
    branch.last_ = lastRoot_;
    branch.nodes_ = std::move(nodes_);
    nodes_.clear();
    slots_.clear();
    byKey_.clear();
    firstRoot_ = lastRoot_ = selected_ = nullptr;
    return branch;
}

void NodeTree::attach(NodeBranch branch) {
    // Views know single nodes and whole fillings.
    std::optional<Filling> filling;
    if (branch.first_ != branch.last_)
        filling.emplace(*this);
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
        listener->beforeInsert(branch.parent_, branch.previous_);
    for (auto& node : branch.nodes_) {
        if (node != nullptr)
            putBack(std::move(node));
    }
    link(*branch.first_, *branch.last_, {branch.parent_, branch.previous_});
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
        listener->afterInsert(*branch.first_);
}

NodeTree::Filling::Filling(NodeTree& tree) : tree_(tree), selectedBefore_(tree.selected_) {
    if (NodeTreeListener* listener = tree_.activeListener(); listener != nullptr)
        listener->beforeFill();
    ++tree_.fillings_;
}

NodeTree::Filling::~Filling() {
    --tree_.fillings_;
    NodeTreeListener* listener = tree_.activeListener();
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
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
        listener->selectionChanged();
}

void NodeTree::setOrdinaryForeColor(OptionalColor color) {
    if (ordinaryForeColor_ == color && !ownForeColors_)
        return;
    if (std::exchange(ownForeColors_, false)) {
        for (const auto& node : nodes_) {
            if (node == nullptr)
                continue;
            if (node->foreColor_)
                node->changes(NodePart::ForeColor);
            node->foreColor_.reset();
        }
    }
    if (recorder_ != nullptr && ordinaryForeColor_ != color)
        recorder_->beforeRecolor(ordinaryForeColor_);
    ordinaryForeColor_ = color;
    if (NodeTreeListener* listener = activeListener(); listener != nullptr)
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

/// Links siblings that are linked to each other.
void NodeTree::link(Node& firstNew, Node& lastNew, Place place) {
    Node*& first = place.parent != nullptr ? place.parent->firstChild_ : firstRoot_;
    Node*& last = place.parent != nullptr ? place.parent->lastChild_ : lastRoot_;
    firstNew.previous_ = place.previous;
    lastNew.next_ = place.previous != nullptr ? place.previous->next_ : first;
    (firstNew.previous_ != nullptr ? firstNew.previous_->next_ : first) = &firstNew;
    (lastNew.next_ != nullptr ? lastNew.next_->previous_ : last) = &lastNew;
    for (Node* node = &firstNew;; node = node->next_) {
        node->parent_ = place.parent;
        if (place.parent != nullptr)
            ++place.parent->children_;
        if (node == &lastNew)
            return;
    }
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

/// Without recursion, for trees of any depth.
void NodeTree::takeOut(Node& root, std::vector<std::unique_ptr<Node>>& leaving) {
    for (Node* node = &root; node != nullptr; node = nextBelow(*node, root)) {
        const auto slot = static_cast<std::size_t>(node->slot_);
        leaving.push_back(std::move(nodes_[slot]));
        slots_.release(slot);
        if (node->key_)
            byKey_.erase(upper(*node->key_));
        if (selected_ == node)
            selected_ = nullptr;
    }
}

/// To its slot. After all nodes were taken out, the tree has fewer slots than those that return had.
void NodeTree::putBack(std::unique_ptr<Node> node) {
    const auto slot = static_cast<std::size_t>(node->slot_);
    if (node->key_)
        byKey_.emplace(upper(*node->key_), node.get());
    if (slot == nodes_.size()) {
        nodes_.push_back(std::move(node));
        slots_.appendUsed();
        return;
    }
    for (; nodes_.size() <= slot; slots_.appendFree())
        nodes_.emplace_back();
    nodes_[slot] = std::move(node);
    slots_.reuse(slot);
}

std::size_t NodeBranch::bytes() const {
    std::size_t sum = nodes_.size() * (sizeof(Node) + sizeof(decltype(nodes_)::value_type));
    for (const auto& node : nodes_)
        sum += node == nullptr ? 0 : node->text().capacity() + node->key().size();
    return sum;
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
