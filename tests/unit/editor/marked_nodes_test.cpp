#include "editor/marked_nodes.h"

#include "messages/message_nodes.h"
#include "unit/editor/tree_commands_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

class MarkedNodesTest : public TreeCommandsTest {
public:
    MarkedNodesTest() {
        for (const char* name : {"A", "B", "C", "D"})
            addMessageNodes(tree(), nullptr, name, std::string(name) + ": S1 F1 H->E",
                            std::string("about ") + name);
        Node& list = tree().add(tree().find("B"), Relation::Child, "L 2 list");
        list.setExpanded(true);
        tree().add(&list, Relation::Child, "U1 1 x 1");
        tree().add(&list, Relation::Child, "U1 1 y 1");
    }
    void controlClick(Node* node) {
        Target target = Target::whole(window.tvwEdit);
        target.node = node;
        ASSERT_EQ(hands.controlClick(target), "");
    }
    Node* node(const char* name) { return tree().find(name); }
    std::string marked() {
        std::string names;
        for (const Node* unit : window.markedNodes.units())
            names += std::string(nameInText(unit->text())).substr(0, 8) + " ";
        return names;
    }
};

TEST_F(MarkedNodesTest, ControlAndAClickAddToTheSelectedOne) {
    clickNode(node("C"));
    controlClick(node("A")->previous());
    EXPECT_EQ(marked(), "A C ");
    EXPECT_EQ(tree().selected(), node("A")->previous());
    EXPECT_EQ(window.txtMsgName.text(), "A");
    controlClick(node("D"));
    EXPECT_EQ(marked(), "A C D ");
    EXPECT_EQ(window.markedNodes.count(), "3 messages");
}

TEST_F(MarkedNodesTest, ASecondControlClickTakesTheMarkAway) {
    clickNode(node("C"));
    controlClick(node("A"));
    controlClick(node("D"));
    controlClick(node("A"));
    EXPECT_EQ(marked(), "C D ");
}

TEST_F(MarkedNodesTest, SeparatorsWithoutAMessageAreNotChangedAsOne) {
    Node& separator = tree().add(nullptr, Relation::Last, {});
    tree().add(nullptr, Relation::Last, {});
    Node& last = tree().add(nullptr, Relation::Last, {});
    // As an undo selects it; a click would write a message into the last one.
    select(&separator);
    EXPECT_EQ(window.markedChanges.rename("New"), "");
    window.markedChanges.setDirection("H->E");
    EXPECT_EQ(last.text(), "");
    EXPECT_EQ(last.key(), "");
}

TEST_F(MarkedNodesTest, APlainClickEndsTheMarks) {
    clickNode(node("C"));
    controlClick(node("A"));
    clickNode(node("A"));
    EXPECT_EQ(marked(), "");
}

TEST_F(MarkedNodesTest, ShiftAndArrowsMarkMessagesAsAWhole) {
    clickNode(node("A"));
    key(window.tvwEdit, kKeyDown, kShiftKey);
    EXPECT_EQ(marked(), "A B ");
    key(window.tvwEdit, kKeyDown, kShiftKey);
    EXPECT_EQ(marked(), "A B C ");
    EXPECT_EQ(tree().selected(), node("C"));
    key(window.tvwEdit, kKeyUp, kShiftKey);
    EXPECT_EQ(marked(), "A B ");
    key(window.tvwEdit, kKeyUp);
    EXPECT_EQ(marked(), "");
}

TEST_F(MarkedNodesTest, ShiftAndArrowsMarkItemsRowByRow) {
    Node* list = node("B")->child();
    clickNode(list);
    key(window.tvwEdit, kKeyDown, kShiftKey);
    EXPECT_EQ(tree().selected(), list->child());
    key(window.tvwEdit, kKeyDown, kShiftKey);
    EXPECT_EQ(tree().selected(), list->lastChild());
}

TEST_F(MarkedNodesTest, ItemsOfOneMessageAreMarkedAndNotThoseBelowThem) {
    Node* list = node("B")->child();
    clickNode(list->child());
    controlClick(list->lastChild());
    EXPECT_EQ(window.markedNodes.count(), "2 items");
    controlClick(list);
    EXPECT_EQ(window.markedNodes.count(), "1 item");
    controlClick(node("A"));
    EXPECT_EQ(marked(), "A ");
}

TEST_F(MarkedNodesTest, AProgramThatSelectsElsewhereEndsTheMarks) {
    clickNode(node("C"));
    controlClick(node("A"));
    select(node("D"));
    EXPECT_EQ(marked(), "");
}

} // namespace
} // namespace zb
