#include "unit/modeler/item_desk.h"

#include "model/statement_node.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::ItemDesk;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FrmTRItem, OpensEmptyForANewItem) {
    ItemDesk desk;
    desk.addItem("OLD", "if\r\n A=1");
    desk.dialog.updateTRItem("Tell", "Tell_OLD");
    desk.dialog.addTRItem("Tell");

    EXPECT_TRUE(desk.dialog.visible());
    EXPECT_EQ(desk.dialog.caption(), "Add TRItem - Tell");
    EXPECT_EQ(desk.dialog.cmdUpdate.caption(), "&Add");
    EXPECT_EQ(desk.dialog.txtTRItemName.text(), "");
    EXPECT_TRUE(desk.dialog.txtTRItemName.enabled());
    EXPECT_EQ(desk.dialog.txtABSValue.text(), "");
    EXPECT_EQ(desk.dialog.txtSECSMessage.text(), "Data");
    EXPECT_TRUE(desk.dialog.optString.on());
    EXPECT_EQ(desk.dialog.cmbItemValue.text(), "");
    EXPECT_THAT(desk.dialog.cmbItemValue.entries(), ElementsAre("NAME", "SVID"));
    EXPECT_THAT(desk.dialog.builder.cmbDataItem.entries(), ElementsAre("NAME", "SVID"));
    EXPECT_EQ(desk.dialog.tvwStatement.nodes().count(), 1U);
}

TEST(FrmTRItem, OpensWithAllOfAnItem) {
    ItemDesk desk;
    desk.addItem("COUNT", "if ({A} == 1):\r\n COUNT=3\r\nelse:\r\n COUNT=4");
    desk.dialog.updateTRItem("Tell", "Tell_COUNT");

    EXPECT_TRUE(desk.dialog.visible());
    EXPECT_EQ(desk.dialog.caption(), "Update TRItem - Tell-COUNT");
    EXPECT_EQ(desk.dialog.cmdUpdate.caption(), "&Update");
    EXPECT_EQ(desk.dialog.txtTRItemName.text(), "COUNT");
    EXPECT_FALSE(desk.dialog.txtTRItemName.enabled());
    EXPECT_TRUE(desk.dialog.optNumeric.on());
    EXPECT_FALSE(desk.dialog.optString.on());
    EXPECT_EQ(desk.dialog.cmbItemValue.text(), "SVID[2]");
    EXPECT_EQ(desk.dialog.txtABSValue.text(), "abs");
    EXPECT_EQ(desk.dialog.tvwStatement.nodes().count(), 5U);
    EXPECT_EQ(desk.node(5).text(), "COUNT=4");
}

TEST(FrmTRItem, ShowsNoStatementsForNone) {
    for (const char* text : {"", "NONE"}) {
        ItemDesk desk;
        desk.addItem("A", text);
        desk.dialog.updateTRItem("Tell", "Tell_A");
        EXPECT_EQ(desk.dialog.tvwStatement.nodes().count(), 1U);
    }
}

TEST(FrmTRItem, StaysHiddenWithoutASecsMessage) {
    ItemDesk desk;
    desk.dialog.addTRItem("Mute");
    desk.dialog.updateTRItem("Mute", "Mute_A");
    EXPECT_FALSE(desk.dialog.visible());
    ASSERT_EQ(desk.screen.boxes.size(), 2U);
    EXPECT_EQ(desk.screen.boxes[0].text, "Select SECSMessage for 'Mute'");
    EXPECT_EQ(desk.screen.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(desk.screen.boxes[1].text, "Select SECSMessage for 'Mute'");
}

TEST(FrmTRItem, KnowsNoMessageThatIsNotThere) {
    ItemDesk desk;
    desk.dialog.addTRItem("tell");
    desk.dialog.updateTRItem("Nobody", "Nobody_A");
    desk.state.TRModelStore.reset();
    desk.dialog.addTRItem("Tell");
    EXPECT_FALSE(desk.dialog.visible());
    EXPECT_THAT(desk.screen.boxes, IsEmpty());
}

TEST(FrmTRItem, TakesTheMessageNameOutOfTheKeyWhereverItIs) {
    ItemDesk desk;
    desk.addItem("B");
    desk.addItem("Tell_B");
    desk.dialog.updateTRItem("Tell", "Tell_Tell_B");
    EXPECT_EQ(desk.dialog.txtTRItemName.text(), "B");
}

TEST(FrmTRItem, AddsARecordAndOpensForTheNext) {
    ItemDesk desk;
    desk.dialog.addTRItem("Tell");
    desk.click(desk.dialog.chkKeepVisible);
    desk.hands.paste(desk.dialog.txtTRItemName, "  STATE ");
    desk.hands.choose(desk.dialog.cmbItemValue, "NAME");
    desk.hands.paste(desk.dialog.txtABSValue, " 7 ");
    desk.click(desk.dialog.cmdUpdate);

    const TRItemRecord* item = desk.tell().getTRItem("STATE");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Type(), "STRING");
    EXPECT_EQ(item->Value(), "NAME");
    EXPECT_EQ(item->ABSValue(), "7");
    EXPECT_EQ(item->StatementText(), "NONE");
    EXPECT_EQ(item->ConditionNode(), createElement("Condition"));
    EXPECT_THAT(desk.views.notes, ElementsAre("added Tell/STATE"));
    EXPECT_TRUE(desk.dialog.visible());
    EXPECT_EQ(desk.dialog.txtTRItemName.text(), "");
    EXPECT_EQ(desk.dialog.txtABSValue.text(), "");
}

