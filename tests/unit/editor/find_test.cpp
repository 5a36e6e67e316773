#include "controls/desktop.h"
#include "controls/user_hands.h"
#include "editor/frm_find.h"
#include "messages/find_scan.h"
#include "platform/tree/node_tree.h"
#include "unit/editor/box_screen.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace zb {
namespace {

using testing::Values;

/// Two messages. The numbers are the flat positions; 11 came last and stands first among its siblings.
///    1 ""
///    2 "Are you there"
///    3 "S1F1: S1 F1 W H->E"
///      4 "L 2"
///       11 "U2 1 first 0"
///        5 "A 3 name 'AXB'"
///        6 "U1 1 limit 7"
///      7 "B 1 ack 0"
///    8 ""
///    9 "on line data"
///   10 "S1F2: S1 F2 H<-E"
void fill(NodeTree& tree) {
    tree.add(nullptr, Relation::Last, "");
    tree.add(nullptr, Relation::Last, "Are you there");
    Node& message = tree.add(nullptr, Relation::Last, "S1F1: S1 F1 W H->E");
    Node& list = tree.add(&message, Relation::Child, "L 2");
    Node& name = tree.add(&list, Relation::Child, "A 3 name 'AXB'");
    tree.add(&list, Relation::Child, "U1 1 limit 7");
    tree.add(&message, Relation::Child, "B 1 ack 0");
    tree.add(nullptr, Relation::Last, "");
    tree.add(nullptr, Relation::Last, "on line data");
    tree.add(nullptr, Relation::Last, "S1F2: S1 F2 H<-E");
    tree.add(&name, Relation::Previous, "U2 1 first 0");
}

constexpr int kEnd = -1;    // "End of file"
constexpr int kSilent = -2; // nothing happens

struct FindRow {
    FindDirection direction;
    int selected;
    int origin;
    std::string what;
    int outcome; ///< position of the hit, kEnd or kSilent
};

std::ostream& operator<<(std::ostream& out, const FindRow& row) {
    return out << "direction " << static_cast<int>(row.direction) << " from " << row.selected << ", origin "
               << row.origin << ", <" << row.what << '>';
}

int outcomeOf(const NodeTree& tree, const FindRequest& request) {
    const FindResult result = findNext(tree, request);
    switch (result.outcome) {
    case FindOutcome::Found:
        return result.node->index();
    case FindOutcome::EndOfFile:
        return kEnd;
    default:
        return kSilent;
    }
}

class FindScan : public testing::TestWithParam<FindRow> {};

TEST_P(FindScan, GoesItsWay) {
    NodeTree tree;
    fill(tree);
    tree.select(tree.at(GetParam().selected));
    const FindRequest request{GetParam().what, FindCase::Ignored, GetParam().direction, GetParam().origin};
    EXPECT_EQ(outcomeOf(tree, request), GetParam().outcome);
    EXPECT_EQ(tree.selected(), tree.at(GetParam().selected));
}

constexpr FindDirection kUp = FindDirection::Up;
constexpr FindDirection kDown = FindDirection::Down;
constexpr FindDirection kAll = FindDirection::All;

// An empty text matches every node, so these show where the first step leads.
INSTANTIATE_TEST_SUITE_P(FirstStepUp, FindScan,
                         Values(FindRow{kUp, 9, 1, "", 8}, FindRow{kUp, 7, 1, "", 4},
                                FindRow{kUp, 5, 1, "", 11}, FindRow{kUp, 11, 1, "", 4},
                                FindRow{kUp, 4, 1, "", 3}, FindRow{kUp, 1, 1, "", kEnd},
                                FindRow{kUp, 0, 1, "", kEnd}));

INSTANTIATE_TEST_SUITE_P(FirstStepDown, FindScan,
                         Values(FindRow{kDown, 1, 1, "", 2}, FindRow{kDown, 0, 1, "", 2},
                                FindRow{kDown, 3, 1, "", 8}, FindRow{kDown, 4, 1, "", 7},
                                FindRow{kDown, 11, 1, "", 5}, FindRow{kDown, 6, 1, "", 7},
                                FindRow{kDown, 7, 1, "", 8}, FindRow{kDown, 10, 1, "", kEnd}));

INSTANTIATE_TEST_SUITE_P(FirstStepAll, FindScan,
                         Values(FindRow{kAll, 1, 1, "", 2}, FindRow{kAll, 3, 1, "", 8},
                                FindRow{kAll, 6, 1, "", 7}, FindRow{kAll, 10, 1, "", 1}));

INSTANTIATE_TEST_SUITE_P(ScanUp, FindScan,
                         Values(FindRow{kUp, 10, 1, "name", 5}, FindRow{kUp, 10, 1, "S1F1", 3},
                                FindRow{kUp, 7, 1, "name", kEnd}, FindRow{kUp, 10, 1, "S1F2", kEnd},
                                FindRow{kUp, 10, 1, "first", kEnd}, FindRow{kUp, 6, 1, "first", kEnd},
                                FindRow{kUp, 5, 1, "first", 11}, FindRow{kUp, 3, 1, "you", 2}));

INSTANTIATE_TEST_SUITE_P(ScanDown, FindScan,
                         Values(FindRow{kDown, 1, 1, "name", 5}, FindRow{kDown, 1, 1, "S1F2", 10},
                                FindRow{kDown, 3, 1, "name", kEnd}, FindRow{kDown, 4, 1, "limit", kEnd},
                                FindRow{kDown, 3, 1, "first", 11}, FindRow{kDown, 9, 1, "you", kEnd}));

// At or before the origin the search runs on through it; behind it, it goes round and ends before it.
INSTANTIATE_TEST_SUITE_P(ScanAll, FindScan,
                         Values(FindRow{kAll, 1, 5, "S1F2", 10}, FindRow{kAll, 4, 7, "first", 11},
                                FindRow{kAll, 4, 7, "you", kEnd}, FindRow{kAll, 4, 6, "you", 2},
                                FindRow{kAll, 9, 1, "you", kEnd}, FindRow{kAll, 9, 2, "you", kEnd},
                                FindRow{kAll, 9, 3, "you", 2}, FindRow{kAll, 9, 3, "S1F1", kEnd},
                                FindRow{kAll, 10, 1, "you", 2}, FindRow{kAll, 10, 1, "nowhere", kEnd},
                                FindRow{kAll, 3, 99, "you", kEnd}, FindRow{kAll, 3, 1, "nowhere", kEnd}));

TEST(FindScanAll, EndsWhereTheClimbReachesARootWithoutNext) {
    NodeTree tree;
    Node& message = tree.add(nullptr, Relation::Last, "M: S1 F1 H->E");
    tree.select(&tree.add(&message, Relation::Child, "L 0"));
    EXPECT_EQ(outcomeOf(tree, {"", FindCase::Exact, kAll, 1}), kEnd);
    tree.select(&message);
    EXPECT_EQ(outcomeOf(tree, {"", FindCase::Exact, kAll, 1}), 1);
}

TEST(FindScanOfAnEmptyTree, DoesNothing) {
    const NodeTree tree;
    for (const FindDirection direction : {kUp, kDown, kAll})
        EXPECT_EQ(outcomeOf(tree, {"x", FindCase::Ignored, direction, 1}), kSilent);
}

TEST(FindScanOfARefusedPattern, EndsSilentlyOnceItHasTakenItsFirstStep) {
    NodeTree tree;
    fill(tree);
    for (const FindDirection direction : {kUp, kDown, kAll}) {
        tree.select(tree.at(5));
        EXPECT_EQ(outcomeOf(tree, {"[a", FindCase::Ignored, direction, 1}), kSilent);
        EXPECT_EQ(outcomeOf(tree, {"[z-a]", FindCase::Ignored, direction, 1}), kSilent);
    }
    tree.select(tree.at(1));
    EXPECT_EQ(outcomeOf(tree, {"[a", FindCase::Ignored, kUp, 1}), kEnd);
}

struct MatchRow {
    std::string text;
    std::string what;
    bool exact;
    bool ignored;
};

std::ostream& operator<<(std::ostream& out, const MatchRow& row) {
    return out << '<' << row.what << "> in <" << row.text << '>';
}

class FindMatch : public testing::TestWithParam<MatchRow> {};

TEST_P(FindMatch, IsAPatternAnywhereInTheText) {
    NodeTree tree;
    tree.select(&tree.add(nullptr, Relation::Last, ""));
    tree.add(nullptr, Relation::Last, GetParam().text);
    EXPECT_EQ(outcomeOf(tree, {GetParam().what, FindCase::Exact, kDown, 1}), GetParam().exact ? 2 : kEnd);
    EXPECT_EQ(outcomeOf(tree, {GetParam().what, FindCase::Ignored, kDown, 1}), GetParam().ignored ? 2 : kEnd);
}

INSTANTIATE_TEST_SUITE_P(Rows, FindMatch,
                         Values(MatchRow{"S1F1: S1 F1 H->E", "S1F1", true, true},
                                MatchRow{"S1F1: S1 F1 H->E", "s1f1", false, true},
                                MatchRow{"a 3 axb", "AXB", false, true},
                                MatchRow{"A 3 'AXB'", "A?B", true, true},
                                MatchRow{"A 3 'AB'", "A?B", false, false},
                                MatchRow{"abcde", "b*d", true, true}, MatchRow{"abcde", "d*b", false, false},
                                MatchRow{"S6F11", "F##", true, true}, MatchRow{"S6F1", "F##", false, false},
                                MatchRow{"xE", "[A-F]", true, true}, MatchRow{"xe", "[A-F]", false, true},
                                MatchRow{"00", "[!0]", false, false}, MatchRow{"01", "[!0]", true, true},
                                MatchRow{"2*3", "2[*]3", true, true}, MatchRow{"2x3", "2[*]3", false, false},
                                MatchRow{"a[1]", "a[[]1", true, true}, MatchRow{"ab", " ", false, false},
                                MatchRow{"a b", " ", true, true}, MatchRow{"a b", "a b ", false, false},
                                MatchRow{"\xC3\x84pfel", "\xC3\xA4PFEL", false, true}));

TEST(FindMatchCost, IsNoExponentOfTheRunsInThePattern) {
    NodeTree tree;
    tree.select(&tree.add(nullptr, Relation::Last, ""));
    tree.add(nullptr, Relation::Last, std::string(2000, 'a'));
    std::string what;
    for (int run = 0; run < 200; ++run)
        what += "a*";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(outcomeOf(tree, {what + "b", FindCase::Ignored, kDown, 1}), kEnd);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

// The window

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

TEST_F(FindWindow, TellsTheEndInABoxOfTheProgram) {
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
    // While it stands, it says what to look for.
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
    enter(); // 7 lies behind the origin 1
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
    enter(); // 10 to 11, and nothing stands before the origin
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
