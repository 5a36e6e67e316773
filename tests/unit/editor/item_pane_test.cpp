#include "messages/item_key.h"
#include "unit/editor/item_pane_fixture.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace zb {
namespace {

using testing::Values;

class ItemPaneTest : public PaneFixture, public testing::Test {};

// Name and count

struct FieldRow {
    std::string item;
    std::string entered;
    std::string field;
    std::string itemAfter;
    std::string_view box = {};
};

std::ostream& operator<<(std::ostream& out, const FieldRow& row) {
    return out << row.item << " <- <" << row.entered << '>';
}

class ItemPaneField : public PaneFixture, public testing::TestWithParam<FieldRow> {
protected:
    /// A key that enters nothing, so that only its key up counts.
    void pasteAndRelease(TextField& field) {
        paste(field, GetParam().entered);
        key(field, {kKeyEnd, 0});
    }
    void expectRow(const TextField& field, const Node& item) {
        EXPECT_EQ(field.text(), GetParam().field);
        EXPECT_EQ(item.text(), GetParam().itemAfter);
        EXPECT_TRUE(field.focused());
        EXPECT_EQ(tree().selected(), &item);
        expectBox(GetParam().box);
    }
};

constexpr std::string_view kNumericName = "Only numeric value cannot be a item name.";

class PastedName : public ItemPaneField {};

TEST_P(PastedName, IsTestedAtTheNextKey) {
    const Node& item = opened(GetParam().item);
    pasteAndRelease(window.txtItemName);
    expectRow(window.txtItemName, item);
}

INSTANTIATE_TEST_SUITE_P(Rows, PastedName,
                         Values(FieldRow{"U2 1 old 5", "123", "old", "U2 1 old 5", kNumericName},
                                FieldRow{"U2 1 old 5", "1.5", "old", "U2 1 old 5", kNumericName},
                                FieldRow{"U2 1 old 5", "1E5", "old", "U2 1 old 5", kNumericName},
                                FieldRow{"U2 1 5", "-7", "", "U2 1 5", kNumericName},
                                FieldRow{"U2 1 old 5", "A123", "A123", "U2 1 A123 5"},
                                FieldRow{"U2 1 old 5", "1A", "1A", "U2 1 1A 5"},
                                FieldRow{"U2 1 old 5", "", "", "U2 1 5"},
                                FieldRow{"U2 1 old 5", "  ", "  ", "U2 1 5"},
                                FieldRow{"L 3V old", "new", "new", "L 3V new"},
                                FieldRow{"A 2 old 'ab' [K]", "new", "new", "A 2 new 'ab' [K]"}));

class TypedName : public ItemPaneField {};

TEST_P(TypedName, PassesTheFilter) {
    const Node& item = opened(GetParam().item);
    type(window.txtItemName, GetParam().entered);
    expectRow(window.txtItemName, item);
}

INSTANTIATE_TEST_SUITE_P(Rows, TypedName,
                         Values(FieldRow{"U2 1 old 5", "A_1.b", "A_1.b", "U2 1 A_1.b 5"},
                                FieldRow{"U2 1 5", "1.-A 1-", "A1", "U2 1 A1 5"},
                                FieldRow{"U2 1 old 5", "12", "old2", "U2 1 old2 5", kNumericName}));

constexpr std::string_view kCountRange = "Insert a numeral between 0 to 1000000 for a ItemCount";

class PastedCount : public ItemPaneField {};

TEST_P(PastedCount, IsTestedAtTheNextKey) {
    const Node& item = opened(GetParam().item);
    pasteAndRelease(window.txtItemCount);
    expectRow(window.txtItemCount, item);
}

INSTANTIATE_TEST_SUITE_P(Rows, PastedCount,
                         Values(FieldRow{"U2 1 x 5", "0", "0", "U2 0 x 5"},
                                FieldRow{"U2 1 x 5", "1000000", "1000000", "U2 1000000 x 5"},
                                FieldRow{"U2 1 x 5", "1000001", "1", "U2 1 x 5", kCountRange},
                                FieldRow{"U2 3V x 5", "1000001", "3", "U2 3V x 5", kCountRange},
                                FieldRow{"U2 1 x 5", "-1", "1", "U2 1 x 5", kCountRange},
                                FieldRow{"U2 1 x 5", "1e9", "1", "U2 1 x 5", kCountRange},
                                FieldRow{"U2 1 x 5", "", "", "U2  x 5"},
                                FieldRow{"U2 1 x 5", "two", "two", "U2 two x 5"}));

class TypedCount : public ItemPaneField {};

TEST_P(TypedCount, PassesTheFilter) {
    const Node& item = opened(GetParam().item);
    window.txtItemCount.setFocus();
    window.txtItemCount.selectAll();
    type(window.txtItemCount, GetParam().entered);
    expectRow(window.txtItemCount, item);
}

INSTANTIATE_TEST_SUITE_P(Rows, TypedCount,
                         Values(FieldRow{"U2 1 x 5", "12", "12", "U2 12 x 5"},
                                FieldRow{"U2 1 x 5", "a1-2.", "12", "U2 12 x 5"},
                                FieldRow{"U2 1 x 5", "1000000", "1000000", "U2 1000000 x 5"},
                                FieldRow{"U2 1 x 5", "9999999", "999999", "U2 999999 x 5", kCountRange}));

TEST_F(ItemPaneTest, FocusSelectsNameAndValue) {
    opened("U2 1 old 55");
    window.txtItemName.setFocus();
    EXPECT_EQ(window.txtItemName.selectedText(), "old");
    window.txtItemCount.setFocus();
    EXPECT_EQ(window.txtItemCount.selectedText(), "");
    window.txtInit.setFocus();
    EXPECT_EQ(window.txtInit.selectedText(), "55");
}

TEST_F(ItemPaneTest, FieldsReachNoRootNode) {
    tree().select(&message);
    paste(window.txtItemName, "123");
    key(window.txtItemName, {kKeyEnd, 0});
    paste(window.txtItemCount, "1000001");
    key(window.txtItemCount, {kKeyEnd, 0});
    click(window.chkFix);
    window.tvwEdit.setFocus();
    EXPECT_EQ(message.text(), "S1F1: S1 F1 W H->E");
    EXPECT_EQ(window.txtItemName.text(), "123");
    EXPECT_EQ(window.txtItemCount.text(), "1000001");
    EXPECT_TRUE(screen.boxes.empty());
}

TEST_F(ItemPaneTest, FixedCountIsMarkedInTheText) {
    const Node& item = opened("U1 2 rate 1 2 [K]");
    click(window.chkFix);
    EXPECT_EQ(item.text(), "U1 2V rate 1 2 [K]");
    key(window.chkFix, {kKeySpace, 0});
    EXPECT_EQ(item.text(), "U1 2 rate 1 2 [K]");
}

TEST_F(ItemPaneTest, TypeWithoutAButtonIsKept) {
    const Node& item = opened("Q 1 old 5");
    paste(window.txtItemName, "new");
    key(window.txtItemName, {kKeyEnd, 0});
    EXPECT_EQ(item.text(), "Q 1 new 5");
}

// Item key

struct KeyRow {
    std::string around;
    std::string item;
    bool allowed;
};

std::ostream& operator<<(std::ostream& out, const KeyRow& row) {
    return out << row.item << " in " << row.around;
}

class ItemKey : public PaneFixture, public testing::TestWithParam<KeyRow> {};

TEST_P(ItemKey, StandsAtAFixedPlace) {
    Node& outer = add(message, GetParam().around);
    Node& inner = add(outer, "L 1");
    Node& item = add(inner, GetParam().item);
    Node& other = add(message, "U2 1 other 0 [K]");
    open(item);
    window.chkIsItemKey.setEnabled(true);
    click(window.chkIsItemKey);
    EXPECT_EQ(isKeyForbidden(item), !GetParam().allowed);
    EXPECT_EQ(window.chkIsItemKey.checked(), GetParam().allowed);
    EXPECT_EQ(item.text(), GetParam().item + (GetParam().allowed ? " [K]" : ""));
    EXPECT_EQ(other.text(), GetParam().allowed ? "U2 1 other 0" : "U2 1 other 0 [K]");
    EXPECT_TRUE(screen.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ItemKey,
                         Values(KeyRow{"L 1", "U2 1 x 0", true}, KeyRow{"L 1V many", "U2 1 x 0", false},
                                KeyRow{"L 1", "U2 1V x 0", true}, KeyRow{"L 1", "L 0 list", true},
                                KeyRow{"L 1V many", "L 0 list", true}, KeyRow{"L 1", "L 0V list", false},
                                KeyRow{"U2 1V odd", "U2 1 x 0", true}));

TEST_F(ItemPaneTest, UncheckingTakesTheOnlyKeyAway) {
    const Node& item = opened("U2 1 x 0 [K]");
    click(window.chkIsItemKey);
    EXPECT_EQ(item.text(), "U2 1 x 0");
}

TEST_F(ItemPaneTest, KeyOfARootNodeSnapsBackAndWithoutSelectionStays) {
    Node& item = add(message, "U2 1 x 0 [K]");
    tree().select(&message);
    click(window.chkIsItemKey);
    EXPECT_FALSE(window.chkIsItemKey.checked());
    tree().select(nullptr);
    click(window.chkIsItemKey);
    EXPECT_TRUE(window.chkIsItemKey.checked());
    EXPECT_EQ(item.text(), "U2 1 x 0 [K]");
    EXPECT_EQ(message.text(), "S1F1: S1 F1 W H->E");
}

TEST_F(ItemPaneTest, KeyMarksGoFromAllThatLiesBelow) {
    Node& list = add(message, "L 2 [K] [K]");
    Node& deep = add(add(list, "L 1"), "U1 1 a 0 [K]");
    Node& last = add(list, "A 3 b 'x' [K]");
    Node& beside = add(message, "U1 1 c 0 [K]");
    removeKeyMark(list);
    EXPECT_EQ(list.text(), "L 2");
    EXPECT_EQ(deep.text(), "U1 1 a 0");
    EXPECT_EQ(last.text(), "A 3 b 'x'");
    EXPECT_EQ(beside.text(), "U1 1 c 0 [K]");
    clearKeysInMessage(deep);
    EXPECT_EQ(beside.text(), "U1 1 c 0");
}

// The rest

TEST_F(ItemPaneTest, StartsAndIsClearedWithNothingDown) {
    EXPECT_EQ(buttonsDown(), "");
    opened("U2 1V x 7");
    tree().select(nullptr);
    pane.InitItem();
    EXPECT_EQ(window.txtItemName.text(), "");
    EXPECT_EQ(window.txtItemCount.text(), "");
    EXPECT_EQ(window.txtInit.text(), "");
    EXPECT_FALSE(window.chkFix.checked());
    EXPECT_EQ(buttonsDown(), "");
}

/// The contents of the fields, and the result of ThisItemChange.
struct ChangeRow {
    std::string type;
    std::string name;
    std::string count;
    bool fixed;
    std::string value;
    std::string itemAfter;
    std::string fieldAfter;
};

std::ostream& operator<<(std::ostream& out, const ChangeRow& row) {
    return out << row.type << " <" << row.name << "> <" << row.count << "> <" << row.value << '>';
}

class ProgramChange : public PaneFixture, public testing::TestWithParam<ChangeRow> {
protected:
    Node& fill() {
        Node& item = add(message, "L 0");
        const ChangeRow& row = GetParam();
        window.txtItemName.setText(row.name);
        window.txtItemCount.setText(row.count);
        window.chkFix.setChecked(row.fixed);
        window.chkIsItemKey.setChecked(true);
        window.txtInit.setText(row.value);
        pane.selectTypeButton(row.type);
        return item;
    }
};

TEST_P(ProgramChange, CleansTheFields) {
    const Node& item = fill();
    pane.ThisItemChange(item.index(), 0);
    EXPECT_EQ(item.text(), GetParam().itemAfter);
    EXPECT_EQ(window.txtInit.text(), GetParam().fieldAfter);
    EXPECT_TRUE(screen.boxes.empty());
}

TEST_P(ProgramChange, KeepsTheFieldOnRequest) {
    const Node& item = fill();
    pane.ThisItemChange(item.index(), 1);
    EXPECT_EQ(item.text(), GetParam().itemAfter);
    EXPECT_EQ(window.txtInit.text(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Rows, ProgramChange,
                         Values(ChangeRow{"L", "list", "3", true, "7", "L 3 list", ""},
                                ChangeRow{"L", "list", "3", false, "", "L 3V list", ""},
                                ChangeRow{"A", " it's ", "03", true, "it's", "A 3 its 'its'", "its"},
                                ChangeRow{"U1", "", "", true, "1 x", "U1 0 1 0", "1 0"},
                                ChangeRow{"U1", "x", "0", true, "-", "U1 0 x", ""},
                                ChangeRow{"U1", "x", "2", true, "-", "U1 2 x 0", "0"},
                                ChangeRow{"I2", "x", "2", false, " 1  2 ", "I2 2V x 1 2", "1 2"},
                                ChangeRow{"BOOLEAN", "x", "1", true, "", "BOOLEAN 1 x False", "False"},
                                ChangeRow{"F4", "'", "2z", true, "1e5 e", "F4 2 1e5 0", "1e5 0"}));

TEST_F(ItemPaneTest, ProgramChangeNeedsAType) {
    const Node& item = opened("Q 1 x 0");
    pane.ThisItemChange(item.index(), 0);
    EXPECT_EQ(item.text(), "Q 1 x 0");
    expectBox("You must select an item type");
}

TEST_F(ItemPaneTest, ProgramChangeOfNoNodeIsHarmless) {
    pane.selectTypeButton("L");
    pane.ThisItemChange(99, 0);
    EXPECT_EQ(tree().count(), 1U);
    EXPECT_TRUE(screen.boxes.empty());
}

} // namespace
} // namespace zb
