#include "editor/node_moves.h"

#include "messages/message_nodes.h"
#include "unit/editor/tree_commands_desk.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

class NodeMovesTest : public TreeCommandsTest {
public:
    NodeMovesTest() {
        for (const char* name : {"A", "B", "C"})
            addMessageNodes(tree(), nullptr, name, std::string(name) + ": S1 F1 H->E",
                            std::string("about ") + name);
        Node& list = tree().add(tree().find("A"), Relation::Child, "L 2 list");
        tree().add(&list, Relation::Child, "U1 1 x 1");
        tree().add(&list, Relation::Child, "A 3 y 'abc' [K]");
        tree().add(tree().find("A"), Relation::Child, "U1 1 z 1");
    }
    Node& list() { return *tree().find("A")->child(); }
    std::string roots() {
        std::string names;
        for (const Node* root = tree().firstRoot(); root != nullptr; root = root->next())
            names += root->text().substr(0, root->text().find(':')) + "|";
        return names;
    }
    std::string below(const Node& node) {
        std::string texts;
        for (const Node* child = node.child(); child != nullptr; child = child->next())
            texts += child->text() + "|";
        return texts;
    }
    void move(Node& node, int code) {
        select(&node);
        key(window.tvwEdit, code, kAltKey);
    }
};

TEST_F(NodeMovesTest, AMessageMovesWithItsItemsItsDescriptionAndItsKey) {
    move(*tree().find("A"), kKeyDown);
    EXPECT_EQ(roots(), "|about B|B||about A|A||about C|C|");
    EXPECT_EQ(tree().selected(), tree().find("A"));
    EXPECT_TRUE(tree().find("A")->previous()->bold());
    EXPECT_EQ(below(list()), "U1 1 x 1|A 3 y 'abc' [K]|");
    move(*tree().find("A"), kKeyUp);
    EXPECT_EQ(roots(), "|about A|A||about B|B||about C|C|");
}

TEST_F(NodeMovesTest, AnyNodeOfAMessageMovesIt) {
    move(*tree().find("C")->previous(), kKeyUp);
    EXPECT_EQ(roots(), "|about A|A||about C|C||about B|B|");
}

TEST_F(NodeMovesTest, AtTheEndsNothingMoves) {
    move(*tree().find("A"), kKeyUp);
    move(*tree().find("C"), kKeyDown);
    EXPECT_EQ(roots(), "|about A|A||about B|B||about C|C|");
    move(*list().child(), kKeyUp);
    EXPECT_EQ(below(list()), "U1 1 x 1|A 3 y 'abc' [K]|");
    EXPECT_EQ(tree().selected(), list().child());
}

TEST_F(NodeMovesTest, AnItemMovesAmongItsSiblings) {
    move(*list().child(), kKeyDown);
    EXPECT_EQ(below(list()), "A 3 y 'abc' [K]|U1 1 x 1|");
    EXPECT_EQ(list().text(), "L 2 list");
}

TEST_F(NodeMovesTest, OutAndInKeepTheCountsOfFixedLists) {
    move(*list().child(), kKeyLeft);
    EXPECT_EQ(below(*tree().find("A")), "L 1 list|U1 1 x 1|U1 1 z 1|");
    move(*list().next(), kKeyRight);
    EXPECT_EQ(list().text(), "L 2 list");
    EXPECT_EQ(below(list()), "A 3 y 'abc' [K]|U1 1 x 1|");
}

TEST_F(NodeMovesTest, AVariableListTakesOneItem) {
    list().child()->setText("L 5V inner");
    move(*list().lastChild(), kKeyRight);
    EXPECT_EQ(list().text(), "L 1 list");
    // What repeats is no key.
    EXPECT_EQ(below(*list().child()), "A 3 y 'abc'|");
    move(*list().next(), kKeyRight);
    EXPECT_EQ(list().text(), "L 2 list");
    move(*list().lastChild(), kKeyRight);
    EXPECT_EQ(list().text(), "L 2 list");
}

TEST_F(NodeMovesTest, SeveralMessagesMoveTogetherAndStayMarked) {
    window.markedNodes.set({tree().find("B"), tree().find("C")});
    select(tree().find("C"));
    key(window.tvwEdit, kKeyUp, kAltKey);
    EXPECT_EQ(roots(), "|about B|B||about C|C||about A|A|");
    EXPECT_EQ(window.markedNodes.count(), "2 messages");
    key(window.tvwEdit, kKeyUp, kAltKey);
    EXPECT_EQ(roots(), "|about B|B||about C|C||about A|A|");
}

} // namespace
} // namespace zb
