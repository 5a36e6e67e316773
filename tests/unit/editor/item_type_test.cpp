#include "unit/editor/item_pane_fixture.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace zb {
namespace {

using testing::Values;

class ItemTypeTest : public PaneFixture, public testing::Test {};

struct TypeButtonRow {
    int index;
    std::string key;
    std::string token;
};

std::ostream& operator<<(std::ostream& out, const TypeButtonRow& row) {
    return out << row.key;
}

class TypeButton : public PaneFixture, public testing::TestWithParam<TypeButtonRow> {};

TEST_P(TypeButton, StandsForItsToken) {
    const ToolbarButton& button = window.tbritemType.button(GetParam().key);
    EXPECT_EQ(button.index(), GetParam().index);
    pane.selectTypeButton(GetParam().token);
    EXPECT_EQ(buttonsDown(), GetParam().key);
    EXPECT_EQ(pane.getSelectedItemType(), GetParam().token);
    pane.resetTypeButtons();
    const Node& item = opened("U2 0V x");
    clickType(GetParam().key);
    EXPECT_EQ(buttonsDown(), GetParam().key);
    EXPECT_EQ(item.text().substr(0, GetParam().token.size() + 1), GetParam().token + " ");
}

INSTANTIATE_TEST_SUITE_P(Rows, TypeButton,
                         Values(TypeButtonRow{1, "List", "L"}, TypeButtonRow{2, "Ascii", "A"},
                                TypeButtonRow{3, "Binary", "B"}, TypeButtonRow{4, "Boolean", "BOOLEAN"},
                                TypeButtonRow{5, "I1", "I1"}, TypeButtonRow{6, "I2", "I2"},
                                TypeButtonRow{7, "I4", "I4"}, TypeButtonRow{8, "I8", "I8"},
                                TypeButtonRow{9, "U1", "U1"}, TypeButtonRow{10, "U2", "U2"},
                                TypeButtonRow{11, "U4", "U4"}, TypeButtonRow{12, "U8", "U8"},
                                TypeButtonRow{13, "F4", "F4"}, TypeButtonRow{14, "F8", "F8"},
                                TypeButtonRow{15, "JIS8", "J"}, TypeButtonRow{16, "Any", "X"}));

TEST_F(ItemTypeTest, TypeIsSelectedByAnyCaseAndAnUnknownOneByNone) {
    EXPECT_EQ(buttonsDown(), "");
    pane.selectTypeButton("boolean");
    EXPECT_EQ(buttonsDown(), "Boolean");
    pane.selectTypeButton("Q");
    EXPECT_EQ(buttonsDown(), "");
    EXPECT_EQ(pane.getSelectedItemType(), "");
}

TEST_F(ItemTypeTest, TypeWithoutAnItemOnlyShows) {
    clickType("U1");
    EXPECT_EQ(buttonsDown(), "U1");
    tree().select(&message);
    clickType("List");
    EXPECT_EQ(buttonsDown(), "List");
    EXPECT_EQ(message.text(), "S1F1: S1 F1 W H->E");
    EXPECT_TRUE(window.txtInit.enabled());
}

struct TypeChangeRow {
    std::string item;
    std::string button;
    std::string field;
    bool enabled;
    std::string itemAfter;
};

std::ostream& operator<<(std::ostream& out, const TypeChangeRow& row) {
    return out << row.item << " -> " << row.button;
}

class TypeChange : public PaneFixture, public testing::TestWithParam<TypeChangeRow> {};

TEST_P(TypeChange, CarriesTheValueOnlyWhereItFits) {
    const Node& item = opened(GetParam().item);
    clickType(GetParam().button);
    EXPECT_EQ(buttonsDown(), GetParam().button);
    EXPECT_EQ(window.txtInit.text(), GetParam().field);
    EXPECT_EQ(window.txtInit.enabled(), GetParam().enabled);
    EXPECT_EQ(item.text(), GetParam().itemAfter);
    EXPECT_TRUE(screen.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, TypeChange,
                         Values(TypeChangeRow{"A 3 x 'abc'", "Any", "abc", true, "X 3 x 'abc'"},
                                TypeChangeRow{"J 3 x 'abc'", "Ascii", "abc", true, "A 3 x 'abc'"},
                                TypeChangeRow{"X 3 x 'abc'", "JIS8", "abc", true, "J 3 x 'abc'"},
                                TypeChangeRow{"U1 1 x 7", "Any", "", true, "X 1 x ''"},
                                TypeChangeRow{"U1 1V x 7", "Ascii", "", true, "A 1V x ''"},
                                TypeChangeRow{"BOOLEAN 1 x True", "JIS8", "", true, "J 1 x ''"},
                                TypeChangeRow{"U2 1 x 7", "List", "", false, "L 1 x"},
                                TypeChangeRow{"A 3 x 'abc'", "List", "", false, "L 3 x"},
                                TypeChangeRow{"L 0 x", "Ascii", "", false, "A 0 x ''"},
                                TypeChangeRow{"L 0 x", "U1", "", true, "U1 0 x"},
                                TypeChangeRow{"A 3 x 'abc'", "U4", "abc", true, "U4 3 x abc"},
                                TypeChangeRow{"U4 1 x 70000 [K]", "U1", "70000", true, "U1 1 x 70000 [K]"},
                                TypeChangeRow{"L 0 x", "List", "", false, "L 0 x"}));

TEST_F(ItemTypeTest, TypeOfAListWithItemsStays) {
    Node& list = add(message, "L 1 list");
    add(list, "U1 1 x 0");
    open(list);
    clickType("Ascii");
    EXPECT_EQ(buttonsDown(), "List");
    EXPECT_EQ(list.text(), "L 1 list");
    EXPECT_FALSE(window.txtInit.enabled());
    expectBox("You cannot change to other type.\r\nBecause the list has sub elements", BoxIcon::Information);
}

} // namespace
} // namespace zb
