#include "modeler/model_nodes.h"
#include "unit/modeler/modeler_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::ModelerDesk;
using Texts = std::vector<std::string>;

const std::string kRoot{kReceiveRoot};

class ModelTrees : public ::testing::Test, protected ModelerDesk {
protected:
    Tree& rcv = window.tvwRcvTRMsg;
    Tree& snd = window.tvwSndTRMsg;
    void mark(Node& node) { node.setForeColor(kErrorForeColor); }
};

TEST_F(ModelTrees, ShowRecordsByTheirDirection) {
    addRecord("A", kToHost, {"x"});
    addRecord("B", kToEquip, {"hidden"});
    addRecord("C", 3);
    addRecord("D", kToHost);
    window.displayModel();
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "x", "D"}));
    EXPECT_EQ(flat(snd), (Texts{std::string(kSendRoot), "B"}));
    EXPECT_EQ(window.current().tree, &rcv);
    EXPECT_EQ(window.current().message, kRoot);
    EXPECT_EQ(selectedText(rcv), kRoot);
}

TEST_F(ModelTrees, OfAnyTypeButOneAreThoseOfAnEquipment) {
    model().setProjectType(7);
    addRecord("A", kToHost);
    addRecord("B", kToEquip);
    window.displayModel();
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "B"}));
    EXPECT_EQ(flat(snd), (Texts{std::string(kSendRoot), "A"}));
}

TEST_F(ModelTrees, ShowNamesThatDifferInCaseAlone) {
    addRecord("Alarm", kToHost, {"x", "X"});
    addRecord("ALARM", kToHost, {"x"});
    window.displayModel();
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "Alarm", "x", "X", "ALARM", "x"}));
    EXPECT_EQ(findMessageNode(rcv, "ALARM"), rcv.nodes().at(5));
    EXPECT_EQ(findItemNode(rcv, "Alarm", "X"), rcv.nodes().at(4));
    EXPECT_EQ(findItemNode(rcv, "ALARM", "x"), rcv.nodes().at(6));
    rcv.nodes().select(rcv.nodes().at(5));
    deleteKey(rcv);
    EXPECT_EQ(recordNames(), (Texts{"Alarm"}));
}

TEST_F(ModelTrees, ShowAMessageNamedLikeTheKeyOfAnItem) {
    addRecord("A", kToHost, {"B"});
    addRecord("A_B", kToHost);
    window.displayModel();
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "B", "A_B"}));
    rcv.nodes().select(rcv.nodes().at(4));
    deleteKey(rcv);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "B"}));
    EXPECT_EQ(recordNames(), (Texts{"A"}));
}

TEST_F(ModelTrees, GoToTheNodeAtThePositionOfTheNextSiblingAfterADeletedMessage) {
    for (const char* name : {"A", "B", "C", "D"})
        addRecord(name, kToHost);
    window.displayModel();
    hands.click(onReceived("A"));
    deleteKey(rcv);
    // The sibling was at position 3, where the next one is now.
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "B", "C", "D"}));
    EXPECT_EQ(selectedText(rcv), "C");
    EXPECT_EQ(window.current().message, "C");
    hands.click(onReceived("C"));
    deleteKey(rcv);
    // Nothing is at position 4 any more.
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "B", "D"}));
    EXPECT_EQ(selectedText(rcv), "");
    hands.click(onReceived("D"));
    deleteKey(rcv);
    EXPECT_EQ(selectedText(rcv), kRoot);
    EXPECT_EQ(window.lvwTRObject.columns().front().text, "TRMessage");
}

TEST_F(ModelTrees, TakeTheItemsOfADeletedMessageAlong) {
    addRecord("A", kToHost, {"x", "y"});
    addRecord("B", kToHost, {"z"});
    window.displayModel();
    hands.click(onReceived("A"));
    deleteKey(rcv);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "B", "z"}));
    EXPECT_EQ(recordNames(), (Texts{"B"}));
}

TEST_F(ModelTrees, LoseTheViewOfAnItemThatWasAddedToAnEarlierMessage) {
    addRecord("A", kToHost);
    addRecord("B", kToHost);
    window.displayModel();
    addShownItem("A", "late");
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "B", "late"}));
    hands.click(onReceived("B"));
    deleteKey(rcv);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A"}));
    EXPECT_NE(model().getTRMessage("A")->getTRItem("late"), nullptr);
    window.displayModel();
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "late"}));
}

