#include "modeler/model_nodes.h"
#include "unit/modeler/modeler_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::ModelerDesk;
using test::rowsOf;
using Texts = std::vector<std::string>;

class TRObjectTable : public ::testing::Test, protected ModelerDesk {
protected:
    TRObjectTable() {
        addRecord("A", kToHost, {"x", "y"});
        addRecord("B", kToHost, {"x"});
        addRecord("C", kToEquip);
        window.displayModel();
    }
    /// Which entries of the pop-up are enabled, by their captions.
    Texts enabledEntries() {
        Texts names;
        for (const MenuEntry* entry : entries) {
            if (entry->enabled() && entry->visible())
                names.push_back(entry->name());
        }
        return names;
    }
    List& table = window.lvwTRObject;
    std::vector<MenuEntry*> entries{&window.mnuAddTRObjTRMsg,     &window.mnuUpdateTRObjTRMsg,
                                    &window.mnuDeleteTRObjTRMsg,  &window.mnuAddTRObjTRItem,
                                    &window.mnuUpdateTRObjTRItem, &window.mnuDeleteTRObjTRItem};
};

TEST_F(TRObjectTable, OffersAMessageBesideTheRowsOfMessages) {
    hands.rightClick(Target::whole(table));
    EXPECT_TRUE(window.mnuTRObjectPopup.isOpen());
    EXPECT_EQ(enabledEntries(), (Texts{"mnuAddTRObjTRMsg"}));
}

TEST_F(TRObjectTable, OffersTheCommandsOfAMessageOnItsRow) {
    hands.rightClick(onRow(table, 2));
    EXPECT_EQ(enabledEntries(), (Texts{"mnuUpdateTRObjTRMsg", "mnuDeleteTRObjTRMsg", "mnuAddTRObjTRItem"}));
}

TEST_F(TRObjectTable, OffersAnItemBesideTheRowsOfItems) {
    hands.click(onReceived("A"));
    hands.rightClick(Target::whole(table));
    EXPECT_EQ(enabledEntries(), (Texts{"mnuAddTRObjTRItem"}));
}

TEST_F(TRObjectTable, OffersTheCommandsOfAnItemOnItsRow) {
    hands.click(onReceived("A"));
    hands.rightClick(onRow(table, 2));
    EXPECT_EQ(enabledEntries(), (Texts{"mnuUpdateTRObjTRItem", "mnuDeleteTRObjTRItem"}));
    EXPECT_EQ(window.current().message, "A");
    EXPECT_EQ(window.current().item, "y");
}

TEST_F(TRObjectTable, HidesTheItemsBesideTheSentMessages) {
    hands.click(onSent(kSendRoot));
    hands.rightClick(onRow(table, 1));
    EXPECT_EQ(enabledEntries(), (Texts{"mnuUpdateTRObjTRMsg", "mnuDeleteTRObjTRMsg"}));
    EXPECT_FALSE(window.mnuAddTRObjTRItem.visible());
    EXPECT_FALSE(window.mnuDeleteTRObjTRItem.visible());
    hands.click(onReceived(kReceiveRoot));
    hands.rightClick(Target::whole(table));
    EXPECT_TRUE(window.mnuAddTRObjTRItem.visible());
    EXPECT_FALSE(window.mnuAddTRObjTRItem.enabled());
}

TEST_F(TRObjectTable, TakesTheMessageOfItsRowWhileThePopupIsOpen) {
    hands.rightClick(onRow(table, 2));
    EXPECT_EQ(window.current().message, "B");
    hands.dismiss();
    EXPECT_EQ(window.current().message, kReceiveRoot);
}

TEST_F(TRObjectTable, DeletesTheMessageOfItsRow) {
    hands.rightClick(onRow(table, 1));
    click(window.mnuDeleteTRObjTRMsg);
    EXPECT_EQ(flat(window.tvwRcvTRMsg), (Texts{std::string(kReceiveRoot), "B", "x"}));
    EXPECT_EQ(rowsOf(table), (Texts{"B||False|"}));
    EXPECT_EQ(recordNames(), (Texts{"B", "C"}));
    EXPECT_EQ(selectedText(window.tvwRcvTRMsg), kReceiveRoot);
    EXPECT_EQ(window.current().message, kReceiveRoot);
    EXPECT_FALSE(window.mnuTRObjectPopup.isOpen());
}

TEST_F(TRObjectTable, DeletesAMessageWhoseNodeIsGone) {
    hands.rightClick(onRow(table, 1));
    window.tvwRcvTRMsg.nodes().remove(received("A"));
    click(window.mnuDeleteTRObjTRMsg);
    EXPECT_EQ(rowsOf(table), (Texts{"B||False|"}));
    EXPECT_EQ(recordNames(), (Texts{"B", "C"}));
}

TEST_F(TRObjectTable, DeletesASentMessage) {
    hands.click(onSent(kSendRoot));
    hands.rightClick(onRow(table, 1));
    click(window.mnuDeleteTRObjTRMsg);
    EXPECT_EQ(flat(window.tvwSndTRMsg), (Texts{std::string(kSendRoot)}));
    EXPECT_EQ(table.count(), 0U);
    EXPECT_EQ(recordNames(), (Texts{"A", "B"}));
}

TEST_F(TRObjectTable, DeletesTheItemOfItsRow) {
    hands.click(onReceived("A"));
    hands.rightClick(onRow(table, 1));
    click(window.mnuDeleteTRObjTRItem);
    EXPECT_EQ(flat(window.tvwRcvTRMsg), (Texts{std::string(kReceiveRoot), "A", "y", "B", "x"}));
    EXPECT_EQ(rowsOf(table), (Texts{"y|||"}));
    EXPECT_EQ(model().getTRMessage("A")->TRItems().size(), 1U);
    EXPECT_EQ(model().getTRMessage("B")->TRItems().size(), 1U);
    EXPECT_EQ(selectedText(window.tvwRcvTRMsg), "A");
}

TEST_F(TRObjectTable, HasNothingToOfferWithoutACurrentTree) {
    window.clearAllTRMsgDef();
    hands.rightClick(Target::whole(table));
    EXPECT_EQ(enabledEntries(), Texts());
    for (const MenuEntry* entry : entries)
        fire(entry->onClick);
    EXPECT_FALSE(messages.visible());
    EXPECT_FALSE(items.visible());
}

TEST_F(TRObjectTable, GivesItsRowsToTheSequences) {
    window.sequenceView().addSequence("Load");
    hands.drag(onRow(table, 2), onRow(window.lvwSequence, 1));
    EXPECT_EQ(rowsOf(window.lvwSequence), (Texts{"Load||", "1|ToHost|B"}));
}

TEST_F(TRObjectTable, FollowsTheArrowKeys) {
    hands.click(onReceived("A"));
    hands.click(onRow(table, 1));
    EXPECT_EQ(window.current().item, "x");
    hands.key(table, {kKeyDown, 0});
    EXPECT_EQ(window.current().item, "y");
}

} // namespace
} // namespace zb
