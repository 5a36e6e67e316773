#include "workbench/paired_expansion.h"

#include "controls/tree.h"

namespace zb {

PairedExpansion::~PairedExpansion() {
    for (Tree* tree : trees_)
        tree->setRecorder(nullptr);
}

void PairedExpansion::restart() {
    for (Tree* tree : trees_) {
        tree->setRecorder(this);
        // What a recording has added is not reported in it.
        tree->nodes().startRecording();
    }
}

void PairedExpansion::beforeChange(Node& node, NodePart part) {
    if (part != NodePart::Expanded || following_)
        return;
    following_ = true;
    for (Tree* tree : trees_) {
        Node* partner = tree->nodes().at(node.index());
        if (partner != nullptr && partner != &node)
            partner->setExpanded(!node.expanded());
    }
    // A node is reported once in a recording.
    for (Tree* tree : trees_)
        tree->nodes().startRecording();
    following_ = false;
}

} // namespace zb
