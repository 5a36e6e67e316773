#include "controls/desktop.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "desktop/models/node_tree_model.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/pictures/pictures.h"
#include "support/silent_screen.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QScrollBar>

#include <memory>
#include <random>

namespace zb::test {
namespace {

struct TreeView : ::testing::Test {
    TreeView() {
        view.resize(300, 200);
        view.setNodes(model);
    }

    Node& add(Node* parent, const std::string& text) {
        Node& node = parent == nullptr ? store.nodes().add(nullptr, Relation::Last, text)
                                       : store.nodes().add(parent, Relation::Child, text);
        node.setExpanded(true);
        return node;
    }
    QRect rectOf(const Node& node) const { return view.visualRect(model.indexOf(&node)); }

    SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmTest"};
    Tree store{window, "tvwTest"};
    Pictures pictures;
    NodeTreeModel model{store, pictures, nullptr};
    NodeTreeView view;
};

TEST_F(TreeView, NodesThatTheFilterHidesTakeNoRow) {
    Node& root = add(nullptr, "root");
    Node& hidden = add(&root, "hidden");
    add(&hidden, "below hidden");
    Node& shown = add(&root, "shown");
    Node& last = add(nullptr, "last");
    const int row = rectOf(last).top() - rectOf(shown).top();
    EXPECT_EQ(rectOf(shown).top(), 3 * row);
    store.setFilter(
        [this](const Node& node) { return node.text() != "hidden" || store.nodes().selected() == &node; });
    view.filterChanged();
    EXPECT_EQ(rectOf(shown).top(), row);
    EXPECT_EQ(rectOf(last).top(), 2 * row);
    EXPECT_FALSE(rectOf(hidden).isValid());
    EXPECT_EQ(view.nodeAt({5, row + 1}), &shown);
    // The selected node is shown.
    store.nodes().select(&hidden);
    EXPECT_EQ(rectOf(shown).top(), 3 * row);
    store.nodes().select(nullptr);
    store.setFilter({});
    view.filterChanged();
    EXPECT_EQ(rectOf(shown).top(), 3 * row);
}

TEST_F(TreeView, TheFirstRowsStayInViewWhenTheSelectionFitsBelowThem) {
    view.resize(300, 30);
    view.show();
    for (int i = 0; i < 100; ++i)
        add(nullptr, "message");
    store.nodes().select(store.nodes().at(4));
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    view.resize(300, 200);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    view.resize(300, 30);
    view.grab();
    store.nodes().select(store.nodes().at(50));
    view.grab();
    const int seen = view.verticalScrollBar()->value();
    view.resize(300, 200);
    EXPECT_EQ(view.verticalScrollBar()->value(), seen) << "what the user has seen does not move";
}

TEST_F(TreeView, TheSelectedNodeStaysInViewWhenRoomIsTaken) {
    view.show();
    for (int i = 0; i < 100; ++i)
        add(nullptr, "message");
    Node& selected = *store.nodes().at(8);
    store.nodes().select(&selected);
    view.grab();
    ASSERT_TRUE(view.viewport()->rect().contains(rectOf(selected)));
    view.resize(300, 60);
    EXPECT_TRUE(view.viewport()->rect().contains(rectOf(selected)));
    view.grab();
    view.verticalScrollBar()->setValue(50);
    view.grab();
    view.resize(300, 40);
    EXPECT_EQ(view.verticalScrollBar()->value(), 50) << "the user has scrolled elsewhere";
}

TEST_F(TreeView, ANodeThatIsAddedIsBroughtIntoView) {
    view.show();
    for (int i = 0; i < 100; ++i)
        add(nullptr, "message");
    QCoreApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "many nodes leave the view as it is";
    const Node& pasted = add(nullptr, "pasted");
    add(store.nodes().at(101), "below it");
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(rectOf(pasted)));
    view.verticalScrollBar()->setValue(0);
    store.nodes().at(101)->setExpanded(false);
    const Node& item = add(store.nodes().at(101), "pasted item");
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().intersects(rectOf(item)));
}

