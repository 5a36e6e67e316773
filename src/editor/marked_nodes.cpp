#include "editor/marked_nodes.h"

#include "controls/key.h"
#include "controls/key_effects.h"
#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"
#include "platform/wildcard.h"

#include <algorithm>

namespace zb {

namespace {

bool areAlike(const Node& unit, const Node& other) {
    if (unit.parent() == nullptr || other.parent() == nullptr)
        return unit.parent() == other.parent();
    return &rootOf(unit) == &rootOf(other);
}

bool isMessage(Node& root) {
    return messageOf(root).message == &root;
}

/// The next node in the order of the tree, below `top`; null at the end.
Node* nextBelow(Node& node, const Node& top, bool withChildren) {
    if (withChildren && node.child() != nullptr)
        return node.child();
    for (Node* at = &node; at != nullptr && at != &top; at = at->parent()) {
        if (at->next() != nullptr)
            return at->next();
    }
    return nullptr;
}

std::vector<Node*> messagesBetween(NodeTree& tree, const Node* first, const Node* last) {
    std::vector<Node*> found;
    bool inside = false;
    for (Node* root = tree.firstRoot(); root != nullptr; root = root->next()) {
        const bool isEnd = root == first || root == last;
        if ((isEnd || inside) && isMessage(*root))
            found.push_back(root);
        if (isEnd && (inside || first == last))
            break;
        inside = inside || isEnd;
    }
    return found;
}

std::vector<Node*> itemsBetween(const Node* first, const Node* last) {
    std::vector<Node*> found;
    const Node& root = rootOf(*first);
    bool inside = false;
    for (Node* item = root.child(); item != nullptr; item = nextBelow(*item, root, item->expanded())) {
        const bool isEnd = item == first || item == last;
        if (isEnd || inside)
            found.push_back(item);
        if (isEnd && (inside || first == last))
            break;
        inside = inside || isEnd;
    }
    return found;
}

} // namespace

Node* messageBefore(Node& node) {
    Node* own = unitOf(rootOf(node));
    Node* before = own == nullptr ? nullptr : own->previous();
    while (before != nullptr && !isMessage(*before))
        before = before->previous();
    return before;
}

Node* messageAfter(Node& node) {
    Node* own = unitOf(rootOf(node));
    Node* after = own == nullptr ? nullptr : own->next();
    while (after != nullptr && !isMessage(*after))
        after = after->next();
    return after;
}

Node* unitOf(Node& node) {
    if (node.parent() != nullptr)
        return &node;
    // Separators without a message may follow each other.
    Node* message = messageOf(node).message;
    return message != nullptr && hasColon(message->text()) ? message : nullptr;
}

MarkedNodes::MarkedNodes(frmSECSEditor& window) : window_(window) {
    window_.tvwEdit.onMarking = [this](Node& node, int shift) { press(node, shift); };
    window_.tvwEdit.marks().onChange = [this] {
        ++changes_;
        window_.tvwEdit.ring(Change::Selection);
        fire(onChange);
    };
}

void MarkedNodes::press(Node& node, int shift) {
    if ((shift & kControlKey) != 0) {
        toggle(node);
    } else if ((shift & kShiftKey) != 0) {
        extendTo(node);
    } else {
        window_.tvwEdit.marks().clear();
        anchor_ = &node;
        anchorIndex_ = node.index();
    }
}

void MarkedNodes::toggle(Node& node) {
    Node* unit = unitOf(node);
    if (unit == nullptr)
        return;
    std::vector<Node*> marked = units();
    Node* selected = window_.liveTree().selected();
    Node* current = selected == nullptr ? nullptr : unitOf(*selected);
    if (marked.empty() && current != nullptr && current != unit)
        marked.push_back(current);
    if (!marked.empty() && !areAlike(*marked.front(), *unit))
        marked.clear();
    if (const auto found = std::find(marked.begin(), marked.end(), unit); found != marked.end())
        marked.erase(found);
    else
        marked.push_back(unit);
    anchor_ = &node;
    anchorIndex_ = node.index();
    window_.tvwEdit.marks().keepFor(node);
    set(marked);
}

Node* MarkedNodes::anchor() const {
    NodeTree& tree = window_.liveTree();
    return anchor_ != nullptr && tree.at(anchorIndex_) == anchor_ ? anchor_ : tree.selected();
}

void MarkedNodes::extendTo(Node& node) {
    Node* from = anchor();
    if (from == nullptr)
        from = &node;
    anchor_ = from;
    anchorIndex_ = from->index();
    window_.tvwEdit.marks().keepFor(node);
    Node* first = unitOf(*from);
    if (first == nullptr)
        return;
    if (first->parent() == nullptr) {
        const Node* last = unitOf(rootOf(node));
        set(messagesBetween(window_.liveTree(), first, last == nullptr ? first : last));
    } else if (node.parent() != nullptr && &rootOf(node) == &rootOf(*first)) {
        set(itemsBetween(first, &node));
    }
}

std::vector<Node*> MarkedNodes::units() const {
    const TreeMarks& marks = window_.tvwEdit.marks();
    std::vector<Node*> found;
    if (marks.empty())
        return found;
    const Node& any = **marks.all().begin();
    if (any.parent() == nullptr) {
        for (Node* root = window_.liveTree().firstRoot(); root != nullptr; root = root->next()) {
            if (marks.holds(*root) && isMessage(*root))
                found.push_back(root);
        }
        return found;
    }
    const Node& root = rootOf(any);
    for (Node* item = root.child(); item != nullptr; item = nextBelow(*item, root, !marks.holds(*item))) {
        if (marks.holds(*item))
            found.push_back(item);
    }
    return found;
}

void MarkedNodes::set(const std::vector<Node*>& units) {
    std::vector<Node*> nodes;
    for (Node* unit : units) {
        nodes.push_back(unit);
        if (unit->parent() != nullptr)
            continue;
        for (const int before : {-1, -2}) {
            if (Node* part = siblingAt(unit, before); part != nullptr && messageOf(*part).message == unit)
                nodes.push_back(part);
        }
    }
    window_.tvwEdit.marks().set(nodes);
}

void MarkedNodes::toggleSelected() {
    if (Node* selected = window_.liveTree().selected(); selected != nullptr)
        toggle(*selected);
}

bool MarkedNodes::extend(Way way) {
    Node* selected = window_.liveTree().selected();
    if (selected == nullptr || selected->parent() != nullptr)
        return false;
    Node* target = way == Way::Up ? messageBefore(*selected) : messageAfter(*selected);
    if (target != nullptr)
        reachNode(window_.tvwEdit, *target, kShiftKey);
    return true;
}

std::string MarkedNodes::count() const {
    const std::vector<Node*> marked = units();
    if (marked.empty())
        return {};
    const std::string word = marked.front()->parent() == nullptr ? " message" : " item";
    return std::to_string(marked.size()) + word + (marked.size() == 1 ? "" : "s");
}

} // namespace zb
