#include "unit/editor/tree_commands_desk.h"

#include <ostream>

namespace zb {
namespace {

TEST_F(TreeCommandsTest, CopyTakesAMessageFromAnyOfItsRootNodes) {
    Node& message = addMessage("A: S1 F1 H->E", {"L 1", "  U2 1 x 0"}, "text");
    for (Node* node : {&message, message.previous(), message.previous()->previous()}) {
        window.clipboard().clear();
        copyToClipboard(*node);
        EXPECT_EQ(clipboardOutline(), (Lines{"", "text", "A: S1 F1 H->E", "  L 1", "    U2 1 x 0"}));
        EXPECT_EQ(window.clipboard().find("A"), nullptr);
    }
    EXPECT_EQ(treeOutline().size(), 5U);
}

TEST_F(TreeCommandsTest, CopyTakesAnItemWithAllBelowIt) {
    Node& message = addMessage("A: S1 F1 H->E", {"L 1 list", "  L 1", "    U2 1 x 0"});
    copyToClipboard(*message.child());
    EXPECT_EQ(clipboardOutline(), (Lines{"L 1 list", "  L 1", "    U2 1 x 0"}));
    EXPECT_TRUE(window.clipboard().firstRoot()->expanded());
}

TEST_F(TreeCommandsTest, CopyAndCutWithoutASelectionKeepTheClipboard) {
    Node& message = addMessage("A: S1 F1 H->E");
    copyToClipboard(message);
    select(nullptr);
    run(menu.copy);
    run(menu.cut);
    run(menu.remove);
    EXPECT_EQ(clipboardOutline().size(), 3U);
    EXPECT_EQ(tree().count(), 3U);
    expectNoBox();
}

TEST_F(TreeCommandsTest, DeletingWithoutASelectionSaysSo) {
    window.treeCommands.deleteSelectedNode();
    expectBox("No selected message");
}

struct ItemCut {
    std::string list;
    Lines items;
    int cut;
    std::string listAfter;
    std::string selectedAfter;
};

std::ostream& operator<<(std::ostream& out, const ItemCut& row) {
    return out << row.list << " less item " << row.cut;
}

class CutItem : public TreeCommandsTest, public testing::WithParamInterface<ItemCut> {};

TEST_P(CutItem, BringsACountUpToDateAndSelectsANeighbour) {
    Lines items{GetParam().list};
    for (const std::string& item : GetParam().items)
        items.push_back("  " + item);
    Node& message = addMessage("A: S1 F1 H->E", items);
    Node& list = *message.child();
    Node* item = list.child();
    for (int i = 1; i < GetParam().cut; ++i)
        item = item->next();
    const std::string text = item->text();
    clickNode(item);
    run(menu.cut);
    EXPECT_EQ(list.text(), GetParam().listAfter);
    EXPECT_EQ(tree().selected()->text(), GetParam().selectedAfter);
    EXPECT_EQ(window.clipboard().firstRoot()->text(), text);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CutItem,
    testing::Values(ItemCut{"L 3", {"U2 1 a 0", "U2 1 b 0", "U2 1 c 0"}, 1, "L 2", "U2 1 b 0"},
                    ItemCut{"L 3", {"U2 1 a 0", "U2 1 b 0", "U2 1 c 0"}, 2, "L 2", "U2 1 c 0"},
                    ItemCut{"L 3 n", {"U2 1 a 0", "U2 1 b 0", "U2 1 c 0"}, 3, "L 2 n", "U2 1 b 0"},
                    ItemCut{"L 20V n", {"U2 1 a 0"}, 1, "L 20V n", "L 20V n"},
                    ItemCut{"L  7", {"U2 1 a 0", "U2 1 b 0"}, 1, "L 1 7", "U2 1 b 0"}));

TEST_F(TreeCommandsTest, CutOfTheLastItemShowsTheMessage) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 a 0"});
    clickNode(message.child());
    run(menu.cut);
    EXPECT_EQ(tree().selected(), &message);
    EXPECT_TRUE(window.cmdMsgChange.enabled());
}

TEST_F(TreeCommandsTest, CutOfAMessageShowsTheNextOne) {
    for (const int steps : {0, 1, 2}) {
        window.newEditorProject();
        Node& first = addMessage("A: S1 F1 H->E", {"U2 1 x 0"}, "a");
        addMessage("B: S2 F3 H->E", {}, "b");
        Node* clicked = &first;
        for (int i = 0; i < steps; ++i)
            clicked = clicked->previous();
        clickNode(clicked);
        run(menu.cut);
        EXPECT_EQ(treeOutline(), (Lines{"", "b", "B: S2 F3 H->E"}));
        EXPECT_EQ(tree().selected(), tree().find("B"));
        EXPECT_EQ(window.txtMsgName.text(), "B");
        EXPECT_EQ(window.cboSECSMessage.entries(), Lines{"B"});
        EXPECT_EQ(clipboardOutline(), (Lines{"", "a", "A: S1 F1 H->E", "  U2 1 x 0"}));
    }
}

TEST_F(TreeCommandsTest, DeleteOfTheLastMessageShowsTheOneBefore) {
    Node& first = addMessage("A: S1 F1 H->E");
    Node& last = addMessage("B: S2 F3 H->E");
    clickNode(&last);
    run(menu.remove);
    EXPECT_EQ(tree().selected(), &first);
    EXPECT_EQ(window.txtMsgName.text(), "A");
    run(menu.remove);
    EXPECT_EQ(tree().selected(), nullptr);
    EXPECT_EQ(window.txtMsgName.text(), "A");
    EXPECT_TRUE(tree().empty());
    EXPECT_EQ(clipboardOutline(), (Lines{"", "", "A: S1 F1 H->E"}));
}

TEST_F(TreeCommandsTest, DeleteKeepsATreeThatLacksTheSeparator) {
    Node& message = tree().add(nullptr, Relation::Last, "A: S1 F1 H->E");
    select(&message);
    run(menu.remove);
    EXPECT_EQ(treeOutline(), Lines{"A: S1 F1 H->E"});
}

/// A tree with a node of every role, and what a paste does there.
struct PasteRow {
    std::string clipboard; ///< "message", "item", "list" or "nothing"
    std::string place;     ///< Text of the selected node; "none" selects nothing
    PastePosition position;
    std::string outcome; ///< "refused", "silent", or a Text that the tree has afterwards
};

std::ostream& operator<<(std::ostream& out, const PasteRow& row) {
    return out << row.clipboard << " at " << row.place << ", position " << static_cast<int>(row.position);
}

class Paste : public TreeCommandsTest, public testing::WithParamInterface<PasteRow> {
public:
    Node* nodeReading(std::string_view text) {
        for (int index = 1; Node* node = tree().at(index); ++index) {
            if (node->text() == text)
                return node;
        }
        return nullptr;
    }
};

TEST_P(Paste, GoesWhereItMay) {
    addMessage("T: S1 F1 H->E",
               {"U2 1 direct 0", "L 9 fixed", "  U2 1 infixed 0", "L 5V full", "  U2 1 invar 0", "L 5V empty",
                "U2 1 odd 0", "  U2 1 belowodd 0"},
               "text");
    Node& source = addMessage("P: S2 F3 H->E", {"U2 1 pasted 0", "L 0 plist"});
    if (GetParam().clipboard == "message")
        copyToClipboard(source);
    else if (GetParam().clipboard == "item")
        copyToClipboard(*source.child());
    const Lines before = treeOutline();
    select(GetParam().place == "none" ? nullptr : nodeReading(GetParam().place));
    window.treeCommands.pasteFromTemp(GetParam().position);
    if (GetParam().outcome == "refused")
        expectBox("You cannot paste");
    expectNoBox();
    const bool nothingPasted = GetParam().outcome == "refused" || GetParam().outcome == "silent";
    EXPECT_EQ(treeOutline() == before, nothingPasted);
    EXPECT_EQ(nodeReading(GetParam().outcome) != nullptr, !nothingPasted);
}

constexpr PastePosition kPrevious = PastePosition::Previous;
constexpr PastePosition kNext = PastePosition::Next;
constexpr PastePosition kChild = PastePosition::Child;

INSTANTIATE_TEST_SUITE_P(Message, Paste,
                         testing::Values(PasteRow{"nothing", "T: S1 F1 H->E", kNext, "silent"},
                                         PasteRow{"nothing", "none", kNext, "silent"},
                                         PasteRow{"message", "none", kNext, "refused"},
                                         PasteRow{"message", "T: S1 F1 H->E", kPrevious, "PNew1: S2 F3 H->E"},
                                         PasteRow{"message", "T: S1 F1 H->E", kNext, "PNew1: S2 F3 H->E"},
                                         PasteRow{"message", "text", kNext, "PNew1: S2 F3 H->E"},
                                         PasteRow{"message", "T: S1 F1 H->E", kChild, "refused"},
                                         PasteRow{"message", "U2 1 direct 0", kPrevious, "silent"},
                                         PasteRow{"message", "U2 1 direct 0", kNext, "silent"},
                                         PasteRow{"message", "L 5V empty", kChild, "silent"}));

INSTANTIATE_TEST_SUITE_P(Item, Paste,
                         testing::Values(PasteRow{"item", "none", kChild, "refused"},
                                         PasteRow{"item", "T: S1 F1 H->E", kPrevious, "refused"},
                                         PasteRow{"item", "T: S1 F1 H->E", kNext, "refused"},
                                         PasteRow{"item", "T: S1 F1 H->E", kChild, "U2 1 pasted 0"},
                                         PasteRow{"item", "text", kChild, "U2 1 pasted 0"},
                                         PasteRow{"item", "U2 1 direct 0", kPrevious, "U2 1 pasted 0"},
                                         PasteRow{"item", "U2 1 direct 0", kNext, "U2 1 pasted 0"},
                                         PasteRow{"item", "U2 1 infixed 0", kPrevious, "L 2 fixed"},
                                         PasteRow{"item", "U2 1 infixed 0", kNext, "L 2 fixed"},
                                         PasteRow{"item", "U2 1 invar 0", kPrevious, "refused"},
                                         PasteRow{"item", "U2 1 invar 0", kNext, "refused"},
                                         PasteRow{"item", "U2 1 belowodd 0", kPrevious, "refused"},
                                         PasteRow{"item", "U2 1 belowodd 0", kNext, "refused"},
                                         PasteRow{"item", "U2 1 direct 0", kChild, "refused"},
                                         PasteRow{"item", "L 9 fixed", kChild, "L 2 fixed"},
                                         PasteRow{"item", "L 5V full", kChild, "refused"},
                                         PasteRow{"item", "L 5V empty", kChild, "U2 1 pasted 0"}));

TEST_F(TreeCommandsTest, PasteOfAnItemStandsWhereItWasAskedFor) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 a 0", "U2 1 b 0"});
    copyToClipboard(*message.child());
    select(message.child());
    run(menu.pastePrevious);
    run(menu.pasteNext);
    EXPECT_EQ(outline(message.child()), (Lines{"U2 1 a1 0", "U2 1 a 0", "U2 1 a11 0", "U2 1 b 0"}));
    EXPECT_EQ(message.child()->foreColor(), kEditorForeColor);
    EXPECT_TRUE(message.child()->expanded());
}