TEST_F(TreeView, MessagesThatAreDroppedAreBroughtIntoViewFromTheFirstOne) {
    view.show();
    for (int i = 0; i < 100; ++i)
        add(nullptr, "message");
    QCoreApplication::processEvents();
    const Node& first = add(nullptr, "");
    add(nullptr, "description");
    const Node& last = add(nullptr, "dropped");
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(rectOf(first)));
    EXPECT_TRUE(view.viewport()->rect().contains(rectOf(last)));
    view.verticalScrollBar()->setValue(0);
    const Node& top = add(nullptr, "the first of many");
    for (int i = 0; i < 50; ++i)
        add(nullptr, "dropped");
    QCoreApplication::processEvents();
    EXPECT_EQ(rectOf(top).top(), 0);
}

TEST_F(TreeView, ModelStaysTrueThroughAnyOrderOfChanges) {
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::mt19937 random(7);
    for (int step = 0; step < 2000; ++step) {
        const int count = static_cast<int>(store.nodes().count());
        Node* node =
            count == 0 ? nullptr : store.nodes().at(1 + static_cast<int>(random() % unsigned(count)));
        const auto relation = static_cast<Relation>(random() % 5);
        if (node != nullptr && random() % 4 == 0)
            store.nodes().remove(*node);
        else
            store.nodes().add(node, relation, "node").setExpanded(random() % 2 == 0);
        if (random() % 50 == 0)
            store.replaceNodes();
        if (random() % 50 == 0)
            store.nodes().clear();
        if (random() % 50 == 0) {
            const NodeTree::Filling filling(store.nodes());
            add(&add(nullptr, "root"), "child");
        }
    }
    const auto& roots = model.roots();
    std::size_t row = 0;
    for (Node* root = store.nodes().firstRoot(); root != nullptr; root = root->next())
        ASSERT_EQ(roots.at(row++), root);
    EXPECT_EQ(row, roots.size());
}

TEST_F(TreeView, ATreeThatIsBeingFilledShowsNothingUntilItIsFull) {
    add(nullptr, "before");
    {
        const NodeTree::Filling filling(store.nodes());
        EXPECT_EQ(model.rowCount(), 0);
        add(&add(nullptr, "root"), "child");
        view.grab();
        EXPECT_EQ(view.nodeAt({5, 5}), nullptr);
    }
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(view.nodeAt({5, rectOf(*store.nodes().at(3)).center().y()}), store.nodes().at(3));
}

TEST_F(TreeView, RowsStandBelowEachOtherInTheOrderOfTheTree) {
    Node& first = add(nullptr, "first");
    Node& child = add(&first, "child");
    Node& second = add(nullptr, "second");
    const int height = rectOf(first).height();
    EXPECT_EQ(rectOf(child).top(), rectOf(first).top() + height);
    EXPECT_EQ(rectOf(second).top(), rectOf(child).top() + height);
    EXPECT_EQ(view.nodeAt(rectOf(child).center()), &child);
    EXPECT_EQ(view.nodeAt(view.placeBelowAll()), nullptr);
}

TEST_F(TreeView, AClosedNodeHidesWhatIsBelowIt) {
    Node& first = add(nullptr, "first");
    Node& child = add(&first, "child");
    Node& second = add(nullptr, "second");
    first.setExpanded(false);
    EXPECT_TRUE(rectOf(child).isNull());
    EXPECT_EQ(rectOf(second).top(), rectOf(first).bottom() + 1);
}

TEST_F(TreeView, ASelectedNodeIsInViewAlthoughTheStoreHoldsItClosed) {
    for (int i = 0; i < 100; ++i)
        add(nullptr, "filler");
    Node& closed = add(nullptr, "closed");
    Node& child = add(&closed, "child");
    closed.setExpanded(false);
    store.nodes().select(&child);
    EXPECT_TRUE(view.viewport()->rect().contains(rectOf(child).center()));
    EXPECT_FALSE(closed.expanded());
    view.toggle(closed);
    EXPECT_TRUE(rectOf(child).isNull());
}

TEST_F(TreeView, ATreeOfAnyDepthIsShown) {
    Node* node = &add(nullptr, "root");
    for (int depth = 0; depth < 20000; ++depth)
        node = &add(node, "deep");
    store.nodes().select(node);
    EXPECT_FALSE(rectOf(*node).isNull());
    EXPECT_FALSE(view.grab().isNull());
}

TEST_F(TreeView, AFreshTreeTakesTheOldOnesPlace) {
    add(nullptr, "old");
    store.replaceNodes();
    EXPECT_EQ(view.nodeAt({5, 5}), nullptr);
    Node& fresh = add(nullptr, "fresh");
    EXPECT_EQ(view.nodeAt({5, 5}), &fresh);
}

} // namespace
} // namespace zb::test
