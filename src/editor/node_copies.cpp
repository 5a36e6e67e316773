#include "editor/node_copies.h"

#include <utility>
#include <vector>

namespace zb {

Node& copyExactly(const Node& source, NodeTree& tree, Node* relative, Relation relation) {
    std::vector<std::pair<const Node*, Node*>> toFill;
    const auto copyOne = [&](const Node& from, Node* beside, Relation where) -> Node& {
        Node& made = tree.add(beside, where, from.text());
        made.setBold(from.bold());
        made.setExpanded(from.expanded());
        made.setBackColor(from.backColor());
        toFill.emplace_back(&from, &made);
        return made;
    };
    Node& top = copyOne(source, relative, relation);
    while (!toFill.empty()) {
        const auto [from, to] = toFill.back();
        toFill.pop_back();
        for (const Node* child = from->child(); child != nullptr; child = child->next())
            copyOne(*child, to, Relation::Child);
    }
    return top;
}

void copyAll(const NodeTree& from, NodeTree& to) {
    for (const Node* root = from.firstRoot(); root != nullptr; root = root->next())
        copyExactly(*root, to, nullptr, Relation::Last);
}

} // namespace zb
