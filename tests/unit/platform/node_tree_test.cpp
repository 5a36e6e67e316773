#include "platform/tree/node_tree.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace zb::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Watching final : NodeTreeListener {
    void beforeInsert(Node* /*parent*/, Node* /*previous*/) override { seen.emplace_back("insert"); }
    void beforeRemove(Node& /*node*/) override { seen.emplace_back("remove"); }
    void nodeChanged(Node& node) override { seen.push_back("changed " + node.text()); }
    void nodeExpanded(Node& /*node*/) override { seen.emplace_back("expanded"); }
    void selectionChanged() override { seen.emplace_back("selection"); }
    void allChanged() override { seen.emplace_back("all"); }
    void beforeFill() override { seen.emplace_back("fill"); }
    void afterFill() override { seen.emplace_back("full"); }

    std::vector<std::string> seen;
};

struct TreeOfNodes : testing::Test {
    TreeOfNodes() { tree.setListener(&watching); }

    NodeTree tree;
    Watching watching;
};

TEST_F(TreeOfNodes, AFillingIsReportedAsOneChange) {
    {
        const NodeTree::Filling filling(tree);
        Node& root = tree.add(nullptr, Relation::Last, "root");
        tree.add(&root, Relation::Child, "child").setBold(true);
        {
            const NodeTree::Filling inner(tree);
            tree.remove(tree.add(nullptr, Relation::Last, "gone"));
        }
        root.setExpanded(true);
        tree.setOrdinaryForeColor(Color{1, 2, 3});
        EXPECT_THAT(watching.seen, ElementsAre("fill"));
    }
    EXPECT_THAT(watching.seen, ElementsAre("fill", "full"));
    tree.at(1)->setText("after");
    EXPECT_EQ(watching.seen.back(), "changed after");
}

TEST_F(TreeOfNodes, ASelectionThatAFillingChangedIsReportedAfterIt) {
    {
        const NodeTree::Filling filling(tree);
        tree.select(&tree.add(nullptr, Relation::Last, "root"));
    }
    EXPECT_THAT(watching.seen, ElementsAre("fill", "full", "selection"));
}

TEST_F(TreeOfNodes, AClearedTreeForgetsKeysAndSelection) {
    Node& root = tree.add(nullptr, Relation::Last, "root");
    tree.setKey(tree.add(&root, Relation::Child, "child"), "KEY");
    tree.select(&root);
    watching.seen.clear();
    tree.clear();
    EXPECT_THAT(watching.seen, ElementsAre("fill", "full", "selection"));
    EXPECT_TRUE(tree.empty());
    EXPECT_EQ(tree.find("KEY"), nullptr);
    EXPECT_EQ(tree.firstRoot(), nullptr);
    EXPECT_EQ(tree.selected(), nullptr);
    watching.seen.clear();
    tree.clear();
    EXPECT_THAT(watching.seen, IsEmpty());
}

} // namespace
} // namespace zb::test