TEST_F(TreeCommandsTest, PasteOfAMessageStandsBeforeOrAfterTheWholeOther) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 x 0"}, "a");
    addMessage("B: S1 F3 H->E", {}, "b");
    copyToClipboard(message);
    select(tree().find("B"));
    run(menu.pastePrevious);
    run(menu.pasteNext);
    EXPECT_EQ(treeOutline(),
              (Lines{"", "a", "A: S1 F1 H->E", "  U2 1 x 0", "", "a", "ANew1: S1 F1 H->E", "  U2 1 x 0", "",
                     "b", "B: S1 F3 H->E", "", "a", "ANew1New1: S1 F1 H->E", "  U2 1 x 0"}));
    EXPECT_EQ(window.cboSECSMessage.entries(), (Lines{"A", "B", "ANew1", "ANew1New1"}));
    EXPECT_TRUE(tree().find("ANew1")->previous()->bold());
    EXPECT_EQ(tree().find("ANew1")->text(), "ANew1: S1 F1 H->E");
}

TEST_F(TreeCommandsTest, TheClipboardOutlivesTheProject) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 x 0"}, "a");
    copyToClipboard(message);
    window.newEditorProject();
    Node& other = addMessage("B: S1 F3 H->E");
    select(&other);
    run(menu.pasteNext);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "B: S1 F3 H->E", "", "a", "A: S1 F1 H->E", "  U2 1 x 0"}));
}

