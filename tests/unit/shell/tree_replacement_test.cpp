#include "shell/tree_replacement.h"

#include "platform/tree/node_tree.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace zb {
namespace {

/// Texts, Keys and levels of all nodes, in the order of the tree.
std::string shown(const NodeTree& tree) {
    std::string all;
    const Node* node = tree.firstRoot();
    while (node != nullptr) {
        all += std::string(static_cast<std::size_t>(node->level()), ' ') + node->text() + "[" +
               std::string(node->key()) + "]" + (node->bold() ? "b" : "") + "\n";
        if (node->child() != nullptr) {
            node = node->child();
            continue;
        }
        while (node != nullptr && node->next() == nullptr)
            node = node->parent();
        node = node == nullptr ? nullptr : node->next();
    }
    return all;
}

class RandomTrees {
public:
    explicit RandomTrees(unsigned seed) : random_(seed) {}

    void fill(NodeTree& tree) {
        for (std::size_t count = pick(12); count > 0; --count) {
            tree.add(nullptr, Relation::Last, "");
            tree.add(nullptr, Relation::Last, "description " + std::to_string(pick(4))).setBold(true);
            const std::string name = "M" + std::to_string(pick(20));
            Node& message = tree.add(nullptr, Relation::Last, name + ": " + std::to_string(pick(2)));
            tree.setKey(message, name);
            Node* above = &message;
            for (std::size_t items = pick(10); items > 0; --items) {
                Node& item = tree.add(above, Relation::Child, "item " + std::to_string(pick(3)));
                if (pick(3) == 0)
                    above = &item;
            }
        }
    }

private:
    std::size_t pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    std::mt19937 random_;
};

TEST(TreeReplacement, MakesAnyTreeAnyOther) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomTrees random(seed);
        NodeTree tree;
        NodeTree wanted;
        random.fill(tree);
        random.fill(wanted);
        replaceNodes(tree, wanted);
        ASSERT_EQ(shown(tree), shown(wanted)) << "seed " << seed;
        for (int index = 1; const Node* node = tree.at(index); ++index)
            ASSERT_EQ(node->index(), index);
    }
}

TEST(TreeReplacement, KeepsNodesThatAreInBoth) {
    NodeTree tree;
    NodeTree wanted;
    Node* first = nullptr;
    for (NodeTree* filled : {&tree, &wanted}) {
        Node& root = filled->add(nullptr, Relation::Last, "root");
        filled->setKey(root, "root");
        Node& kept = filled->add(&root, Relation::Child, "kept");
        if (filled == &tree)
            first = &kept;
    }
    wanted.add(wanted.find("root"), Relation::Child, "added");
    wanted.add(wanted.find("root")->child(), Relation::Previous, "before");
    first->setBackColor(Color{1, 2, 3});
    tree.select(first);
    replaceNodes(tree, wanted);
    EXPECT_EQ(shown(tree), "root[root]\n before[]\n kept[]\n added[]\n");
    EXPECT_EQ(tree.selected(), first);
    EXPECT_TRUE(first->backColor().has_value());
}

TEST(TreeReplacement, AKeyMayGoToAnotherNode) {
    NodeTree tree;
    NodeTree wanted;
    tree.setKey(tree.add(nullptr, Relation::Last, "A"), "Name");
    tree.add(nullptr, Relation::Last, "B");
    wanted.add(nullptr, Relation::Last, "A");
    wanted.setKey(wanted.add(nullptr, Relation::Last, "B"), "NAME");
    replaceNodes(tree, wanted);
    EXPECT_EQ(shown(tree), "A[]\nB[NAME]\n");
    EXPECT_EQ(tree.find("name"), tree.lastRoot());
}

TEST(TreeReplacement, TakesVeryDeepTrees) {
    NodeTree tree;
    NodeTree wanted;
    for (NodeTree* filled : {&tree, &wanted}) {
        Node* above = nullptr;
        for (int level = 0; level < 20'000; ++level)
            above = &filled->add(above, Relation::Child, filled == &tree ? "old" : "new");
    }
    replaceNodes(tree, wanted);
    EXPECT_EQ(tree.count(), 20'000U);
    EXPECT_EQ(tree.at(20'000)->text(), "new");
}

TEST(TreeReplacement, TakesTreesWithoutAnythingInCommon) {
    NodeTree tree;
    NodeTree wanted;
    for (int number = 0; number < 5'000; ++number) {
        tree.setKey(tree.add(nullptr, Relation::Last, "a"), "a" + std::to_string(number));
        wanted.setKey(wanted.add(nullptr, Relation::Last, "b"), "b" + std::to_string(number));
    }
    replaceNodes(tree, wanted);
    EXPECT_EQ(shown(tree), shown(wanted));
}

} // namespace
} // namespace zb
