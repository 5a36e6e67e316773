#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/user_hands.h"
#include "controls/window.h"
#include "unit/controls/silent_screen.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace zb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using MouseButton = UserHands::MouseButton;

struct HandsInParts : ::testing::Test {
    HandsInParts() {
        window.show();
        for (const char* text : {"one", "two", "three", "four"})
            list.add(text);
    }

    Target on(ListRow& row) {
        Target target = Target::whole(list);
        target.row = &row;
        return target;
    }
    Target on(Node& node) {
        Target target = Target::whole(tree);
        target.node = &node;
        return target;
    }
    std::vector<std::string> selected() const {
        std::vector<std::string> texts;
        for (const ListRow* row : list.selectedRows())
            texts.push_back(row->text());
        return texts;
    }
    ListRow& row(std::size_t position) { return *list.shown().at(position); }

    SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmTest"};
    TextField field{window, "txtField"};
    Tree tree{window, "tvwTree"};
    List list{window, "lvwList", nullptr, List::Selection::Many};
    Combo combo{window, "cboCombo"};
    UserHands hands{desktop};
    std::vector<std::string> log;
};

TEST_F(HandsInParts, ArrowKeysPassOverNodesThatAFilterHides) {
    NodeTree& nodes = tree.nodes();
    Node& first = nodes.add(nullptr, Relation::Last, "first");
    nodes.add(&first, Relation::Child, "hidden a");
    Node& child = nodes.add(&first, Relation::Child, "child");
    nodes.add(&first, Relation::Child, "hidden b");
    nodes.add(nullptr, Relation::Last, "hidden c");
    Node& last = nodes.add(nullptr, Relation::Last, "last");
    first.setExpanded(true);
    nodes.select(&first);
    tree.setFilter([](const Node& node) { return !node.text().starts_with("hidden"); });
    std::vector<std::string> reached;
    for (const int key : {kKeyDown, kKeyDown, kKeyDown, kKeyUp, kKeyUp, kKeyRight, kKeyEnd}) {
        hands.key(tree, {key, 0});
        reached.push_back(nodes.selected()->text());
    }
    EXPECT_THAT(reached, ElementsAre("child", "last", "last", "child", "first", "child", "last"));
    EXPECT_EQ(nodes.count(), 6U);
    tree.setFilter({});
    nodes.select(&child);
    hands.key(tree, {kKeyDown, 0});
    EXPECT_EQ(nodes.selected()->text(), "hidden b");
    EXPECT_EQ(last.previous()->text(), "hidden c");
}

TEST_F(HandsInParts, APictureThatIsDraggedIsNotClicked) {
    Pane picture{window, "picTest"};
    std::vector<std::string> heard;
    picture.onPress = [&] { heard.emplace_back("press"); };
    picture.onClick = [&] { heard.emplace_back("click"); };
    picture.onDragData = [&]() -> std::optional<DragData> {
        heard.emplace_back("drag");
        return DragData{"x", &picture};
    };
    hands.click(Target::whole(picture));
    hands.drag(Target::whole(picture), Target::whole(field));
    EXPECT_THAT(heard, ElementsAre("press", "click", "press", "drag"));
}

TEST_F(HandsInParts, PressOnASelectedRowKeepsTheSelectionUntilTheRelease) {
    hands.click(on(row(0)));
    hands.controlClick(on(row(2)));
    hands.mouseDown(on(row(0)), MouseButton::Left);
    EXPECT_THAT(selected(), ElementsAre("one", "three"));
    hands.mouseUp(on(row(0)), MouseButton::Left);
    EXPECT_THAT(selected(), ElementsAre("one"));
}

TEST_F(HandsInParts, AClickOnASelectedRowSelectsItAlone) {
    hands.click(on(row(0)));
    hands.controlClick(on(row(2)));
    hands.click(on(row(2)));
    EXPECT_THAT(selected(), ElementsAre("three"));
}

TEST_F(HandsInParts, ADragOfSeveralRowsKeepsThemSelected) {
    hands.click(on(row(1)));
    hands.controlClick(on(row(3)));
    list.onDragStart = [this] {
        log = selected();
        return DragData{"rows", &list};
    };
    hands.mouseDown(on(row(1)), MouseButton::Left);
    ASSERT_TRUE(hands.beginDrag(on(row(1))));
    EXPECT_THAT(log, ElementsAre("two", "four"));
}

