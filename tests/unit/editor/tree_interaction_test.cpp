#include "unit/editor/editor_desk.h"

#include <ostream>

namespace zb {
namespace {

class TreeInteractionTest : public EditorDesk {
public:
    void clickEachRootNodeOf(Node& message, const std::function<void()>& look) {
        for (Node* node : {&message, message.previous(), message.previous()->previous()}) {
            window.InitMsg();
            clickNode(node);
            look();
        }
    }
    std::string typeShown() {
        for (const ToolbarButton& button : window.tbritemType.buttons()) {
            if (button.value() == 1)
                return button.key();
        }
        return {};
    }
};

TEST_F(TreeInteractionTest, AnyRootNodeShowsItsMessage) {
    Node& message = addMessage("A: S1 F3 W <NL> H<-E", {}, "text");
    addMessage("B: S1 F1 H->E");
    clickEachRootNodeOf(message, [this] {
        EXPECT_EQ(window.txtStream.text(), "1");
        EXPECT_EQ(window.txtFunction.text(), "3");
        EXPECT_EQ(window.txtMsgName.text(), "A");
        EXPECT_EQ(window.txtDescription.text(), "text");
        EXPECT_TRUE(window.chkWait.checked());
        EXPECT_FALSE(window.chkReply.checked());
        EXPECT_TRUE(window.chkNoLogging.checked());
        EXPECT_TRUE(window.optEqp.on());
        EXPECT_FALSE(window.picItem.enabled());
        EXPECT_TRUE(window.cmdMsgChange.enabled());
        EXPECT_TRUE(window.chkWait.enabled());
    });
    expectNoBox();
}

TEST_F(TreeInteractionTest, AMessageWithoutADescriptionIsFoundFromItsSeparator) {
    Node& message = addMessage("A: S1 F2 H->E");
    clickEachRootNodeOf(message, [this] {
        EXPECT_EQ(window.txtMsgName.text(), "A");
        EXPECT_FALSE(window.chkWait.enabled());
        EXPECT_FALSE(window.chkReply.enabled());
    });
}

TEST_F(TreeInteractionTest, AStreamThatIsNoNumberBecomes90) {
    Node& message = addMessage("A: Sx F1 H->E");
    clickNode(&message);
    expectBox("You must fill the stream with numeric values\r\nChange the stream value",
              BoxIcon::Information);
    expectNoBox();
    EXPECT_EQ(window.txtStream.text(), "90");
    EXPECT_TRUE(window.txtStream.focused());
    EXPECT_TRUE(message.text().starts_with("A: S90 F"));
}

TEST_F(TreeInteractionTest, AFunctionThatIsNoNumberBecomes90) {
    Node& message = addMessage("A: S1 F-1 H->E");
    clickNode(&message);
    expectBox("You must fill the function with numeric values\r\nChange the function value",
              BoxIcon::Information);
    expectNoBox();
    EXPECT_EQ(window.txtFunction.text(), "90");
    EXPECT_TRUE(window.txtFunction.focused());
    EXPECT_EQ(message.text(), "A: S1 F90 H->E");
}

TEST_F(TreeInteractionTest, ABadStreamIsCorrectedFromAnyRootNodeAndHurtsNoOtherMessage) {
    Node& other = addMessage("O: S1 F1 H->E", {}, "other");
    Node& message = addMessage("A: Sx F1 H->E");
    clickNode(message.previous()->previous());
    EXPECT_EQ(other.text(), "O: S1 F1 H->E");
    EXPECT_TRUE(message.text().starts_with("A: S90 F"));
}

TEST_F(TreeInteractionTest, AnItemShowsItsMessageWithTheDirectionReversed) {
    Node& message = addMessage("A: S1 F3 <R> H->E", {"U2 1 x 5"}, "text");
    clickNode(message.child());
    EXPECT_EQ(window.txtMsgName.text(), "A");
    EXPECT_EQ(window.txtDescription.text(), "text");
    EXPECT_EQ(window.txtStream.text(), "1");
    EXPECT_EQ(window.txtFunction.text(), "3");
    EXPECT_FALSE(window.chkWait.checked());
    EXPECT_TRUE(window.chkReply.checked());
    EXPECT_TRUE(window.optEqp.on());
    EXPECT_FALSE(window.cmdMsgChange.enabled());
    EXPECT_TRUE(window.picItem.enabled());
    clickNode(&message);
    EXPECT_TRUE(window.optHost.on());
}

struct DirectionRow {
    std::string mark;
    std::string ofMessage;
    std::string ofItem;
};

std::ostream& operator<<(std::ostream& out, const DirectionRow& row) {
    return out << row.mark;
}

class DirectionShown : public TreeInteractionTest, public testing::WithParamInterface<DirectionRow> {
public:
    std::string optionOn() {
        for (const Option* option : window.directions.options()) {
            if (option->on())
                return option->name();
        }
        return {};
    }
};

TEST_P(DirectionShown, DependsOnWhatIsClicked) {
    Node& message = addMessage("A: S1 F3 " + GetParam().mark, {"U2 1 x 5"});
    clickNode(&message);
    EXPECT_EQ(optionOn(), GetParam().ofMessage);
    clickNode(message.child());
    EXPECT_EQ(optionOn(), GetParam().ofItem);
}

INSTANTIATE_TEST_SUITE_P(Table, DirectionShown,
                         testing::Values(DirectionRow{"H->E", "optHost", "optEqp"},
                                         DirectionRow{"H<-E", "optEqp", "optHost"},
                                         DirectionRow{"H<->E", "optBoth", "optBoth"}));

TEST_F(TreeInteractionTest, AnItemFillsTheItemPane) {
    Node& message = addMessage("A: S1 F3 H->E", {"U2 3V x 5 6 [K]"});
    clickNode(message.child());
    EXPECT_EQ(window.txtItemName.text(), "x");
    EXPECT_EQ(window.txtItemCount.text(), "3");
    EXPECT_FALSE(window.chkFix.checked());
    EXPECT_EQ(window.txtInit.text(), "5 6");
    EXPECT_TRUE(window.txtInit.enabled());
    EXPECT_TRUE(window.chkIsItemKey.checked());
    EXPECT_TRUE(window.chkIsItemKey.enabled());
    EXPECT_EQ(typeShown(), "U2");
    EXPECT_EQ(message.child()->text(), "U2 3V x 5 6 [K]");
}

TEST_F(TreeInteractionTest, AClickRewritesAnItemInItsCanonicalForm) {
    Node& message = addMessage("A: S1 F3 H->E", {"U1 3 x 1"});
    clickNode(message.child());
    EXPECT_EQ(message.child()->text(), "U1 3 x 1 0 0");
}

TEST_F(TreeInteractionTest, AListHasNoValueAndNoKey) {
    Node& message = addMessage("A: S1 F3 H->E", {"U2 1 x 5 [K]", "L 0 list"});
    clickNode(message.child());
    clickNode(message.lastChild());
    EXPECT_EQ(window.txtInit.text(), "");
    EXPECT_FALSE(window.txtInit.enabled());
    EXPECT_FALSE(window.chkIsItemKey.checked());
    EXPECT_FALSE(window.chkIsItemKey.enabled());
    EXPECT_TRUE(window.chkFix.checked());
    EXPECT_EQ(typeShown(), "List");
    EXPECT_EQ(message.child()->text(), "U2 1 x 5 [K]");
    EXPECT_EQ(message.lastChild()->text(), "L 0 list");
}

TEST_F(TreeInteractionTest, AnItemInAVariableListCannotBeTheKey) {
    Node& message = addMessage("A: S1 F3 H->E", {"L 5V list", "  U2 1 x 5"});
    clickNode(message.child()->child());
    EXPECT_FALSE(window.chkIsItemKey.enabled());
    EXPECT_FALSE(window.chkIsItemKey.checked());
}

TEST_F(TreeInteractionTest, AFixedListHealsItsCountAfterAFixedItem) {
    Node& message =
        addMessage("A: S1 F3 H->E", {"L 2", "  U2 1 a 0", "  U2 1 b 0", "  U2 1 c 0", "U2 1 fixed 0"});
    clickNode(message.lastChild());
    clickNode(message.child());
    EXPECT_EQ(message.child()->text(), "L 3");
    EXPECT_EQ(window.txtItemCount.text(), "3");
}

TEST_F(TreeInteractionTest, AFixedListTakesTheVOfAVariableItemShownBefore) {
    Node& message =
        addMessage("A: S1 F3 H->E", {"L 2", "  U2 1 a 0", "  U2 1 b 0", "  U2 1 c 0", "U2 1V var 0"});
    clickNode(message.lastChild());
    clickNode(message.child());
    EXPECT_EQ(message.child()->text(), "L 3V");
    EXPECT_TRUE(window.chkFix.checked());
}

TEST_F(TreeInteractionTest, AVariableListWithTwoSubItemsIsToldAtEveryClick) {
    Node& message = addMessage("A: S1 F3 H->E", {"L 5V list", "  U2 1 a 0", "  U2 1 b 0"});
    for (int i = 0; i < 2; ++i) {
        clickNode(message.child());
        expectBox("There are too many sub items.");
        EXPECT_EQ(window.txtItemCount.text(), "5");
    }
    EXPECT_EQ(message.child()->children(), 2);
    EXPECT_EQ(message.child()->text(), "L 5V list");
}

TEST_F(TreeInteractionTest, AClickClearsTheErrorMark) {
    Node& message = addMessage("A: S1 F3 H->E", {"U2 1 a 0"});
    for (Node* node : {&message, message.child()}) {
        node->setBackColor(kErrorBackColor);
        clickNode(node);
        EXPECT_EQ(node->backColor(), std::nullopt);
    }
}

TEST_F(TreeInteractionTest, TheNextClickOnAnItemBringsAHiddenItemPaneBack) {
    Node& message = addMessage("A: S1 F3 H->E", {"U2 1 a 0"});
    window.hideItemPane();
    clickNode(&message);
    EXPECT_FALSE(window.picItem.visible());
    clickNode(message.child());
    EXPECT_TRUE(window.picItem.visible());
}

TEST_F(TreeInteractionTest, DeleteWorksOnlyWhileTheTreeHasTheFocus) {
    EXPECT_FALSE(window.editEntries.remove.enabled());
    Node& message = addMessage("A: S1 F3 H->E");
    clickNode(&message);
    EXPECT_TRUE(window.editEntries.remove.enabled());
    click(window.txtStream);
    EXPECT_FALSE(window.editEntries.remove.enabled());
    EXPECT_TRUE(window.popEntries.remove.enabled());
}

/// Which entries are enabled: P paste previous, N paste next, C paste child, I item, S sub item, D duplicate.
struct StateRow {
    std::string clipboard; ///< "nothing", "message" or "item"
    std::string place;
    std::string enabled;
};

std::ostream& operator<<(std::ostream& out, const StateRow& row) {
    return out << row.place << " with " << row.clipboard;
}

class MenuState : public TreeInteractionTest, public testing::WithParamInterface<StateRow> {
public:
    static std::string enabledOf(const StructureEntries& entries) {
        std::string letters;
        letters += entries.pastePrevious.enabled() ? "P" : "";
        letters += entries.pasteNext.enabled() ? "N" : "";
        letters += entries.pasteChild.enabled() ? "C" : "";
        letters += entries.item.enabled() ? "I" : "";
        letters += entries.child.enabled() ? "S" : "";
        letters += entries.duplicate.enabled() ? "D" : "";
        return letters;
    }
    Node* nodeReading(std::string_view text) {
        for (int index = 1; Node* node = tree().at(index); ++index) {
            if (node->text() == text)
                return node;
        }
        return nullptr;
    }
};

TEST_P(MenuState, FollowsTheSelectedNodeAndTheClipboard) {
    addMessage(
        "T: S1 F1 H->E",
        {"U2 1 direct 0", "L 1 fixed", "  U2 1 infixed 0", "L 5V full", "  U2 1 invar 0", "L 5V empty"},
        "text");
    if (GetParam().clipboard == "message")
        window.treeCommands.copyNodeToTemp(*tree().find("T"));
    else if (GetParam().clipboard == "item")
        window.treeCommands.copyNodeToTemp(*tree().find("T")->child());
    Node* place = nodeReading(GetParam().place);
    clickNode(place);
    EXPECT_EQ(enabledOf(window.editEntries), GetParam().enabled);
    rightClickTree();
    EXPECT_EQ(enabledOf(window.popEntries), GetParam().enabled);
    EXPECT_TRUE(window.mnuPopup.isOpen());
}

INSTANTIATE_TEST_SUITE_P(
    Table, MenuState,
    testing::Values(StateRow{"nothing", "T: S1 F1 H->E", "ID"}, StateRow{"message", "T: S1 F1 H->E", "PNID"},
                    StateRow{"item", "T: S1 F1 H->E", "CID"}, StateRow{"message", "text", "PNID"},
                    StateRow{"item", "", "CID"}, StateRow{"nothing", "U2 1 direct 0", "PNID"},
                    StateRow{"item", "L 1 fixed", "PNCISD"}, StateRow{"nothing", "U2 1 infixed 0", "PNID"},
                    StateRow{"item", "L 5V full", "PNID"}, StateRow{"item", "L 5V empty", "PNCISD"},
                    StateRow{"item", "U2 1 invar 0", "I"}));

TEST_F(TreeInteractionTest, ThePopupNeedsASelectionAndSelectsNothing) {
    Node& message = addMessage("A: S1 F3 H->E", {"U2 1 a 0"});
    rightClickTree(&message);
    EXPECT_FALSE(window.mnuPopup.isOpen());
    EXPECT_EQ(tree().selected(), nullptr);
    clickNode(&message);
    rightClickTree(message.child());
    EXPECT_TRUE(window.mnuPopup.isOpen());
    EXPECT_EQ(tree().selected(), &message);
    EXPECT_EQ(hands.click(Target::whole(window.popEntries.item)), "");
    EXPECT_FALSE(window.mnuPopup.isOpen());
    EXPECT_EQ(outline(message.child()), (Lines{"U2 1 a 0", "U2 1 new5 0"}));
}

} // namespace
} // namespace zb
