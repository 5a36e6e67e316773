#include "controls/tree.h"

#include <utility>

namespace zb {

void Tree::Listeners::beforeInsert(Node* parent, Node* previous) {
    for (NodeTreeListener* listener : all)
        listener->beforeInsert(parent, previous);
}

void Tree::Listeners::afterInsert(Node& node) {
    for (NodeTreeListener* listener : all)
        listener->afterInsert(node);
}

void Tree::Listeners::beforeRemove(Node& node) {
    for (NodeTreeListener* listener : all)
        listener->beforeRemove(node);
}

void Tree::Listeners::afterRemove() {
    for (NodeTreeListener* listener : all)
        listener->afterRemove();
}

void Tree::Listeners::nodeChanged(Node& node) {
    for (NodeTreeListener* listener : all)
        listener->nodeChanged(node);
}

void Tree::Listeners::nodeExpanded(Node& node) {
    for (NodeTreeListener* listener : all)
        listener->nodeExpanded(node);
}

void Tree::Listeners::selectionChanged() {
    for (NodeTreeListener* listener : all)
        listener->selectionChanged();
}

void Tree::Listeners::allChanged() {
    for (NodeTreeListener* listener : all)
        listener->allChanged();
}

void Tree::Listeners::beforeFill() {
    for (NodeTreeListener* listener : all)
        listener->beforeFill();
}

void Tree::Listeners::afterFill() {
    for (NodeTreeListener* listener : all)
        listener->afterFill();
}

void Tree::replaceNodes(std::unique_ptr<NodeTree> fresh) {
    nodes_->setListener(nullptr);
    marks_.clear();
    std::swap(nodes_, fresh);
    // The old nodes are destroyed only after all views have released them.
    fire(onReplaced);
    marks_.follow(*nodes_);
    nodes_->setListener(allListeners());
    for (NodeTreeListener* watcher : watchers_)
        watcher->afterFill();
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
    nodes_->setListener(allListeners());
}

void Tree::addWatcher(NodeTreeListener& watcher) {
    watchers_.push_back(&watcher);
    nodes_->setListener(allListeners());
}

void Tree::removeWatcher(const NodeTreeListener& watcher) {
    std::erase(watchers_, &watcher);
    nodes_->setListener(allListeners());
}

NodeTreeListener* Tree::allListeners() {
    listeners_.all = watchers_;
    if (listener_ != nullptr)
        listeners_.all.insert(listeners_.all.begin(), listener_);
    return listeners_.all.empty() ? nullptr : &listeners_;
}

} // namespace zb
