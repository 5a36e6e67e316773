#include "editor/item_entry.h"

#include "unit/editor/tree_commands_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

class ItemEntryTest : public TreeCommandsTest {
public:
    ItemEntryTest() {
        type(window.txtStream, "2");
        type(window.txtFunction, "41");
        click(window.cmdMsgAdd);
        clickNode(tree().find("S2F41"));
        hands.setAtKeyboard(true);
    }
    std::string textAt(int child) {
        Node* node = tree().find("S2F41")->child();
        for (; node != nullptr && child > 1; --child)
            node = node->next();
        return node == nullptr ? "none" : node->text();
    }
};

TEST_F(ItemEntryTest, InsInsertsAnItemSelectsItAndGoesToItsName) {
    key(window.tvwEdit, kKeyInsert);
    EXPECT_TRUE(window.txtItemName.focused());
    EXPECT_EQ(tree().selected(), tree().find("S2F41")->child());
    EXPECT_EQ(window.txtItemName.selectedText(), "new7");
    type(window.txtItemName, "RCMD");
    EXPECT_EQ(textAt(1), "U2 1 RCMD 0");
    expectNoBox();
}

TEST_F(ItemEntryTest, InsOnTheDescriptionOfAMessageAddsToTheMessage) {
    select(tree().find("S2F41")->previous());
    key(window.tvwEdit, kKeyInsert);
    EXPECT_EQ(textAt(1), "U2 1 new7 0");
    expectNoBox();
}

TEST_F(ItemEntryTest, ShiftInsAddsToTheList) {
    key(window.tvwEdit, kKeyInsert);
    key(window.txtItemName, '1', kControlKey);
    key(window.txtItemName, kKeyEnter, kControlKey | kShiftKey);
    Node* list = tree().find("S2F41")->child();
    ASSERT_EQ(list->children(), 1);
    EXPECT_EQ(tree().selected(), list->child());
    key(window.txtItemName, kKeyEscape);
    EXPECT_TRUE(window.tvwEdit.focused());
    select(list);
    key(window.tvwEdit, kKeyInsert, kShiftKey);
    EXPECT_EQ(list->text(), "L 2 new7");
}

TEST_F(ItemEntryTest, TheKeysOfTypesPressTheButtons) {
    key(window.tvwEdit, kKeyInsert);
    key(window.txtItemName, '2', kControlKey);
    EXPECT_EQ(window.itemPane.getSelectedItemType(), "A");
    key(window.txtItemName, '6', kControlKey | kShiftKey);
    EXPECT_EQ(window.itemPane.getSelectedItemType(), "X");
    key(window.txtItemName, '0', kControlKey);
    EXPECT_EQ(window.itemPane.getSelectedItemType(), "U2");
    EXPECT_TRUE(window.txtItemName.focused());
}

TEST_F(ItemEntryTest, TheKeyOfATypeInTheTreeLeavesTheNameOfAnItemThatThePaneDoesNotShow) {
    key(window.tvwEdit, kKeyInsert);
    type(window.txtItemName, "RCMD");
    key(window.txtItemName, kKeyEnter, kControlKey);
    type(window.txtItemName, "PARAMS");
    key(window.txtItemName, kKeyEscape);
    select(tree().find("S2F41")->child());
    key(window.tvwEdit, '2', kControlKey);
    EXPECT_EQ(textAt(1), "A 1 RCMD ''");
    EXPECT_EQ(textAt(2), "U2 1 PARAMS 0");
    EXPECT_TRUE(window.tvwEdit.focused());
}

TEST_F(ItemEntryTest, EnterGoesFromNameToValueAndOnToTheNextName) {
    key(window.tvwEdit, kKeyInsert);
    key(window.txtItemName, kKeyEnter, kControlKey);
    select(tree().find("S2F41")->child());
    key(window.tvwEdit, kKeyEnter);
    EXPECT_TRUE(window.txtItemName.focused());
    key(window.txtItemName, kKeyEnter);
    EXPECT_TRUE(window.txtInit.focused());
    key(window.txtInit, kKeyEnter);
    EXPECT_TRUE(window.txtItemName.focused());
    EXPECT_EQ(tree().selected(), tree().find("S2F41")->child()->next());
    key(window.txtItemName, kKeyEnter);
    key(window.txtInit, kKeyEnter);
    EXPECT_TRUE(window.tvwEdit.focused());
}

TEST_F(ItemEntryTest, EnterOfAScriptOnlyReachesTheField) {
    key(window.tvwEdit, kKeyInsert);
    hands.setAtKeyboard(false);
    key(window.txtInit, kKeyEnter);
    EXPECT_TRUE(window.txtInit.focused());
}

TEST_F(ItemEntryTest, ANameThatWasPastedIsWrittenBeforeTheKeyboardGoesOn) {
    key(window.tvwEdit, kKeyInsert);
    paste(window.txtItemName, "RCMD");
    key(window.txtItemName, kKeyEnter);
    EXPECT_EQ(textAt(1), "U2 1 RCMD 0");
    EXPECT_TRUE(window.txtInit.focused());
}

TEST_F(ItemEntryTest, ANameThatIsRefusedKeepsTheKeyboard) {
    key(window.tvwEdit, kKeyInsert);
    paste(window.txtItemName, "12");
    key(window.txtItemName, kKeyEnter);
    expectBox("Only numeric value cannot be a item name.");
    EXPECT_TRUE(window.txtItemName.focused());
}

// What docs/guide.md says about the keys that a remote command takes.
TEST_F(ItemEntryTest, ARemoteCommandWithThreeParametersTakes28KeysBesideItsNames) {
    int keys = 0;
    const auto strike = [&](std::initializer_list<KeyEvent> struck) {
        for (const KeyEvent key : struck) {
            ASSERT_EQ(hands.key(*window.focusControl(), key), "");
            ++keys;
        }
    };
    const auto name = [&](const std::string& text) { type(window.txtItemName, text); };
    const KeyEvent list{'1', kControlKey};
    const KeyEvent ascii{'2', kControlKey};
    const KeyEvent after{kKeyEnter, kControlKey};
    const KeyEvent below{kKeyEnter, kControlKey | kShiftKey};
    strike({{kKeyInsert, 0}});
    name("CMD");
    strike({list, below});
    name("RCMD");
    strike({ascii, after});
    name("PARAMS");
    strike({list, below});
    for (const std::string number : {"1", "2", "3"}) {
        if (number != "1")
            strike({{kKeyEscape, 0}, {kKeyLeft, 0}, {kKeyInsert, 0}});
        name("P" + number);
        strike({list, below});
        name("CPNAME" + number);
        strike({ascii, after});
        name("CPVAL" + number);
        strike({ascii});
    }
    EXPECT_EQ(keys, 28);
    std::string texts;
    for (int index = 7; tree().at(index) != nullptr; ++index)
        texts += tree().at(index)->text() + "|";
    EXPECT_EQ(texts, "L 2 CMD|A 1 RCMD ''|L 3 PARAMS|L 2 P1|A 1 CPNAME1 ''|A 1 CPVAL1 ''|L 2 P2|"
                     "A 1 CPNAME2 ''|A 1 CPVAL2 ''|L 2 P3|A 1 CPNAME3 ''|A 1 CPVAL3 ''|");
    expectNoBox();
}

} // namespace
} // namespace zb