TEST_F(HandsInParts, ShiftAndClickSelectFromTheSelectedRowAndBackAgain) {
    hands.click(on(row(1)));
    hands.extendTo(list, row(3));
    EXPECT_THAT(selected(), ElementsAre("two", "three", "four"));
    hands.extendTo(list, row(0));
    EXPECT_THAT(selected(), ElementsAre("one", "two"));
}

TEST_F(HandsInParts, ANodeIsSelectedAtThePressAndClickedAtTheRelease) {
    Node& node = tree.nodes().add(nullptr, Relation::Last, "node");
    tree.onMouseDown = [this](int button, Node* pressed) {
        log.push_back("down" + std::to_string(button) + " " + tree.nodes().selected()->text() +
                      pressed->text());
    };
    tree.onMouseUp = [this](int, Node*) { log.push_back("up"); };
    tree.onNodeClick = [this](Node&) { log.push_back("click"); };
    hands.mouseDown(on(node), MouseButton::Left);
    EXPECT_THAT(log, ElementsAre("down1 nodenode"));
    hands.mouseUp(on(node), MouseButton::Left);
    EXPECT_THAT(log, ElementsAre("down1 nodenode", "up", "click"));
}

TEST_F(HandsInParts, ANodeThatIsGoneAtTheReleaseIsLetAlone) {
    Node& node = tree.nodes().add(nullptr, Relation::Last, "node");
    tree.onMouseDown = [this](int, Node*) { tree.nodes().clear(); };
    tree.onMouseUp = [this](int, Node*) { log.push_back("up"); };
    hands.mouseDown(on(node), MouseButton::Left);
    hands.mouseUp(on(node), MouseButton::Left);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(HandsInParts, TheEffectOfAKeyComesAtItsDown) {
    field.onKeyDown = [this](KeyEvent) { log.push_back("down " + field.text()); };
    field.onKeyUp = [this](KeyEvent) { log.push_back("up " + field.text()); };
    hands.keyDown(field, {'A', kShiftKey});
    EXPECT_EQ(field.text(), "A");
    hands.keyUp(field, {'A', kShiftKey});
    EXPECT_THAT(log, ElementsAre("down ", "up A"));
}

TEST_F(HandsInParts, InsertedTextReplacesTheSelectionWithoutAKey) {
    field.setText("abcd");
    field.onKeyDown = [this](KeyEvent) { log.push_back("key"); };
    hands.focus(field);
    field.select(1, 3);
    EXPECT_EQ(hands.insert(field, "\xED\x95\x9C"), "");
    EXPECT_EQ(field.text(), "a\xED\x95\x9C"
                            "d");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(HandsInParts, ALockedFieldRefusesInsertedTextInSilence) {
    field.setLocked(true);
    EXPECT_EQ(hands.insert(field, "x"), "");
    EXPECT_EQ(field.text(), "");
}

TEST_F(HandsInParts, AComboTakesARowByItsPosition) {
    combo.add("same");
    combo.add("#1");
    combo.onChoose = [this] { log.push_back(combo.text()); };
    hands.choose(combo, 1);
    EXPECT_THAT(log, ElementsAre("#1"));
}

TEST_F(HandsInParts, ShiftAndArrowsExtendTheSelection) {
    hands.click(on(row(1)));
    hands.key(list, {kKeyDown, kShiftKey});
    hands.key(list, {kKeyDown, kShiftKey});
    EXPECT_THAT(selected(), ElementsAre("two", "three", "four"));
    hands.key(list, {kKeyUp, kShiftKey});
    EXPECT_THAT(selected(), ElementsAre("two", "three"));
    hands.key(list, {kKeyDown, 0});
    EXPECT_THAT(selected(), ElementsAre("four"));
}

TEST_F(HandsInParts, ArrowsShowANodeAsAClickDoesAndKeepTheFocus) {
    Node& first = tree.nodes().add(nullptr, Relation::Last, "first");
    tree.nodes().add(nullptr, Relation::Last, "second");
    Window dialog(desktop, "frmDialog");
    TextField inDialog(dialog, "txtIn");
    dialog.show();
    tree.onNodeClick = [&](Node& node) {
        log.push_back(node.text());
        field.setFocus();
        dialog.show();
    };
    hands.click(on(first));
    EXPECT_TRUE(inDialog.focused());
    hands.focus(tree);
    hands.key(tree, {kKeyDown, 0});
    EXPECT_THAT(log, ElementsAre("first", "second"));
    EXPECT_TRUE(tree.focused());
    EXPECT_EQ(desktop.activeWindow(), &window);
}

} // namespace
} // namespace zb
