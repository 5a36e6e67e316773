#include "controls/tree_marks.h"

#include "controls/desktop.h"
#include "controls/tree.h"
#include "controls/user_hands.h"
#include "controls/window.h"
#include "silent_screen.h"

#include <gtest/gtest.h>
#include <string>

namespace zb {
namespace {

class TreeMarksTest : public testing::Test {
protected:
    TreeMarksTest() {
        tree.marks().onChange = [this] { ++changes; };
        tree.onMarking = [this](Node& node, int shift) { log += node.text() + std::to_string(shift) + " "; };
        window.show();
    }
    Node& add(const std::string& text, Node* parent = nullptr) {
        Node& node = tree.nodes().add(parent, parent == nullptr ? Relation::Last : Relation::Child, text);
        node.setExpanded(true);
        return node;
    }
    SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmTree"};
    Tree tree{window, "tvwTree"};
    UserHands hands{desktop};
    int changes = 0;
    std::string log;
};

TEST_F(TreeMarksTest, AMarkGoesWithItsNodeAndWithThoseAboveIt) {
    Node& first = add("a");
    Node& second = add("b");
    Node& below = add("c", &second);
    tree.marks().set({&first, &below});
    tree.nodes().remove(second);
    EXPECT_TRUE(tree.marks().holds(first));
    EXPECT_FALSE(tree.marks().holds(below));
    EXPECT_EQ(changes, 2);
}

TEST_F(TreeMarksTest, ASelectionOutsideOfTheMarksEndsThem) {
    Node& first = add("a");
    Node& second = add("b");
    Node& third = add("c");
    tree.marks().set({&first, &second});
    tree.nodes().select(&second);
    EXPECT_FALSE(tree.marks().empty());
    tree.nodes().select(&third);
    EXPECT_TRUE(tree.marks().empty());
}

TEST_F(TreeMarksTest, AnotherTreeHasNoMarks) {
    Node& first = add("a");
    tree.marks().set({&first});
    tree.replaceNodes();
    EXPECT_TRUE(tree.marks().empty());
    Node& second = add("b");
    tree.marks().set({&second});
    tree.nodes().remove(second);
    EXPECT_TRUE(tree.marks().empty());
}

TEST_F(TreeMarksTest, PressesAndKeysAreReportedWithTheirModifiersBeforeTheySelect) {
    Node& first = add("a");
    add("b");
    Target target = Target::whole(tree);
    target.node = &first;
    hands.controlClick(target);
    hands.key(tree, {kKeyDown, kShiftKey});
    hands.key(tree, {kKeyUp, 0});
    EXPECT_EQ(log, "a2 b1 a0 ");
}

} // namespace
} // namespace zb
