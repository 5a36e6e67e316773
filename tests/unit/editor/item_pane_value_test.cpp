#include "unit/editor/item_pane_fixture.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace zb {
namespace {

using testing::Values;

class ItemPaneValueField : public PaneFixture, public testing::Test {};

constexpr std::string_view kUnsigned = "Insert unsigned integer for initial value.";
constexpr std::string_view kInteger = "Insert integer for initial value.";
constexpr std::string_view kFloat = "Insert floating point for initial value.";
constexpr std::string_view kFloatWord = "Insert floating point for initial vlaue.";
constexpr std::string_view kBinary = "Insert numeric-type for initial value.";
constexpr std::string_view kBinaryRange = "Insert positive integer values between 0 to 255.";

struct ValueRow {
    std::string item;
    std::string entered;
    std::string field;
    std::string itemAfter;
    std::string_view box = {};
};

std::ostream& operator<<(std::ostream& out, const ValueRow& row) {
    return out << row.item << " <- <" << row.entered << '>';
}

class ItemPaneValue : public PaneFixture, public testing::TestWithParam<ValueRow> {
protected:
    void expectRow(const Node& item) {
        EXPECT_EQ(window.txtInit.text(), GetParam().field);
        EXPECT_EQ(item.text(), GetParam().itemAfter);
        expectBox(GetParam().box);
    }
};

class PastedValue : public ItemPaneValue {};

TEST_P(PastedValue, MeetsTheTests) {
    const Node& item = opened(GetParam().item);
    paste(window.txtInit, GetParam().entered);
    expectRow(item);
}

INSTANTIATE_TEST_SUITE_P(Empty, PastedValue,
                         Values(ValueRow{"U2 1 x 5", "", "0", "U2 1 x 0"},
                                ValueRow{"U2 1V x 5", "", "", "U2 1V x"},
                                ValueRow{"U2 0 x 5", "", "", "U2 0 x"},
                                ValueRow{"A 3 x 'abc'", "", "", "A 3 x ''"},
                                ValueRow{"BOOLEAN 1 x True", "", "", "BOOLEAN 1 x"},
                                ValueRow{"F8 2 x 1 2 [K]", "", "0", "F8 2 x 0 [K]"}));

INSTANTIATE_TEST_SUITE_P(Unsigned, PastedValue,
                         Values(ValueRow{"U4 2 x 5 6", "1  2", "1  2", "U4 2 x 5 6"},
                                ValueRow{"U4 2 x 5 6", "1 2", "1 2", "U4 2 x 1 2"},
                                ValueRow{"U1 1 x 5", "300", "0", "U1 1 x 0"},
                                ValueRow{"U1 1 x 5", "-1", "-1", "U1 1 x 5", kUnsigned},
                                ValueRow{"U1 1 x 5", "1.5", "1.5", "U1 1 x 5", kUnsigned},
                                ValueRow{"U1 1 x 5", "ab", "ab", "U1 1 x 5", kUnsigned},
                                ValueRow{"U4 1 5", "007", "7", "U4 1 7"},
                                ValueRow{"U8 1 x 5", "18446744073709551615", "1.84467440737096E+19",
                                         "U8 1 x 1.84467440737096E+19"},
                                ValueRow{"U8 1 x 5", "18446744073709600768", "1.84467440737096E+19",
                                         "U8 1 x 1.84467440737096E+19"},
                                ValueRow{"U8 1 x 5", "18446744073709700000", "0", "U8 1 x 0"}));

INSTANTIATE_TEST_SUITE_P(
    Signed, PastedValue,
    Values(ValueRow{"I1 1 x 5", "-", "-", "I1 1 x 5"}, ValueRow{"I1 1 x 5", "-5", "-5", "I1 1 x -5"},
           ValueRow{"I1 1 x 5", "+6", "6", "I1 1 x 6"}, ValueRow{"I1 1 x 5", "200", "0", "I1 1 x 0"},
           ValueRow{"I1 1 x 5", "1.5", "1.5", "I1 1 x 5", kInteger},
           ValueRow{"I8 1 x 5", "-922337203685478", "-922337203685478", "I8 1 x -922337203685478"},
           ValueRow{"I8 1 x 5", "922337203685478", "0", "I8 1 x 0"}));

INSTANTIATE_TEST_SUITE_P(Floating, PastedValue,
                         Values(ValueRow{"F8 1 x 5", "1e", "1e", "F8 1 x 5"},
                                ValueRow{"F8 1 x 5", "1e5", "100000", "F8 1 x 100000"},
                                ValueRow{"F8 1 x 5", "e5", "e5", "F8 1 x 5", kFloat},
                                ValueRow{"F8 1 x 5", "x", "x", "F8 1 x 5", kFloatWord},
                                ValueRow{"F4 1 x 5", "1e30", "1E+30", "F4 1 x 1E+30"},
                                ValueRow{"F4 1 x 5", "1e39", "0", "F4 1 x 0"},
                                ValueRow{"F8 1 x 5", "1.7976931348623157e308", "1.79769313486232E+308",
                                         "F8 1 x 1.79769313486232E+308"}));

INSTANTIATE_TEST_SUITE_P(Binary, PastedValue,
                         Values(ValueRow{"B 1 x 5", "255", "255", "B 1 x 255"},
                                ValueRow{"B 1 x 5", "300", "300", "B 1 x 5", kBinaryRange},
                                ValueRow{"B 1 x 5", "ab", "ab", "B 1 x 5", kBinary},
                                ValueRow{"B 3 x 5", "1 2 ", "1 2 ", "B 3 x 5"}));

INSTANTIATE_TEST_SUITE_P(Boolean, PastedValue,
                         Values(ValueRow{"BOOLEAN 1 x True", "tr", "tr", "BOOLEAN 1 x tr"},
                                ValueRow{"BOOLEAN 2 x True", "0 FALSE", "0 FALSE", "BOOLEAN 2 x 0 FALSE"},
                                ValueRow{"BOOLEAN 1 x True", "2", "2", "BOOLEAN 1 x True"},
                                ValueRow{"BOOLEAN 1 x True", "yes", "yes", "BOOLEAN 1 x True"}));

INSTANTIATE_TEST_SUITE_P(Quoted, PastedValue,
                         Values(ValueRow{"A 3 x 'abc'", "'", "'", "A 3 x 'abc'",
                                         "You cannot insert \"'\" character"},
                                ValueRow{"J 3 x 'abc'", "it's", "it's", "J 3 x 'it's'"},
                                ValueRow{"X 9V x 'abc'", " a  b ", " a  b ", "X 9V x ' a  b '"}));

class TypedItemValue : public ItemPaneValue {};

TEST_P(TypedItemValue, PassesTheFilterAndMeetsTheTests) {
    const Node& item = opened(GetParam().item);
    type(window.txtInit, GetParam().entered);
    expectRow(item);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TypedItemValue,
    Values(ValueRow{"U1 1 x 5", "30", "30", "U1 1 x 30"}, ValueRow{"U1 1 x 5", "300", "0", "U1 1 x 0"},
           ValueRow{"U1 1 x 5", "-a1.", "1", "U1 1 x 1"}, ValueRow{"U1 2 x 5", "1 2", "1 2", "U1 2 x 1 2"},
           ValueRow{"U1 2 x 5", "1 ", "1 ", "U1 2 x 1"},
           ValueRow{"B 1 x 5", "300", "300", "B 1 x 30", kBinaryRange},
           ValueRow{"I1 1 x 5", "-", "-", "I1 1 x 5"}, ValueRow{"I1 1 x 5", "-5", "-5", "I1 1 x -5"},
           ValueRow{"I1 1 x 5", "+7", "7", "I1 1 x 7"}, ValueRow{"I1 1 x 5", "200", "0", "I1 1 x 0"},
           ValueRow{"I1 1 x 5", "1.5", "15", "I1 1 x 15"}, ValueRow{"F8 1 x 5", "1e", "1e", "F8 1 x 1"},
           ValueRow{"F8 1 x 5", "1e5", "100000", "F8 1 x 100000"},
           ValueRow{"F8 1V x", "e5", "5", "F8 1V x 5"}, ValueRow{"F8 1 x 5", "e", "e", "F8 1 x 5", kFloat},
           ValueRow{"F8 1 x 5", ".5", "0.5", "F8 1 x 0.5"}, ValueRow{"F4 1 x 5", "0x", "0", "F4 1 x 0"},
           ValueRow{"BOOLEAN 1 x True", "tr2", "tr", "BOOLEAN 1 x tr"},
           ValueRow{"A 3 x 'abc'", "it's", "it's", "A 3 x 'it's'"},
           ValueRow{"A 3 x 'abc'", "'a", "'a", "A 3 x ''a'", "You cannot insert \"'\" character"}));

TEST_F(ItemPaneValueField, ValueOfAListStaysOut) {
    const Node& item = opened("L 0 list");
    window.txtInit.setText("5");
    EXPECT_EQ(item.text(), "L 0 list");
    EXPECT_TRUE(screen.boxes.empty());
}

TEST_F(ItemPaneValueField, ValueReachesNoRootNodeAndNoUnselectedOne) {
    Node& item = opened("U2 1 x 5");
    tree().select(&message);
    paste(window.txtInit, "x");
    tree().select(nullptr);
    paste(window.txtInit, "7");
    EXPECT_EQ(item.text(), "U2 1 x 5");
    EXPECT_EQ(message.text(), "S1F1: S1 F1 W H->E");
    EXPECT_TRUE(screen.boxes.empty());
}

TEST_F(ItemPaneValueField, ValuePutsTheCaretAtItsEnd) {
    opened("U2 1 x 5");
    window.txtInit.setFocus();
    paste(window.txtInit, "12");
    key(window.txtInit, {kKeyHome, 0});
    type(window.txtInit, "3");
    EXPECT_EQ(window.txtInit.text(), "312");
    EXPECT_EQ(window.txtInit.caret(), 3U);
}

TEST_F(ItemPaneValueField, CaretOfTextStaysWhereTheUserTypes) {
    opened("A 3 x 'bc'");
    window.txtInit.setFocus();
    key(window.txtInit, {kKeyHome, 0});
    type(window.txtInit, "a");
    EXPECT_EQ(window.txtInit.text(), "abc");
    EXPECT_EQ(window.txtInit.caret(), 1U);
}

TEST_F(ItemPaneValueField, ALockedFieldTakesNoPaste) {
    const Node& item = opened("U2 1 x 5");
    type(window.txtInit, "a");
    EXPECT_TRUE(window.txtInit.locked());
    paste(window.txtInit, "7");
    EXPECT_EQ(item.text(), "U2 1 x 5");
}

struct LeaveRow {
    std::string item;
    std::string entered;
    std::string itemAfter;
};

std::ostream& operator<<(std::ostream& out, const LeaveRow& row) {
    return out << row.item << " <- <" << row.entered << '>';
}

class LeftValue : public PaneFixture, public testing::TestWithParam<LeaveRow> {};

TEST_P(LeftValue, IsFittedToTheCount) {
    const Node& item = opened(GetParam().item);
    paste(window.txtInit, GetParam().entered);
    window.txtItemName.setFocus();
    EXPECT_EQ(item.text(), GetParam().itemAfter);
}

INSTANTIATE_TEST_SUITE_P(Rows, LeftValue,
                         Values(LeaveRow{"U2 3 x 5", "1", "U2 3 x 1 0 0"},
                                LeaveRow{"U2 1 x 5", "1 2", "U2 1 x 1"},
                                LeaveRow{"U2 3V x 5", "1", "U2 3V x 1"},
                                LeaveRow{"BOOLEAN 2 x True", "tr", "BOOLEAN 2 x True False"},
                                LeaveRow{"A 3 x 'abc'", "abcdef", "A 3 x 'abc'"},
                                LeaveRow{"A 6 x 'abc'", "ab", "A 6 x 'ab    '"},
                                LeaveRow{"A 6V x 'abc' [K]", "ab", "A 6V x 'ab' [K]"}));

} // namespace
} // namespace zb
