#include "messages/subtree_copy.h"

#include "platform/tree/node_tree.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

TEST(SubtreeCopy, CopiesAnyDepth) {
    constexpr int kDepth = 200000;
    NodeTree source;
    Node* deepest = &source.add(nullptr, Relation::Last, "L 1");
    for (int i = 0; i < kDepth; ++i)
        deepest = &source.add(deepest, Relation::Child, "L 1");
    NodeTree target;
    Node& root = target.add(nullptr, Relation::Last, "A: S1 F1 H->E");
    EXPECT_EQ(copySubtree(*source.firstRoot(), root, target), CopyOutcome::Whole);
    EXPECT_EQ(target.count(), static_cast<std::size_t>(kDepth) + 1);
}

TEST(SubtreeCopy, CopiesManyEqualNamesWithoutTryingThemAll) {
    constexpr int kCount = 3000;
    NodeTree source;
    Node& list = source.add(nullptr, Relation::Last, "L 0");
    for (int i = 0; i < kCount; ++i)
        source.add(&list, Relation::Child, "U2 1 a 0");
    NodeTree target;
    Node& root = target.add(nullptr, Relation::Last, "A: S1 F1 H->E");
    EXPECT_EQ(copySubtree(list, root, target), CopyOutcome::Whole);
    EXPECT_EQ(root.lastChild()->text(), "U2 1 a" + std::string(kCount - 1, '1') + " 0");
}

} // namespace
} // namespace zb