TEST(FrmTRItem, HidesAfterItsCommand) {
    ItemDesk desk;
    desk.dialog.addTRItem("Tell");
    desk.hands.paste(desk.dialog.txtTRItemName, "STATE");
    desk.click(desk.dialog.cmdUpdate);
    EXPECT_FALSE(desk.dialog.visible());

    desk.dialog.updateTRItem("Tell", "Tell_STATE");
    desk.click(desk.dialog.optNumeric);
    desk.click(desk.dialog.cmdUpdate);
    EXPECT_FALSE(desk.dialog.visible());
    EXPECT_EQ(desk.tell().getTRItem("STATE")->Type(), "NUMERIC");
    EXPECT_THAT(desk.views.notes, ElementsAre("added Tell/STATE", "updated Tell/STATE"));
}

TEST(FrmTRItem, WantsAName) {
    ItemDesk desk;
    desk.dialog.addTRItem("Tell");
    desk.hands.paste(desk.dialog.txtTRItemName, "  ");
    desk.click(desk.dialog.cmdUpdate);
    ASSERT_EQ(desk.screen.boxes.size(), 1U);
    EXPECT_EQ(desk.screen.boxes[0].text, "Insert TRItem Name!");
    EXPECT_EQ(desk.screen.boxes[0].icon, BoxIcon::Critical);
    EXPECT_TRUE(desk.dialog.visible());
    EXPECT_THAT(desk.tell().TRItems(), IsEmpty());
}

