#include "controls/tree_marks.h"

#include "controls/control.h"
#include "platform/tree/node_walk.h"

#include <utility>

namespace zb {

void TreeMarks::set(const std::vector<Node*>& nodes) {
    std::unordered_set<const Node*> marked(nodes.begin(), nodes.end());
    if (marked == marked_)
        return;
    marked_ = std::move(marked);
    fire(onChange);
}

void TreeMarks::beforeRemove(Node& node) {
    if (marked_.empty())
        return;
    std::size_t gone = 0;
    for (const Node* leaving = &node; leaving != nullptr; leaving = nextBelow(*leaving, node))
        gone += marked_.erase(leaving);
    if (gone > 0)
        fire(onChange);
}

void TreeMarks::selectionChanged() {
    const Node* selected = tree_ == nullptr ? nullptr : tree_->selected();
    const bool kept = std::exchange(keptFor_, nullptr) == selected;
    if (selected == nullptr || (!kept && !holds(*selected)))
        clear();
    fire(onSelected);
}

} // namespace zb
