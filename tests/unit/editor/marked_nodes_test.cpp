#include "editor/marked_nodes.h"

#include "messages/message_nodes.h"
#include "unit/editor/tree_commands_desk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

/// What a view hears of a tree.
struct Heard final : NodeTreeListener {
    void beforeInsert(Node* /*parent*/, Node* /*previous*/) override { ++single; }
    void beforeRemove(Node& /*node*/) override { ++single; }
    void beforeFill() override { ++fillings; }

    int single = 0;
    int fillings = 0;
};

/// As many messages as nobody marks one by one.
class ManyMarkedTest : public MarkedNodesTest {
public:
    ManyMarkedTest() {
        for (int number = 0; number < kMany; ++number) {
            const std::string name = "M" + std::to_string(number);
            Node& message = addMessageNodes(tree(), nullptr, name, name + ": S1 F1 H->E", "");
            tree().add(&message, Relation::Child, "U1 1 x 1");
            window.InsertCbo(name);
            messages.push_back(&message);
        }
        window.tvwEdit.addWatcher(heard);
        window.cboSECSMessage.bell = [this](Change change) { rings += change == Change::Rows ? 1 : 0; };
    }
    ~ManyMarkedTest() override {
        window.cboSECSMessage.bell = nullptr;
        window.tvwEdit.removeWatcher(heard);
    }
    void markAll() {
        clickNode(messages.front());
        window.markedNodes.set(messages);
        const auto before = std::move(window.tvwEdit.marks().onChange);
        window.tvwEdit.marks().onChange = [this, before] {
            ++changes;
            fire(before);
        };
        heard = {};
    }

    static constexpr int kMany = 100;
    std::vector<Node*> messages;
    Heard heard;
    int rings = 0;
    int changes = 0;
};

TEST_F(ManyMarkedTest, GoAtOnce) {
    markAll();
    rings = 0;
    run(menu.remove);
    EXPECT_EQ(tree().count(), 15U);
    EXPECT_EQ(heard.single, 0);
    EXPECT_EQ(heard.fillings, 1);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(rings, 1);
    EXPECT_TRUE(window.cboSECSMessage.entries().empty());
}

TEST_F(ManyMarkedTest, ComeAtOnceAndKeepTheirMarks) {
    markAll();
    run(menu.duplicate);
    EXPECT_EQ(heard.single, 0);
    EXPECT_EQ(heard.fillings, 1);
    EXPECT_EQ(window.markedNodes.units(), messages);
    EXPECT_NE(tree().find("M99New1"), nullptr);
}

TEST_F(ManyMarkedTest, MoveAtOnceAndKeepTheirMarks) {
    markAll();
    window.nodeMoves.move(NodeMove::Up);
    EXPECT_EQ(heard.single, 0);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(window.markedNodes.count(), "100 messages");
    EXPECT_EQ(messageAfter(*tree().find("M99")), tree().find("D"));
}

TEST_F(ManyMarkedTest, AreRenamedAtOnce) {
    markAll();
    int renames = 0;
    std::vector<MessagePane::Rename> all;
    window.messagePane.onRenamed = [&](const std::vector<MessagePane::Rename>& renamed) {
        ++renames;
        all = renamed;
    };
    EXPECT_EQ(window.markedChanges.rename("R{name}"), "");
    EXPECT_EQ(renames, 1);
    ASSERT_EQ(all.size(), 100U);
    EXPECT_EQ(all.back(), MessagePane::Rename("M99", "RM99"));
    EXPECT_EQ(window.cboSECSMessage.entries().front(), "RM0");
}

TEST_F(ManyMarkedTest, ItemsGetNamesOfTheirOwnInOneMessage) {
    Node& list = tree().add(messages.front(), Relation::Child, "L 100 all");
    for (int number = 0; number < kMany; ++number)
        tree().add(&list, Relation::Child, "U1 1 N" + std::to_string(number) + " 1");
    std::vector<Node*> items;
    for (Node* item = list.child(); item != nullptr; item = item->next())
        items.push_back(item);
    clickNode(items.front());
    window.markedNodes.set(items);
    run(menu.duplicate);
    EXPECT_EQ(list.text(), "L 200 all");
    EXPECT_EQ(items.back()->next()->text(), "U1 1 N01 1");
    EXPECT_EQ(list.lastChild()->text(), "U1 1 N991 1");
}

} // namespace
} // namespace zb
