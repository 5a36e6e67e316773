#include "editor/node_moves.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/node_copies.h"
#include "editor/step_names.h"
#include "messages/message_nodes.h"

#include <algorithm>
#include <unordered_set>

namespace zb {

namespace {

bool isFixedList(const Node& node) {
    return node.parent() != nullptr && isList(node) && !hasVariableCount(node);
}

/// Whether one more item may be put below a list, or directly below a message.
bool takesMore(const Node& above) {
    return above.parent() == nullptr || isFixedList(above) || (isList(above) && above.child() == nullptr);
}

/// The message before or after a message, as its MessageNode; null for none.
Node* messageBeside(const Node& message, NodeMove way) {
    Node* beside = siblingAt(const_cast<Node*>(&message), way == NodeMove::Up ? -3 : 3);
    const bool isMessage = beside != nullptr && messageOf(*beside).message == beside;
    return isMessage && siblingAt(beside, -2) != nullptr ? beside : nullptr;
}

const char* wordFor(NodeMove way) {
    switch (way) {
    case NodeMove::Up:
        return " up";
    case NodeMove::Down:
        return " down";
    case NodeMove::Out:
        return " out";
    default:
        return " in";
    }
}

} // namespace

std::vector<Node*> NodeMoves::units() const {
    std::vector<Node*> units = window_.markedNodes.units();
    Node* selected = window_.liveTree().selected();
    if (units.empty() && selected != nullptr) {
        Node* unit = selected->parent() == nullptr ? messageOf(*selected).message : selected;
        if (unit != nullptr)
            units.push_back(unit);
    }
    return units;
}

bool NodeMoves::isPossible(NodeMove way) const {
    const std::vector<Node*> all = units();
    return std::any_of(all.begin(), all.end(), [&](const Node* unit) { return isPossible(*unit, way); });
}

bool NodeMoves::isPossible(const Node& unit, NodeMove way) const {
    const bool isMessage = unit.parent() == nullptr;
    switch (way) {
    case NodeMove::Up:
    case NodeMove::Down:
        if (isMessage)
            return siblingAt(const_cast<Node*>(&unit), -2) != nullptr && messageBeside(unit, way) != nullptr;
        return (way == NodeMove::Up ? unit.previous() : unit.next()) != nullptr;
    case NodeMove::Out:
        return !isMessage && unit.parent()->parent() != nullptr && takesMore(*unit.parent()->parent());
    default:
        return !isMessage && unit.previous() != nullptr && isList(*unit.previous()) &&
               takesMore(*unit.previous());
    }
}

// Those that go down or out go last first, so that they keep their order. A node is blocked by one that
// stays, as at the end of a list.
void NodeMoves::move(NodeMove way) {
    std::vector<Node*> toMove = units();
    if (!isPossible(way))
        return;
    const bool several = toMove.size() > 1;
    window_.desktop().steps().name(
        "Move " + (several ? std::to_string(toMove.size()) + " nodes" : nameForSteps(*toMove.front())) +
        wordFor(way));
    const bool lastFirst = way == NodeMove::Down || way == NodeMove::Out;
    if (lastFirst)
        std::reverse(toMove.begin(), toMove.end());
    const std::vector<Node*> moved = moveUnits(toMove, way);
    window_.TreeView_ForeColor();
    Node* current = lastFirst ? moved.front() : moved.back();
    if (several)
        window_.markedNodes.set(moved);
    window_.liveTree().select(current);
    const Desktop::FocusStays stays(window_.desktop());
    window_.treeInteraction.nodeClick();
}

std::vector<Node*> NodeMoves::moveUnits(const std::vector<Node*>& units, NodeMove way) {
    // The marks would go one by one.
    if (units.size() > 1)
        window_.tvwEdit.marks().clear();
    const NodeTree::ManyChanges many(window_.liveTree(), units.size());
    std::vector<Node*> moved;
    std::unordered_set<const Node*> done;
    for (Node* unit : units) {
        const Node* neighbour = way == NodeMove::Up     ? siblingAt(unit, unit->parent() == nullptr ? -3 : -1)
                                : way == NodeMove::Down ? siblingAt(unit, unit->parent() == nullptr ? 3 : 1)
                                                        : nullptr;
        const bool isBlocked = neighbour != nullptr && done.contains(neighbour);
        moved.push_back(isBlocked || !isPossible(*unit, way) ? unit : moveUnit(*unit, way));
        done.insert(moved.back());
    }
    return moved;
}

Node* NodeMoves::moveUnit(Node& unit, NodeMove way) {
    return unit.parent() == nullptr ? moveMessage(unit, way) : moveItem(unit, way);
}

Node* NodeMoves::moveMessage(Node& message, NodeMove way) {
    NodeTree& tree = window_.liveTree();
    Node& beside = *messageBeside(message, way);
    Node& description = *message.previous();
    Node& separator = *description.previous();
    Node& relative = way == NodeMove::Up ? *siblingAt(&beside, -2) : beside;
    const std::string key(message.key());
    Node& first =
        copyExactly(separator, tree, &relative, way == NodeMove::Up ? Relation::Previous : Relation::Next);
    Node& second = copyExactly(description, tree, &first, Relation::Next);
    Node& third = copyExactly(message, tree, &second, Relation::Next);
    tree.remove(message);
    tree.remove(description);
    tree.remove(separator);
    tree.setKey(third, key);
    return &third;
}

Node* NodeMoves::moveItem(Node& item, NodeMove way) {
    NodeTree& tree = window_.liveTree();
    Node* parent = item.parent();
    Node* above = way == NodeMove::Out ? parent->parent() : way == NodeMove::In ? item.previous() : nullptr;
    Node* relative = way == NodeMove::Up     ? item.previous()
                     : way == NodeMove::Down ? item.next()
                     : way == NodeMove::Out  ? parent
                                             : above;
    const Relation relation = way == NodeMove::Up   ? Relation::Previous
                              : way == NodeMove::In ? Relation::Child
                                                    : Relation::Next;
    Node& moved = copyExactly(item, tree, relative, relation);
    tree.remove(item);
    if (above == nullptr)
        return &moved;
    above->setExpanded(true);
    for (Node* list : {parent, above}) {
        if (isFixedList(*list))
            window_.treeCommands.updateListCount(*list);
    }
    return &moved;
}

} // namespace zb