TEST_F(ModelTrees, GoToTheNodeAtTheSamePositionAfterADeletedItem) {
    addRecord("A", kToHost, {"x", "y", "z"});
    window.displayModel();
    hands.click(onReceived("A_x"));
    deleteKey(rcv);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "y", "z"}));
    EXPECT_EQ(selectedText(rcv), "y");
    EXPECT_EQ(window.current().item, "y");
    EXPECT_EQ(window.lvwTRObject.count(), 2U);
    hands.click(onReceived("A_z"));
    deleteKey(rcv);
    // Without a next sibling, to the message.
    EXPECT_EQ(selectedText(rcv), "A");
    EXPECT_EQ(window.current().item, "");
    EXPECT_EQ(model().getTRMessage("A")->TRItems().size(), 1U);
}

TEST_F(ModelTrees, KeepAnItemWhoseMessageIsGone) {
    addRecord("A", kToHost, {"x"});
    window.displayModel();
    hands.click(onReceived("A_x"));
    model().deleteTRMessage("A");
    deleteKey(rcv);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "x"}));
}

TEST_F(ModelTrees, KeepTheirRootsWhenDeleteIsPressedOnThem) {
    addRecord("A", kToHost);
    window.displayModel();
    hands.click(onReceived(kReceiveRoot));
    deleteKey(rcv);
    deleteKey(snd);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A"}));
    EXPECT_EQ(recordNames(), (Texts{"A"}));
}

TEST_F(ModelTrees, RemoveMarkedMessages) {
    addRecord("A", kToHost, {"x"});
    addRecord("B", kToHost);
    addRecord("C", kToHost, {"y"});
    window.displayModel();
    mark(received("A"));
    received("C").setForeColor(Color{255, 0, 255});
    hands.rightClick(onReceived(kReceiveRoot));
    EXPECT_TRUE(window.mnuRemoveErrorsRcvTRMsg.enabled());
    click(window.mnuRemoveErrorsRcvTRMsg);
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "B"}));
    EXPECT_EQ(recordNames(), (Texts{"B"}));
    EXPECT_EQ(window.current().message, kRoot);
    EXPECT_EQ(test::rowsOf(window.lvwTRObject), (Texts{"B||False|"}));
}

TEST_F(ModelTrees, LeaveMarkedNodesThatAreNoMessages) {
    addRecord("A", kToHost, {"B"});
    addRecord("B", kToHost);
    window.displayModel();
    mark(received("A_B"));
    mark(received(kReceiveRoot));
    window.showTRObjects(kReceiveRoot);
    hands.rightClick(onReceived(kReceiveRoot));
    EXPECT_FALSE(window.mnuRemoveErrorsRcvTRMsg.enabled());
    fire(window.mnuRemoveErrorsRcvTRMsg.onClick);
    EXPECT_EQ(recordNames(), (Texts{"A", "B"}));
}

TEST_F(ModelTrees, LoseAMarkWhereTheyArePressed) {
    addRecord("A", kToHost);
    window.displayModel();
    mark(received("A"));
    mark(received(kReceiveRoot));
    hands.click(onReceived("A"));
    EXPECT_EQ(received("A").foreColor(), kUnmarkedColor);
    hands.rightClick(onReceived(kReceiveRoot));
    EXPECT_EQ(received(kReceiveRoot).foreColor(), kErrorForeColor);
    EXPECT_FALSE(window.mnuRemoveErrorsRcvTRMsg.enabled());
}

TEST_F(ModelTrees, RemoveErrorsOfTheSentMessagesAlone) {
    addRecord("A", kToHost);
    addRecord("B", kToEquip);
    window.displayModel();
    mark(received("A"));
    mark(sent("B"));
    hands.rightClick(onSent(kSendRoot));
    click(window.mnuRemoveErrorsSndTRMsg);
    EXPECT_EQ(recordNames(), (Texts{"A"}));
    EXPECT_EQ(window.current().tree, &snd);
    EXPECT_EQ(window.current().message, kSendRoot);
}

