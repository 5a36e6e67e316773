#include "unit/modeler/item_desk.h"

#include "model/statement_text.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::ItemDesk;
using testing::IsEmpty;

/// The dialog, open for a new item `NAME`.
class ItemStatements : public testing::Test, public ItemDesk {
public:
    ItemStatements() {
        dialog.addTRItem("Tell");
        dialog.txtTRItemName.setText("NAME");
    }
    std::string text() { return statementTextOf(node(1)); }
    std::string lastBox() { return screen.boxes.empty() ? std::string() : screen.boxes.back().text; }
};

TEST_F(ItemStatements, BuildAChainFromPictures) {
    drop(dialog.picELSE, node(1));
    EXPECT_EQ(text(), "if\r\nelse:");
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(3));
    EXPECT_TRUE(node(3).bold());
    EXPECT_EQ(node(3).backColor(), (Color{224, 224, 224}));
    EXPECT_EQ(node(3).key(), "TVW_KEY2");
}

TEST_F(ItemStatements, AClickOnAPictureGoesOnBesideAStatementWithAValue) {
    click(dialog.picIF);
    addCondition();
    drop("S1", node(2));
    answerValue("3");
    chooseFromPopup(dialog.mnuSetValue, node(2));
    ASSERT_EQ(dialog.tvwStatement.nodes().selected(), &node(3));
    click(dialog.picELSE);
    EXPECT_EQ(text(), "if ({NAME} == 'x'):\r\n NAME='3'\r\nelse:");
    hands.click(on(node(2)));
    click(dialog.picELIF);
    EXPECT_EQ(lastBox(), "\"ELSE\" statement already exists.");
}

TEST_F(ItemStatements, DelDeletesTheSelectedOne) {
    drop(dialog.picELSE, node(1));
    hands.setAtKeyboard(true);
    hands.key(dialog.tvwStatement, {kKeyDelete, 0});
    EXPECT_EQ(text(), "if");
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(1));
    hands.key(dialog.tvwStatement, {kKeyDelete, 0});
    EXPECT_EQ(text(), "if");
}

TEST_F(ItemStatements, SelectTheNodeUnderADrag) {
    drop(dialog.picIF, node(1));
    hands.dragOver({"any", nullptr}, on(node(1)));
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(1));
    hands.dragOver({"any", nullptr}, Target::whole(dialog.tvwStatement));
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(1));
}

TEST_F(ItemStatements, LetADropBelowAllNodesPass) {
    hands.drag(Target::whole(dialog.picIF), Target::whole(dialog.tvwStatement));
    EXPECT_EQ(text(), "NONE");
    EXPECT_THAT(screen.boxes, IsEmpty());
}

TEST_F(ItemStatements, AreRefusedWithTheChainsOwnReasons) {
    drop(dialog.picIF, node(1));
    drop(dialog.picIF, node(1));
    EXPECT_EQ(lastBox(), "\"IF\" statement already exists.");
    EXPECT_EQ(screen.boxes.back().icon, BoxIcon::Critical);
    drop(dialog.picELSE, node(1));
    drop(dialog.picELIF, node(1));
    EXPECT_EQ(lastBox(), "\"ELSE\" statement already exists.");
    EXPECT_EQ(screen.boxes.size(), 2U);
    EXPECT_EQ(text(), "if\r\nelse:");
}

TEST_F(ItemStatements, WantAConditionBeforeTheirBranch) {
    drop(dialog.picELIF, node(1));
    for (int bare : {2, 3}) {
        drop(dialog.picIF, node(bare));
        EXPECT_EQ(lastBox(), "Select Condition!");
        EXPECT_EQ(screen.boxes.back().icon, BoxIcon::Information);
    }
    EXPECT_EQ(screen.boxes.size(), 2U);
    EXPECT_EQ(text(), "if\r\nelif");
    drop(dialog.picELSE, node(1));
    drop(dialog.picIF, node(4));
    EXPECT_EQ(text(), "if\r\nelif\r\nelse:\r\n if");
    EXPECT_EQ(screen.boxes.size(), 2U);
}

TEST_F(ItemStatements, TakeTheirConditionOnce) {
    drop(dialog.picELIF, node(1));
    addCondition();
    drop("S1", node(2));
    drop("S1", node(3));
    EXPECT_EQ(text(), "if ({NAME} == 'x'):\r\nelif ({NAME} == 'x'):");
    drop("S1", node(2));
    drop("S1", node(1));
    EXPECT_EQ(text(), "if ({NAME} == 'x'):\r\nelif ({NAME} == 'x'):");
}

TEST_F(ItemStatements, TakeARowOfTheConditions) {
    drop(dialog.picIF, node(1));
    addCondition();
    Target row = Target::whole(dialog.builder.lvwSimpleCondition);
    row.row = dialog.builder.lvwSimpleCondition.rows().front().get();
    hands.drag(row, on(node(2)));
    EXPECT_EQ(text(), "if ({NAME} == 'x'):");
}

TEST_F(ItemStatements, StayAsTheyAreForAnIdThatCannotBeExpanded) {
    drop(dialog.picIF, node(1));
    addCondition();
    for (const std::string operand : {"C1", "S9", "nothing"}) {
        hands.drop({"S1", nullptr}, Target::whole(dialog.builder.txtOperand1));
        hands.drop({operand, nullptr}, Target::whole(dialog.builder.txtOperand2));
        click(dialog.builder.cmdEdit);
    }
    for (const std::string id : {"", "S2", "C1", "C2", "C3", "C4", "X1", "s1", "any text"})
        drop(id, node(2));
    EXPECT_EQ(text(), "if");
    EXPECT_THAT(screen.boxes, IsEmpty());
}

