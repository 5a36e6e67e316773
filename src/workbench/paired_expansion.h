#pragma once

#include "platform/tree/node_tree.h"

#include <vector>

namespace zb {

class Tree;

/// Keeps trees with the same nodes expanded alike: what the user expands or collapses in one of them follows
/// in the others.
class PairedExpansion final : private NodeTreeRecorder {
public:
    explicit PairedExpansion(std::vector<Tree*> trees) : trees_(std::move(trees)) {}
    ~PairedExpansion() override;
    PairedExpansion(const PairedExpansion&) = delete;
    PairedExpansion& operator=(const PairedExpansion&) = delete;

    /// The trees have been filled again.
    void restart();

private:
    void beforeChange(Node& node, NodePart part) override;
    void afterAdd(Node& /*node*/) override {}
    void afterRemove(NodeBranch /*branch*/) override {}
    void beforeRecolor(OptionalColor /*ordinary*/) override {}
    void afterReplace() override {}

    std::vector<Tree*> trees_;
    bool following_ = false;
};

} // namespace zb