TEST_F(ModelTrees, ClearOneSideAndLeaveTheOther) {
    addRecord("A", kToHost, {"B"});
    addRecord("A_B", kToEquip);
    addRecord("C", kToHost);
    window.displayModel();
    window.sequenceView().addSequence("Load");
    hands.rightClick(onReceived(kReceiveRoot));
    click(window.mnuClearAllRcvTRMsg);
    EXPECT_EQ(recordNames(), (Texts{"A_B"}));
    EXPECT_EQ(flat(rcv), (Texts{kRoot}));
    EXPECT_EQ(flat(snd).size(), 2U);
    EXPECT_EQ(received(kReceiveRoot).foreColor(), kModelRootColor);
    EXPECT_EQ(window.lvwTRObject.count(), 0U);
    EXPECT_EQ(window.lvwSequence.count(), 1U);
}

TEST_F(ModelTrees, AreLeftAloneByNamesThatAreNotInTheModel) {
    window.displayAddedTRMessage("None");
    window.displayUpdatedTRMessage("None");
    window.displayAddedTRItem("None", "x");
    EXPECT_EQ(flat(rcv), (Texts{kRoot}));
    EXPECT_EQ(window.current().message, kRoot);
}

TEST_F(ModelTrees, ShowNoMessageOfAnotherDirection) {
    addRecord("A", 3);
    window.displayAddedTRMessage("A");
    window.displayUpdatedTRMessage("A");
    EXPECT_EQ(flat(rcv), (Texts{kRoot}));
    EXPECT_EQ(flat(snd), (Texts{std::string(kSendRoot)}));
    EXPECT_EQ(window.current().message, "A");
}

TEST_F(ModelTrees, ShowAnAddedMessageOnce) {
    addRecord("A", kToHost, {"PORT"});
    window.displayAddedTRMessage("A");
    EXPECT_EQ(flat(rcv), (Texts{kRoot, "A", "PORT"}));
    EXPECT_EQ(received("A_PORT").image(), kDefaultItemPicture);
    EXPECT_EQ(selectedText(rcv), "A");
    EXPECT_EQ(window.current().message, "A");
    window.displayAddedTRMessage("A");
    EXPECT_EQ(flat(rcv).size(), 3U);
}

TEST_F(ModelTrees, ShowAnAddedItemWithTheUserPictureUntilTheyAreRebuilt) {
    addRecord("A", kToHost);
    window.displayModel();
    addShownItem("A", "PORT");
    EXPECT_EQ(received("A_PORT").image(), kUserItemPicture);
    EXPECT_EQ(window.lvwTRObject.rows().front()->image(), kDefaultItemPicture);
    EXPECT_EQ(window.current().message, "A");
    EXPECT_EQ(window.current().item, "PORT");
    EXPECT_EQ(selectedText(rcv), kRoot);
    window.displayModel();
    EXPECT_EQ(received("A_PORT").image(), kDefaultItemPicture);
}

TEST_F(ModelTrees, ShowTheItemsOfASentMessageInTheTableAlone) {
    addRecord("B", kToEquip);
    window.displayModel();
    addShownItem("B", "x");
    EXPECT_EQ(flat(snd).size(), 2U);
    EXPECT_EQ(test::rowsOf(window.lvwTRObject), (Texts{"x|||"}));
}

TEST_F(ModelTrees, OfNoProjectHoldTheirRoots) {
    state.TRModelStore.reset();
    window.displayModel();
    window.clearAllTRMsgDef();
    EXPECT_EQ(flat(rcv), (Texts{kRoot}));
    EXPECT_FALSE(window.TRMessageExists("A"));
    EXPECT_EQ(window.getDirectionText("A"), "");
    EXPECT_EQ(window.current().tree, nullptr);
}

TEST_F(ModelTrees, ReportTheDirectionOfAMessageInWords) {
    addRecord("A", kToHost);
    addRecord("B", kToEquip);
    addRecord("C", 0);
    EXPECT_EQ(window.getDirectionText("A"), "ToHost");
    EXPECT_EQ(window.getDirectionText("B"), "ToEquip");
    EXPECT_EQ(window.getDirectionText("C"), "");
    EXPECT_EQ(window.getDirectionText("a"), "");
}

} // namespace
} // namespace zb