TEST(FrmTRItem, RefusesATakenNameAndStaysUsable) {
    ItemDesk desk;
    desk.addItem("A").setABSValue("first");
    desk.dialog.addTRItem("Tell");
    desk.hands.paste(desk.dialog.txtABSValue, "second");
    desk.hands.paste(desk.dialog.txtTRItemName, "A");
    desk.click(desk.dialog.cmdUpdate);
    ASSERT_EQ(desk.screen.boxes.size(), 1U);
    EXPECT_EQ(desk.screen.boxes[0].text, "A already exist.");
    EXPECT_EQ(desk.screen.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(desk.tell().getTRItem("A")->ABSValue(), "first");
    EXPECT_TRUE(desk.dialog.txtTRItemName.focused());
    EXPECT_EQ(desk.dialog.txtTRItemName.selectedText(), "A");

    desk.hands.type(desk.dialog.txtTRItemName, "a");
    desk.click(desk.dialog.cmdUpdate);
    ASSERT_NE(desk.tell().getTRItem("a"), nullptr);
    EXPECT_EQ(desk.tell().getTRItem("a")->ABSValue(), "second");
}

TEST(FrmTRItem, AddsAnItemThatHasGoneMeanwhile) {
    ItemDesk desk;
    desk.addItem("A");
    desk.dialog.updateTRItem("Tell", "Tell_A");
    desk.tell().deleteTRItem("A");
    desk.click(desk.dialog.chkKeepVisible);
    desk.click(desk.dialog.cmdUpdate);
    ASSERT_NE(desk.tell().getTRItem("A"), nullptr);
    EXPECT_EQ(desk.tell().getTRItem("A")->Value(), "SVID[2]");
    EXPECT_THAT(desk.views.notes, ElementsAre("added Tell/A"));
    EXPECT_EQ(desk.dialog.caption(), "Add TRItem - Tell");
    EXPECT_THAT(desk.screen.boxes, IsEmpty());
}

TEST(FrmTRItem, ShowsAddWhereTheFallbackCannotOpenAnew) {
    ItemDesk desk;
    desk.addItem("A");
    desk.dialog.updateTRItem("Tell", "Tell_A");
    desk.click(desk.dialog.chkKeepVisible);
    desk.tell().deleteTRItem("A");
    desk.tell().setSECSMessage("");
    desk.click(desk.dialog.cmdUpdate);
    EXPECT_NE(desk.tell().getTRItem("A"), nullptr);
    EXPECT_EQ(desk.dialog.cmdUpdate.caption(), "Add");
    ASSERT_EQ(desk.screen.boxes.size(), 1U);
    EXPECT_EQ(desk.screen.boxes[0].text, "Select SECSMessage for 'Tell'");
}

TEST(FrmTRItem, ReportsAMessageThatWasDeletedMeanwhile) {
    ItemDesk desk;
    desk.addItem("A");
    desk.dialog.updateTRItem("Tell", "Tell_A");
    desk.state.TRModelStore->deleteTRMessage("Tell");
    desk.state.SECSMessageStore = std::make_unique<SECSMessageStore>();
    desk.addCondition();
    desk.click(desk.dialog.cmdUpdate);
    EXPECT_EQ(desk.dialog.cmdUpdate.caption(), "Add");
    EXPECT_EQ(desk.dialog.txtABSValue.text(), "abs");
    EXPECT_EQ(desk.dialog.builder.lvwSimpleCondition.count(), 1U);
    EXPECT_THAT(desk.views.notes, IsEmpty());
    ASSERT_EQ(desk.screen.boxes.size(), 1U);
    EXPECT_EQ(desk.screen.boxes[0].text, "The message 'Tell' is no longer in the model.");
}

TEST(FrmTRItem, StaysBehindOtherWindowsOnlyWhenKept) {
    ItemDesk desk;
    desk.modeler.show();
    desk.dialog.addTRItem("Tell");
    desk.click(desk.dialog.chkKeepVisible);
    desk.click(desk.modelerButton);
    EXPECT_TRUE(desk.dialog.visible());
    EXPECT_TRUE(desk.modelerButton.focused());

    desk.click(desk.dialog.chkKeepVisible);
    desk.click(desk.modelerButton);
    EXPECT_FALSE(desk.dialog.visible());
    EXPECT_TRUE(desk.modelerButton.focused());
}

TEST(FrmTRItem, CancelWritesNothingAndForgetsToStay) {
    ItemDesk desk;
    desk.dialog.addTRItem("Tell");
    desk.click(desk.dialog.chkKeepVisible);
    desk.hands.paste(desk.dialog.txtTRItemName, "A");
    desk.click(desk.dialog.cmdCancel);
    EXPECT_FALSE(desk.dialog.visible());
    EXPECT_THAT(desk.tell().TRItems(), IsEmpty());
    desk.dialog.addTRItem("Tell");
    EXPECT_FALSE(desk.dialog.chkKeepVisible.checked());
}

TEST(FrmTRItem, StaysWhileItsOwnDialogsAsk) {
    ItemDesk desk;
    desk.dialog.addTRItem("Tell");
    bool stood = false;
    desk.screen.modal = [&](Window& window) {
        stood = desk.dialog.visible() && window.name() == "frmArrayInfo";
        window.hide();
    };
    desk.hands.choose(desk.dialog.cmbItemValue, "SVID");
    EXPECT_TRUE(stood);
    EXPECT_TRUE(desk.dialog.visible());
    EXPECT_EQ(desk.dialog.cmbItemValue.text(), "");
}

TEST(FrmTRItem, PutsTheIndexAfterTheSource) {
    ItemDesk desk;
    desk.dialog.addTRItem("Tell");
    desk.screen.modal = [](Window& window) {
        auto& arrays = static_cast<frmArrayInfo&>(window);
        fire(arrays.lvwArray.onMouseUp, 1, arrays.lvwArray.rows().front().get());
        arrays.txtValue.setText("2");
        fire(arrays.cmdOK.onClick);
    };
    desk.hands.choose(desk.dialog.cmbItemValue, "SVID");
    EXPECT_EQ(desk.dialog.cmbItemValue.text(), "SVID[2]");
    EXPECT_THAT(desk.screen.boxes, IsEmpty());
}

} // namespace
} // namespace zb
