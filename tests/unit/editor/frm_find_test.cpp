#include "editor/frm_find.h"

#include "controls/desktop.h"
#include "controls/user_hands.h"
#include "unit/editor/box_screen.h"
#include "unit/editor/find_tree.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace zb {
namespace {

class FindWindow : public testing::Test {
protected:
    FindWindow() {
        fill(*tree);
        find.showFind();
    }

    void type(const std::string& text) {
        for (const char character : text)
            EXPECT_EQ(hands.key(find.txtFindWhat, *keyOfCharacter(character)), "");
    }
    void enter() { EXPECT_EQ(hands.key(find.txtFindWhat, {kKeyEnter, 0}), ""); }
    void click(Control& control) { EXPECT_EQ(hands.click(Target::whole(control)), ""); }
    int selected() const { return tree->selected() == nullptr ? 0 : tree->selected()->index(); }
    void select(int index) { tree->select(tree->at(index)); }

    BoxScreen screen;
    Desktop desktop{screen};
    std::unique_ptr<NodeTree> tree = std::make_unique<NodeTree>();
    frmFind find{desktop, [this]() -> NodeTree& { return *tree; }};
    UserHands hands{desktop};
};

TEST_F(FindWindow, ComesUpFresh) {
    EXPECT_EQ(find.caption(), "Find");
    EXPECT_TRUE(find.visible());
    EXPECT_EQ(desktop.modalWindow(), nullptr);
    EXPECT_TRUE(find.txtFindWhat.focused());
    EXPECT_EQ(find.lblFindWhat.text(), "What : ");
    EXPECT_EQ(find.chkCaps.caption(), "Case Sensitive");
    EXPECT_EQ(find.fraFindDirection.caption(), "Direction");
    EXPECT_EQ(find.optUp.caption(), "Up");
    EXPECT_EQ(find.optDown.caption(), "Down");
    EXPECT_EQ(find.optAll.caption(), "All");
    EXPECT_EQ(find.cmdFindNext.caption(), "&FindNext");
    EXPECT_EQ(find.cmdCancel.caption(), "&Cancel");
    EXPECT_FALSE(find.cmdFindNext.enabled());
    EXPECT_TRUE(find.optAll.on());
    EXPECT_FALSE(find.chkCaps.checked());
}

TEST_F(FindWindow, OffersTheButtonForATextThatIsNotBlank) {
    type(" ");
    EXPECT_FALSE(find.cmdFindNext.enabled());
    type("a");
    EXPECT_TRUE(find.cmdFindNext.enabled());
    EXPECT_EQ(hands.paste(find.txtFindWhat, ""), "");
    EXPECT_FALSE(find.cmdFindNext.enabled());
}

TEST_F(FindWindow, SelectsTheHitAndGoesOnFromIt) {
    type("s1f");
    click(find.cmdFindNext);
    EXPECT_EQ(selected(), 3);
    click(find.cmdFindNext);
    EXPECT_EQ(selected(), 10);
    EXPECT_TRUE(screen.boxes.empty());
}

TEST_F(FindWindow, MovesOnByOneNodeAtEnterInTheEmptyField) {
    enter();
    EXPECT_EQ(selected(), 2);
    enter();
    EXPECT_EQ(selected(), 3);
    enter();
    EXPECT_EQ(selected(), 8);
}

TEST_F(FindWindow, ReportsTheEndInABoxOfTheProgram) {
    select(5);
    type("nowhere");
    enter();
    ASSERT_EQ(screen.boxes.size(), 1U);
    EXPECT_EQ(screen.boxes[0].text, "End of file");
    EXPECT_EQ(screen.boxes[0].title, kApplicationTitle);
    EXPECT_EQ(screen.boxes[0].icon, BoxIcon::None);
    EXPECT_EQ(screen.boxes[0].buttons, BoxButtons::OK);
    EXPECT_EQ(selected(), 5);
}

TEST_F(FindWindow, ComparesLettersExactlyOnRequest) {
    type("s1f1");
    click(find.chkCaps);
    click(find.cmdFindNext);
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(screen.boxes.size(), 1U);
}

TEST_F(FindWindow, RepeatsItsLastSearchAfterItWasClosed) {
    select(9);
    type("s1f");
    click(find.optUp);
    enter();
    ASSERT_EQ(selected(), 3);
    click(find.cmdCancel);
    ASSERT_FALSE(find.visible());
    EXPECT_EQ(find.txtFindWhat.text(), "");
    select(9);
    find.findAgain();
    EXPECT_EQ(selected(), 3);
    EXPECT_FALSE(find.visible());
    // While it is visible, it shows what to search for.
    find.showFind();
    type("data");
    find.findAgain();
    EXPECT_EQ(selected(), 9);
}

TEST_F(FindWindow, AsksWhatToLookForWhenThereWasNoSearch) {
    find.closeByFrame();
    find.findAgain();
    EXPECT_TRUE(find.visible());
}

TEST_F(FindWindow, TakesTheChosenDirection) {
    select(9);
    type("s1f");
    click(find.optUp);
    click(find.cmdFindNext);
    EXPECT_EQ(selected(), 3);
    click(find.optDown);
    click(find.cmdFindNext);
    EXPECT_EQ(selected(), 10);
    click(find.cmdFindNext);
    EXPECT_EQ(screen.boxes.size(), 1U);
}

TEST_F(FindWindow, GoesRoundToTheNodeWhereTheTextWasTyped) {
    select(9);
    type("you"); // the origin is 9
    enter();     // 10 to 11, then 1 to 8
    EXPECT_EQ(selected(), 2);
    enter(); // from 3 on, before the origin: to the end
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(screen.boxes.size(), 1U);
}

TEST_F(FindWindow, StartsFromTheFirstPositionBeforeAnyText) {
    select(4);
    enter(); // 7 is after the origin 1
    EXPECT_EQ(selected(), 7);
    select(10);
    type("first");
    EXPECT_EQ(hands.paste(find.txtFindWhat, "limit"), "");
    enter(); // wraps to 1, before the origin 10
    EXPECT_EQ(selected(), 6);
}

TEST_F(FindWindow, TakesANewOriginAtTheEnd) {
    type("you"); // the origin is 1
    select(9);
    enter(); // 10 to 11, and nothing is before the origin
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(screen.boxes.size(), 1U);
    enter(); // the origin is 9 by now
    EXPECT_EQ(selected(), 2);
}

TEST_F(FindWindow, LooksThroughTheTreeOfTheMoment) {
    type("new");
    tree = std::make_unique<NodeTree>();
    enter();
    EXPECT_TRUE(screen.boxes.empty());
    tree->add(nullptr, Relation::Last, "");
    tree->add(nullptr, Relation::Last, "new text");
    enter();
    EXPECT_EQ(selected(), 2);
}

TEST_F(FindWindow, SaysNothingOfARefusedPattern) {
    select(5);
    type("[a");
    enter();
    EXPECT_EQ(selected(), 5);
    EXPECT_TRUE(screen.boxes.empty());
}

TEST_F(FindWindow, LeavesTheErrorMark) {
    tree->at(3)->setBackColor(Color{255, 128, 128});
    type("S1F1");
    enter();
    EXPECT_EQ(selected(), 3);
    EXPECT_TRUE(tree->at(3)->backColor().has_value());
}

TEST_F(FindWindow, EndsItsStateWhenItCloses) {
    const auto change = [this] {
        find.showFind();
        type("abc");
        click(find.chkCaps);
        click(find.optUp);
    };
    const auto expectFresh = [this] {
        EXPECT_FALSE(find.visible());
        find.showFind();
        EXPECT_EQ(find.txtFindWhat.text(), "");
        EXPECT_FALSE(find.chkCaps.checked());
        EXPECT_TRUE(find.optAll.on());
        EXPECT_FALSE(find.cmdFindNext.enabled());
        EXPECT_TRUE(find.txtFindWhat.focused());
    };
    change();
    click(find.cmdCancel);
    expectFresh();
    change();
    EXPECT_EQ(hands.close(find), "");
    expectFresh();
    change();
    EXPECT_EQ(hands.key(find.txtFindWhat, {kKeyEscape, 0}), "");
    expectFresh();
}

TEST_F(FindWindow, KeepsItsTextWhenShownAgain) {
    type("abc");
    find.showFind();
    EXPECT_EQ(find.txtFindWhat.text(), "abc");
}

} // namespace
} // namespace zb
