#include "unit/editor/tree_commands_desk.h"

#include <ostream>

namespace zb {
namespace {

using TreeInsertTest = TreeCommandsTest;

struct InsertRow {
    std::string place;
    bool child; ///< add sub item
    std::string box;
    std::string listAfter;
};

std::ostream& operator<<(std::ostream& out, const InsertRow& row) {
    return out << (row.child ? "sub item at " : "item at ") << row.place;
}

class Insert : public TreeCommandsTest, public testing::WithParamInterface<InsertRow> {};

TEST_P(Insert, GoesWhereItMay) {
    addMessage("T: S1 F1 H->E",
               {"U2 1 direct 0", "L 9 fixed", "  U2 1 infixed 0", "L 5V full", "  U2 1 invar 0", "L 5V empty",
                "U2 1 odd 0", "  U2 1 belowodd 0"},
               "text");
    Node* place = nullptr;
    for (int index = 1; Node* node = tree().at(index); ++index) {
        if (node->text() == GetParam().place)
            place = node;
    }
    ASSERT_NE(place, nullptr);
    select(place);
    const std::size_t before = tree().count();
    run(GetParam().child ? menu.child : menu.item);
    if (!GetParam().box.empty()) {
        expectBox(GetParam().box);
        EXPECT_EQ(tree().count(), before);
        return;
    }
    expectNoBox();
    ASSERT_EQ(tree().count(), before + 1);
    const Node& added = *tree().at(static_cast<int>(before) + 1);
    EXPECT_EQ(added.text(), "U2 1 new" + std::to_string(before + 1) + " 0");
    EXPECT_TRUE(added.expanded());
    EXPECT_EQ(added.key(), "");
    EXPECT_EQ(added.foreColor(), kEditorForeColor);
    EXPECT_EQ(tree().selected(), place);
    const bool below = GetParam().child || place->parent() == nullptr;
    EXPECT_EQ(below ? place->lastChild() : place->next(), &added);
    EXPECT_EQ(added.parent()->text(), GetParam().listAfter);
}

INSTANTIATE_TEST_SUITE_P(Item, Insert,
                         testing::Values(InsertRow{"T: S1 F1 H->E", false, "", "T: S1 F1 H->E"},
                                         InsertRow{"text", false, "You cannot insert item", ""},
                                         InsertRow{"", false, "You cannot insert item", ""},
                                         InsertRow{"U2 1 direct 0", false, "", "T: S1 F1 H->E"},
                                         InsertRow{"U2 1 infixed 0", false, "", "L 2 fixed"},
                                         InsertRow{"U2 1 invar 0", false, "You cannot insert item", ""},
                                         InsertRow{"U2 1 belowodd 0", false, "You cannot insert item", ""}));

INSTANTIATE_TEST_SUITE_P(SubItem, Insert,
                         testing::Values(InsertRow{"T: S1 F1 H->E", true, "", "T: S1 F1 H->E"},
                                         InsertRow{"text", true, "You cannot insert sub item.", ""},
                                         InsertRow{"", true, "You cannot insert sub item.", ""},
                                         InsertRow{"L 9 fixed", true, "", "L 2 fixed"},
                                         InsertRow{"L 5V empty", true, "", "L 5V empty"},
                                         InsertRow{"L 5V full", true, "You cannot insert item", ""},
                                         InsertRow{"U2 1 direct 0", true, "You cannot insert item", ""}));

TEST_F(TreeInsertTest, InsertWithoutASelectionSaysSo) {
    run(menu.item);
    expectBox("No selected message");
    run(menu.child);
    expectBox("No selected message");
}

TEST_F(TreeInsertTest, TheFirstItemOfThreeNodesIsNew4) {
    Node& message = addMessage("A: S1 F1 H->E");
    select(&message);
    run(menu.item);
    EXPECT_EQ(outline(message.child()), Lines{"U2 1 new4 0"});
}

TEST_F(TreeInsertTest, ANewNameIsMadeUniqueInItsMessage) {
    Node& message = addMessage("A: S1 F1 H->E", {"U2 1 new6 0", "U2 1 new61 0"});
    select(&message);
    run(menu.item);
    EXPECT_EQ(message.lastChild()->text(), "U2 1 new611 0");
}

TEST_F(TreeInsertTest, AddSubItemShowsTheCountOfAFixedList) {
    Node& message = addMessage("A: S1 F1 H->E", {"L 0"});
    clickNode(message.child());
    run(menu.child);
    EXPECT_EQ(window.txtItemCount.text(), "1");
    EXPECT_EQ(message.child()->text(), "L 1");
}

} // namespace
} // namespace zb