TEST_F(ItemStatements, KeepAnElseAndAValueWithoutCondition) {
    drop(dialog.picELSE, node(1));
    answerValue("UP");
    chooseFromPopup(dialog.mnuSetValue, node(3));
    addCondition();
    drop("S1", node(3));
    drop("S1", node(4));
    EXPECT_EQ(text(), "if\r\nelse:\r\n NAME='UP'");
    drop(dialog.picIF, node(3));
    EXPECT_EQ(text(), "if\r\nelse:\r\n NAME='UP'");
    EXPECT_THAT(screen.boxes, IsEmpty());
}

TEST_F(ItemStatements, TakeAPictureOnAValueToo) {
    drop(dialog.picELSE, node(1));
    answerValue("UP");
    chooseFromPopup(dialog.mnuSetValue, node(3));
    drop(dialog.picIF, node(4));
    EXPECT_EQ(node(4).children(), 1);
    EXPECT_EQ(text(), "if\r\nelse:\r\n NAME='UP'");
}

TEST_F(ItemStatements, OfferWhatTheNodeCanTake) {
    drop(dialog.picELIF, node(1));
    drop(dialog.picELSE, node(1));
    addCondition();
    drop("S1", node(3));
    const auto offers = [&](Node& node) {
        hands.rightClick(on(node));
        EXPECT_TRUE(dialog.mnuPopup.isOpen());
        EXPECT_TRUE(dialog.mnuDelete.enabled());
        return dialog.mnuSetValue.enabled();
    };
    EXPECT_FALSE(offers(node(2)));
    EXPECT_TRUE(offers(node(3)));
    EXPECT_TRUE(offers(node(4)));
    answerValue("UP");
    chooseFromPopup(dialog.mnuSetValue, node(3));
    EXPECT_FALSE(offers(node(3)));
    EXPECT_TRUE(offers(node(5)));
    drop(dialog.picIF, node(4));
    EXPECT_FALSE(offers(node(4)));
    hands.rightClick(on(node(1)));
    EXPECT_FALSE(dialog.mnuPopup.isOpen());
    hands.rightClick(Target::whole(dialog.tvwStatement));
    EXPECT_FALSE(dialog.mnuPopup.isOpen());
    hands.click(on(node(3)));
    EXPECT_FALSE(dialog.mnuPopup.isOpen());
}

TEST_F(ItemStatements, TakeAValueInTheItemsForm) {
    drop(dialog.picELSE, node(1));
    addCondition();
    drop("S1", node(2));
    answerValue("UP");
    chooseFromPopup(dialog.mnuSetValue, node(2));
    EXPECT_EQ(node(4).text(), "NAME='UP'");
    EXPECT_EQ(node(4).image(), "ItemValue");
    EXPECT_FALSE(node(4).bold());
    click(dialog.optNumeric);
    answerValue("3");
    chooseFromPopup(dialog.mnuSetValue, node(3));
    EXPECT_EQ(node(5).text(), "NAME=3");
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(5));
}

TEST_F(ItemStatements, LeaveANodeWithoutAValueWhenNoneWasGiven) {
    drop(dialog.picELSE, node(1));
    answerValue("");
    chooseFromPopup(dialog.mnuSetValue, node(3));
    EXPECT_EQ(text(), "if\r\nelse:");
}

TEST_F(ItemStatements, ReplaceAValueAfterItsSiblings) {
    drop(dialog.picELSE, node(1));
    answerValue("UP");
    chooseFromPopup(dialog.mnuSetValue, node(3));
    Node& other = dialog.tvwStatement.nodes().add(&node(3), Relation::Child, "other");
    answerValue("DOWN");
    chooseFromPopup(dialog.mnuSetValue, node(4));
    EXPECT_EQ(node(3).child(), &other);
    EXPECT_EQ(node(3).lastChild()->text(), "NAME='DOWN'");
    EXPECT_EQ(node(3).children(), 2);
}

TEST_F(ItemStatements, GoOneByOneOrWithTheirIf) {
    drop(dialog.picIF, node(1));
    drop(dialog.picELIF, node(1));
    drop(dialog.picELSE, node(1));
    chooseFromPopup(dialog.mnuDelete, node(3));
    EXPECT_EQ(text(), "if\r\nelse:");
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(1));
    drop(dialog.picIF, node(3));
    chooseFromPopup(dialog.mnuDelete, node(4));
    EXPECT_EQ(text(), "if\r\nelse:");
    EXPECT_EQ(dialog.tvwStatement.nodes().selected(), &node(3));
    chooseFromPopup(dialog.mnuDelete, node(2));
    EXPECT_EQ(text(), "NONE");
}

TEST_F(ItemStatements, NodesOfAnEarlierTreeAreNotRemembered) {
    drop(dialog.picIF, node(1));
    hands.rightClick(on(node(2)));
    dialog.addTRItem("Tell");
    fire(dialog.mnuDelete.onClick);
    fire(dialog.mnuSetValue.onClick);
    EXPECT_EQ(text(), "NONE");
}

TEST_F(ItemStatements, ReachTheRecordInBothForms) {
    drop(dialog.picELSE, node(1));
    addCondition();
    drop("S1", node(2));
    answerValue("UP");
    chooseFromPopup(dialog.mnuSetValue, node(2));
    click(dialog.cmdUpdate);
    const TRItemRecord* item = tell().getTRItem("NAME");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->StatementText(), "if ({NAME} == 'x'):\r\n NAME='UP'\r\nelse:");
    ASSERT_TRUE(item->ConditionNode());
    ASSERT_EQ(item->ConditionNode()->children().size(), 2U);
    EXPECT_EQ(item->ConditionNode()->children()[0].text(), "UP");
    EXPECT_EQ(getElementAttribute(item->ConditionNode()->children()[0], "Condition"), "({NAME} == 'x')");
}

} // namespace
} // namespace zb
