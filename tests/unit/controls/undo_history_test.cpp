#include "controls/desktop.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/tree_journal.h"
#include "controls/user_hands.h"
#include "controls/window.h"
#include "support/silent_screen.h"

#include <gtest/gtest.h>

#include <string>

namespace zb {
namespace {

struct TreeWindow : Window {
    explicit TreeWindow(Desktop& desktop) : Window(desktop, "frmTree") {}
    Tree tree{*this, "tvwNodes"};
    TextField name{*this, "txtName"};
};

struct UndoSteps : testing::Test {
    UndoSteps() {
        history.add(journal);
        history.clear();
        desktop.steps().add(history);
        desktop.steps().historyOf = [this](const Window&) { return &history; };
        window.show();
    }

    NodeTree& nodes() { return window.tree.nodes(); }
    Node& add(const std::string& text) {
        Node& node = nodes().add(nullptr, Relation::Last, text);
        nodes().setKey(node, text);
        history.closeStep("Add " + text);
        return node;
    }
    std::string texts() {
        std::string all;
        for (int index = 1; const Node* node = nodes().at(index); ++index)
            all += node->text() + std::to_string(node->index()) + " ";
        return all;
    }

    test::SilentScreen screen;
    Desktop desktop{screen};
    TreeWindow window{desktop};
    TreeJournal journal{window.tree};
    UndoHistory history;
    UserHands hands{desktop};
};

TEST_F(UndoSteps, ARemovedSubtreeReturnsToItsFlatPositions) {
    Node& a = add("a");
    Node& b = add("b");
    Node& inner = nodes().add(&a, Relation::Child, "inner");
    nodes().setKey(inner, "inner");
    add("c");
    nodes().select(&a);
    history.closeStep("");
    nodes().remove(a);
    history.closeStep("Delete a");
    EXPECT_EQ(texts(), "b1 c2 ");
    EXPECT_EQ(nodes().find("INNER"), nullptr);
    history.undo();
    EXPECT_EQ(texts(), "a1 b2 inner3 c4 ");
    EXPECT_EQ(nodes().find("INNER"), &inner);
    EXPECT_EQ(nodes().firstRoot(), &a);
    EXPECT_EQ(a.next(), &b);
    EXPECT_EQ(b.previous(), &a);
    EXPECT_EQ(a.child(), &inner);
    history.redo();
    EXPECT_EQ(texts(), "b1 c2 ");
    EXPECT_EQ(b.previous(), nullptr);
}

TEST_F(UndoSteps, AStepCostsWhatItChanged) {
    for (int i = 0; i < 2000; ++i)
        nodes().add(nullptr, Relation::Last, "message " + std::to_string(i));
    history.clear();
    const std::size_t before = history.bytes();
    nodes().remove(*nodes().at(1000));
    history.closeStep("Delete one");
    EXPECT_LT(history.bytes() - before, 2000U);
}

TEST_F(UndoSteps, LooksAloneAreNoStepAndGoWithTheLastOne) {
    Node& a = add("a");
    Node& b = add("b");
    a.setExpanded(true);
    history.closeStep("Look");
    EXPECT_EQ(history.count(), 2U);
    b.setText("b!");
    history.closeStep("Change b");
    history.undo();
    EXPECT_TRUE(a.expanded());
    EXPECT_EQ(b.text(), "b");
    history.undo();
    EXPECT_FALSE(a.expanded());
    history.redo();
    EXPECT_TRUE(a.expanded());
}

TEST_F(UndoSteps, AValueThatIsAsBeforeIsNoChange) {
    Node& a = add("a");
    a.setText("other");
    a.setText("a");
    history.closeStep("Nothing");
    EXPECT_EQ(history.undoName(), "Add a");
}

TEST_F(UndoSteps, AnotherStepDropsWhatWasUndone) {
    add("a");
    add("b");
    history.undo();
    EXPECT_EQ(history.redoName(), "Add b");
    add("c");
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(texts(), "a1 c2 ");
}

TEST_F(UndoSteps, TheOldestGoFirst) {
    UndoHistory few(3, 1U << 20U);
    TreeJournal other(window.tree);
    few.add(other);
    few.clear();
    for (const char* name : {"1", "2", "3", "4", "5"}) {
        nodes().add(nullptr, Relation::Last, name);
        few.closeStep(name);
    }
    EXPECT_EQ(few.count(), 3U);
    for (int i = 0; i < 3; ++i)
        few.undo();
    EXPECT_FALSE(few.canUndo());
    EXPECT_EQ(texts(), "11 22 ");
}

TEST_F(UndoSteps, MemoryIsLimited) {
    UndoHistory small(1000, 20'000);
    TreeJournal other(window.tree);
    small.add(other);
    small.clear();
    for (int i = 0; i < 20; ++i) {
        Node& node = nodes().add(nullptr, Relation::Last, std::string(5000, 'x'));
        small.closeStep("Add");
        nodes().remove(node);
        small.closeStep("Delete");
        EXPECT_LE(small.bytes(), 20'000U);
    }
    EXPECT_GT(small.count(), 0U);
}

TEST_F(UndoSteps, TheSavedStateIsFoundAgain) {
    Node& a = add("a");
    EXPECT_FALSE(history.isSaved());
    history.markSaved();
    EXPECT_TRUE(history.isSaved());
    a.setBold(true);
    history.closeStep("Look");
    EXPECT_TRUE(history.isSaved());
    add("b");
    EXPECT_FALSE(history.isSaved());
    history.undo();
    EXPECT_TRUE(history.isSaved());
    history.undo();
    EXPECT_FALSE(history.isSaved());
    add("c");
    history.undo();
    EXPECT_FALSE(history.isSaved()) << "the saved state was dropped";
}

TEST_F(UndoSteps, TypingAtOnePlaceIsOneStep) {
    Node& a = add("a");
    const TypingPlace place{&window.name, &a};
    a.setText("ab");
    history.closeStep("Type in a", place);
    a.setText("abc");
    history.closeStep("Type in ab", place);
    EXPECT_EQ(history.undoName(), "Type in a");
    history.undo();
    EXPECT_EQ(a.text(), "a");
    history.redo();
    EXPECT_EQ(a.text(), "abc");
    a.setText("abcd");
    history.closeStep("Type in abc", place);
    EXPECT_EQ(history.count(), 3U) << "an undo ends the typing";
    history.markSaved();
    a.setText("abcde");
    history.closeStep("Type in abcd", place);
    EXPECT_EQ(history.count(), 4U) << "a save ends the typing";
}

TEST_F(UndoSteps, AnActionIsOneStepNamedByItsCommand) {
    window.tree.onNodeClick = [this](Node&) {
        desktop.steps().name("Click");
        nodes().add(nullptr, Relation::Last, "one");
        desktop.steps().name("too late");
        nodes().add(nullptr, Relation::Last, "two");
    };
    Target target = Target::whole(window.tree);
    target.node = &add("a");
    EXPECT_EQ(hands.click(target), "");
    EXPECT_EQ(history.count(), 2U);
    EXPECT_EQ(history.undoName(), "Click");
    EXPECT_EQ(hands.key(window.tree, {'Z', kControlKey}), "");
    EXPECT_EQ(texts(), "a1 ");
    EXPECT_EQ(hands.key(window.tree, {'Z', kControlKey | kShiftKey}), "");
    EXPECT_EQ(texts(), "a1 one2 two3 ");
    EXPECT_EQ(hands.key(window.tree, {'Z', kControlKey}), "");
    EXPECT_EQ(hands.key(window.tree, {'Y', kControlKey}), "");
    EXPECT_EQ(texts(), "a1 one2 two3 ");
}

TEST_F(UndoSteps, TheFilterOfAControlSeesTheKeyAndItsKeyUpGoesNowhere) {
    add("a");
    int down = 0;
    int up = 0;
    window.tree.onKeyDown = [&](KeyEvent) { ++down; };
    window.tree.onKeyUp = [&](KeyEvent) { ++up; };
    EXPECT_EQ(hands.key(window.tree, {'Z', kControlKey}), "");
    EXPECT_EQ(down, 1);
    EXPECT_EQ(up, 0);
    EXPECT_EQ(hands.key(window.tree, {'Z', 0}), "");
    EXPECT_EQ(up, 1);
}

TEST_F(UndoSteps, AFieldOfItsOwnTakesBackWhatWasTyped) {
    add("a");
    EXPECT_EQ(hands.type(window.name, "xyz"), "");
    EXPECT_EQ(hands.key(window.name, {'Z', kControlKey}), "");
    EXPECT_EQ(window.name.text(), "");
    EXPECT_EQ(hands.key(window.name, {'Y', kControlKey}), "");
    EXPECT_EQ(window.name.text(), "xyz");
    EXPECT_EQ(texts(), "a1 ");
    window.name.setWritesThrough();
    EXPECT_EQ(hands.key(window.name, {'Z', kControlKey}), "");
    EXPECT_EQ(texts(), "");
}

TEST_F(UndoSteps, APartOfAnActionIsAStepOfItsOwn) {
    Node& a = add("a");
    window.tree.onNodeClick = [&](Node&) {
        desktop.steps().name("Click");
        a.setText("first");
        {
            const UserSteps::Part part(desktop.steps(), "Part");
            a.setText("second");
        }
        a.setText("third");
    };
    Target target = Target::whole(window.tree);
    target.node = &a;
    EXPECT_EQ(hands.click(target), "");
    EXPECT_EQ(history.undoName(), "Click");
    history.undo();
    EXPECT_EQ(a.text(), "second");
    EXPECT_EQ(history.undoName(), "Part");
    history.undo();
    EXPECT_EQ(a.text(), "first");
    history.undo();
    EXPECT_EQ(a.text(), "a");
}

TEST_F(UndoSteps, AReplacedTreeIsNotRecordedUntilTheHistoryBeginsAnew) {
    journal.onReplaced = [this] { history.stop(); };
    add("a");
    window.tree.replaceNodes();
    EXPECT_FALSE(history.canUndo());
    nodes().add(nullptr, Relation::Last, "opened");
    history.closeStep("Open");
    EXPECT_FALSE(history.canUndo());
    history.clear();
    add("b");
    history.undo();
    EXPECT_EQ(texts(), "opened1 ");
}

TEST_F(UndoSteps, AClearedTreeReturnsAsAWhole) {
    Node& a = add("a");
    add("b");
    nodes().clear();
    history.closeStep("Clear");
    EXPECT_EQ(texts(), "");
    history.undo();
    EXPECT_EQ(texts(), "a1 b2 ");
    EXPECT_EQ(nodes().find("a"), &a);
    EXPECT_EQ(nodes().lastRoot()->text(), "b");
    history.redo();
    EXPECT_EQ(texts(), "");
    history.undo();
    EXPECT_EQ(texts(), "a1 b2 ");
}

} // namespace
} // namespace zb