TEST_F(TreeCommandsTest, DuplicateCopiesAMessageWithItsItems) {
    Node& message = addMessage("S1F1: S1 F1 H->E", {"L 1", "  U2 1 x 0"});
    select(&message);
    run(menu.duplicate);
    EXPECT_EQ(treeOutline(), (Lines{"", "", "S1F1: S1 F1 H->E", "  L 1", "    U2 1 x 0", "", "",
                                    "S1F1New1: S1 F1 H->E", "  L 1", "    U2 1 x 0"}));
    EXPECT_EQ(window.cboSECSMessage.entries(), (Lines{"S1F1", "S1F1New1"}));
}

struct DuplicateRow {
    std::string item;
    std::string copy;
};

std::ostream& operator<<(std::ostream& out, const DuplicateRow& row) {
    return out << row.item;
}

class DuplicateItem : public TreeCommandsTest, public testing::WithParamInterface<DuplicateRow> {};

TEST_P(DuplicateItem, MakesTheNameUnique) {
    Node& message = addMessage("A: S1 F1 H->E", {GetParam().item});
    select(message.child());
    run(menu.duplicate);
    EXPECT_EQ(outline(message.child()), (Lines{GetParam().item, GetParam().copy}));
}

INSTANTIATE_TEST_SUITE_P(
    Names, DuplicateItem,
    testing::Values(DuplicateRow{"U2 1 rate 0", "U2 1 rate1 0"}, DuplicateRow{"U2 1 0", "U2 1 0"},
                    DuplicateRow{"U2 1", "U2 1"}, DuplicateRow{"L 2 group", "L 2 group"},
                    DuplicateRow{"U2 1 rate", "U2 1 rate"}, DuplicateRow{"L 2 group [K]", "L 2 group1 [K]"},
                    DuplicateRow{"A 3 'abc'", "A 3 'abc'"}, DuplicateRow{"A 9 a ' a a '", "A 9 a1 ' a1 a '"},
                    DuplicateRow{"BOOLEAN 1 true", "BOOLEAN 1 true"},
                    DuplicateRow{"BOOLEAN 1 flag True", "BOOLEAN 1 flag1 True"}));

