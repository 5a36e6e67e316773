#include "controls/tree.h"

#include <utility>

namespace zb {

void Tree::replaceNodes(std::unique_ptr<NodeTree> fresh) {
    nodes_->setListener(nullptr);
    std::swap(nodes_, fresh);
    // The old nodes are destroyed only after all views have released them.
    fire(onReplaced);
    nodes_->setListener(listener_);
    if (NodeTreeRecorder* recorder = fresh->recorder(); recorder != nullptr)
        recorder->afterReplace();
    ring(Change::Rows);
}

void Tree::setFilter(std::function<bool(const Node&)> shows) {
    shows_ = std::move(shows);
    ring(Change::Rows);
}

void Tree::setListener(NodeTreeListener* listener) {
    listener_ = listener;
    nodes_->setListener(listener);
}

} // namespace zb
