#include "platform/tree/node_walk.h"

#include "platform/tree/node_tree.h"

#include <gtest/gtest.h>

#include <string>

namespace zb {
namespace {

std::string walked(const Node& root) {
    std::string text;
    for (NodeWalk walk(root); const Node* node = walk.node(); walk.next())
        text += std::to_string(walk.depth()) + node->text() + " ";
    return text;
}

TEST(NodeWalk, GoesThroughAllBelowTheRootAndNothingBesideIt) {
    NodeTree tree;
    Node& root = tree.add(nullptr, Relation::Last, "root");
    Node& other = tree.add(nullptr, Relation::Last, "other");
    Node& a = tree.add(&root, Relation::Child, "a");
    Node& b = tree.add(&a, Relation::Child, "b");
    tree.add(&b, Relation::Child, "c");
    tree.add(&root, Relation::Child, "d");
    tree.add(&other, Relation::Child, "e");
    EXPECT_EQ(walked(root), "0a 1b 2c 0d ");
    EXPECT_EQ(walked(a), "0b 1c ");
    EXPECT_EQ(walked(other), "0e ");
    EXPECT_EQ(walked(*other.child()), "");
}

TEST(NodeWalk, GoesAsDeepAsATreeMayBe) {
    NodeTree tree;
    Node* node = &tree.add(nullptr, Relation::Last, "root");
    for (int level = 0; level < 100'000; ++level)
        node = &tree.add(node, Relation::Child, "L");
    std::size_t deepest = 0;
    for (NodeWalk walk(*tree.firstRoot()); walk.node() != nullptr; walk.next())
        deepest = walk.depth();
    EXPECT_EQ(deepest, 99'999U);
}

} // namespace
} // namespace zb
