#include "editor/message_entry.h"

#include "unit/editor/tree_commands_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

class MessageEntryTest : public TreeCommandsTest {
public:
    MessageEntryTest() { hands.setAtKeyboard(true); }

    void enterS2F41() {
        key(window.tvwEdit, 'M', kControlKey);
        type(window.txtStream, "2");
        type(window.txtFunction, "41");
    }
};

TEST_F(MessageEntryTest, EnterAddsTheMessageThatWasBegunAndGoesToIt) {
    addMessage("S1F1: S1 F1 W H->E");
    clickNode(tree().find("S1F1"));
    enterS2F41();
    EXPECT_EQ(window.lblStale.text(), "a new message: Enter adds it");
    key(window.txtFunction, kKeyEnter);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "S1F1: S1 F1 W H->E", "", "", "S2F41: S2 F41 H->E", "", "",
                                    "S2F42: S2 F42 H<-E"}));
    EXPECT_EQ(tree().selected(), tree().find("S2F41"));
    EXPECT_TRUE(window.tvwEdit.focused());
    EXPECT_FALSE(window.lblStale.visible());
    expectNoBox();
}

TEST_F(MessageEntryTest, InAnEmptyTreeEnterAdds) {
    type(window.txtStream, "6");
    type(window.txtFunction, "11");
    key(window.txtFunction, kKeyEnter);
    EXPECT_EQ(tree().selected(), tree().find("S6F11"));
    EXPECT_TRUE(window.tvwEdit.focused());
}

TEST_F(MessageEntryTest, EnterChangesTheSelectedMessage) {
    addMessage("S1F1: S1 F1 W H->E");
    clickNode(tree().find("S1F1"));
    key(window.tvwEdit, kKeyEnter);
    paste(window.txtMsgName, "AreYouThere");
    key(window.txtMsgName, kKeyEnter);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "AreYouThere: S1 F1 W H->E"}));
    EXPECT_TRUE(window.tvwEdit.focused());
}

TEST_F(MessageEntryTest, ARefusedEntryStaysInItsField) {
    addMessage("S1F1: S1 F1 W H->E");
    addMessage("S1F3: S1 F3 W H->E");
    clickNode(tree().find("S1F1"));
    paste(window.txtMsgName, "S1F3");
    key(window.txtMsgName, kKeyEnter);
    expectBox("S1F3 already exists.", BoxIcon::Critical);
    EXPECT_TRUE(window.txtMsgName.focused());
    key(window.tvwEdit, 'M', kControlKey);
    key(window.txtStream, kKeyEnter);
    expectBox("You must insert a positive number less than 128 in the stream");
    EXPECT_TRUE(window.txtStream.focused());
}

TEST_F(MessageEntryTest, ControlEnterAddsBesideTheSelectedMessage) {
    addMessage("S1F1: S1 F1 W H->E");
    clickNode(tree().find("S1F1"));
    paste(window.txtMsgName, "Again");
    key(window.txtMsgName, kKeyEnter, kControlKey);
    EXPECT_NE(tree().find("S1F1"), nullptr);
    EXPECT_EQ(tree().selected(), tree().find("Again"));
}

TEST_F(MessageEntryTest, EnterOfAScriptOnlyReachesTheField) {
    hands.setAtKeyboard(false);
    type(window.txtStream, "2");
    type(window.txtFunction, "41");
    key(window.txtFunction, kKeyEnter);
    EXPECT_TRUE(tree().empty());
    EXPECT_TRUE(window.txtFunction.focused());
}

TEST_F(MessageEntryTest, ControlAndArrowsGoFromMessageToMessage) {
    addMessage("A: S1 F1 W H->E", {"L 1 list", "  U1 1 x 1"});
    addMessage("B: S1 F2 H<-E");
    key(window.tvwEdit, kKeyDown, kControlKey);
    EXPECT_EQ(tree().selected(), tree().find("A"));
    key(window.tvwEdit, kKeyDown, kControlKey);
    EXPECT_EQ(tree().selected(), tree().find("B"));
    EXPECT_EQ(window.txtMsgName.text(), "B");
    key(window.tvwEdit, kKeyDown, kControlKey);
    EXPECT_EQ(tree().selected(), tree().find("B"));
    key(window.tvwEdit, kKeyUp, kControlKey);
    EXPECT_EQ(tree().selected(), tree().find("A"));
    clickNode(tree().find("A")->child()->child());
    key(window.tvwEdit, kKeyUp, kControlKey);
    EXPECT_EQ(tree().selected(), tree().find("A"));
}

} // namespace
} // namespace zb