TEST_F(TreeCommandsTest, NamesAreUniqueOnTheWayIntoTheClipboardToo) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 a 0", "U2 1 a 0", "U2 1 a1 0"});
    copyToClipboard(message);
    EXPECT_EQ(clipboardOutline(),
              (Lines{"", "", "A: S1 F1 H->E", "  U2 1 a 0", "  U2 1 a1 0", "  U2 1 a11 0"}));
}

TEST_F(TreeCommandsTest, AnItemWithoutATextEndsACopyWhereItStands) {
    Node& message =
        addMessage("A: S1 F1 H->E", {"L 3", "  U2 1 a 0", "  U2 1 b 0", "  U2 1 c 0", "U2 1 d 0"});
    message.child()->child()->next()->setText("");
    copyToClipboard(message);
    expectBox("Occur error!");
    expectNoBox();
    EXPECT_EQ(clipboardOutline(), (Lines{"", "", "A: S1 F1 H->E", "  L 3", "    U2 1 a 0"}));
}

TEST_F(TreeCommandsTest, AnItemWithoutATextIsNotPasted) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 a 0"});
    window.clipboard().add(nullptr, Relation::Last, "");
    select(&message);
    run(menu.pasteChild);
    expectBox("Occur error!");
    EXPECT_EQ(outline(message.child()), Lines{"U2 1 a 0"});
}

} // namespace
} // namespace zb
