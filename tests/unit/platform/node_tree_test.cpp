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

/// Keeps what was removed, as an undo does.
struct Keeping final : NodeTreeRecorder {
    void beforeChange(Node& /*node*/, NodePart /*part*/) override {}
    void afterAdd(Node& /*node*/) override {}
    void afterRemove(NodeBranch branch) override { removed.push_back(std::move(branch)); }
    void beforeRecolor(OptionalColor /*ordinary*/) override {}
    void afterReplace() override {}

    std::vector<NodeBranch> removed;
};

std::vector<std::string> flat(const NodeTree& tree) {
    std::vector<std::string> texts;
    for (int index = 1; const Node* node = tree.at(index); ++index) {
        EXPECT_EQ(node->index(), index);
        texts.push_back(node->text());
    }
    return texts;
}

TEST_F(TreeOfNodes, PositionsCloseUpAfterARemovalAndOpenForAReturn) {
    Keeping keeping;
    tree.setRecorder(&keeping);
    Node& first = tree.add(nullptr, Relation::Last, "first");
    Node& second = tree.add(nullptr, Relation::Last, "second");
    tree.add(&first, Relation::Child, "below the first");
    tree.add(nullptr, Relation::First, "third");
    tree.remove(first);
    EXPECT_THAT(flat(tree), ElementsAre("second", "third"));
    EXPECT_EQ(second.index(), 1);
    tree.remove(second);
    tree.add(nullptr, Relation::Last, "fourth");
    EXPECT_THAT(flat(tree), ElementsAre("third", "fourth"));
    tree.remove(*tree.at(2));
    for (int left = 2; left > 0; --left)
        tree.attach(std::move(keeping.removed[static_cast<std::size_t>(left) - 1]));
    EXPECT_THAT(flat(tree), ElementsAre("first", "second", "below the first", "third"));
}

TEST_F(TreeOfNodes, NodesReturnToATreeThatWasEmptiedAndFilledMeanwhile) {
    Keeping keeping;
    tree.setRecorder(&keeping);
    tree.remove(tree.add(nullptr, Relation::Last, "gone"));
    tree.add(nullptr, Relation::Last, "a");
    tree.add(nullptr, Relation::Last, "b");
    tree.clear();
    Node& later = tree.add(nullptr, Relation::Last, "later");
    tree.add(&later, Relation::Child, "below");
    tree.remove(later);
    EXPECT_TRUE(tree.empty());
    tree.attach(std::move(keeping.removed[1]));
    EXPECT_THAT(flat(tree), ElementsAre("a", "b"));
    keeping.removed[1] = tree.detachAll();
    tree.attach(std::move(keeping.removed[2]));
    EXPECT_THAT(flat(tree), ElementsAre("later", "below"));
}

} // namespace
} // namespace zb::test
