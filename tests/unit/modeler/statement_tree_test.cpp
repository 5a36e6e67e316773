#include "modeler/statement_tree.h"

#include "unit/modeler/statement_desk.h"

namespace zb {
namespace {

using test::StatementDesk;

TEST(StatementTree, StartsFromItsRoot) {
    StatementDesk desk;
    EXPECT_EQ(desk.nodes().count(), 1U);
    EXPECT_EQ(desk.root().key(), "Conditions");
    EXPECT_EQ(desk.root().text(), "Conditions");
    EXPECT_EQ(desk.root().image(), "Statement");
    EXPECT_TRUE(desk.root().bold());
    EXPECT_EQ(desk.tree().backColor(), (Color{224, 224, 224}));
}

TEST(StatementTree, NumbersKeysFromOneEachTime) {
    StatementDesk desk;
    desk.add(desk.root(), "if");
    EXPECT_EQ(desk.add(desk.root(), "elif").key(), "TVW_KEY2");
    desk.statements.initStatementTree();
    EXPECT_EQ(desk.add(desk.root(), "if").key(), "TVW_KEY1");
}

TEST(StatementTree, BeginsAChainWithAnIf) {
    for (const std::string_view type : {"if", "elif", "else"}) {
        StatementDesk desk;
        const StatementTree::Added added = desk.statements.addStatement(desk.root(), type);
        ASSERT_NE(added.node, nullptr);
        EXPECT_EQ(added.node->image(), type);
        EXPECT_EQ(added.refusal, "");
        EXPECT_EQ(desk.shape(), type == "if"     ? "if>if\n"
                                : type == "elif" ? "if>if\nelif>elif\n"
                                                 : "if>if\nelse>else:\n");
    }
}

TEST(StatementTree, TakesOneIfAndOneElse) {
    StatementDesk desk;
    desk.add(desk.root(), "if");
    EXPECT_EQ(desk.statements.addStatement(desk.root(), "if").refusal, "\"IF\" statement already exists.");
    desk.add(desk.root(), "elif");
    desk.add(desk.root(), "elif");
    desk.add(desk.root(), "else");
    const std::string shape = desk.shape();
    EXPECT_EQ(desk.statements.addStatement(desk.root(), "if").refusal, "\"IF\" statement already exists.");
    EXPECT_EQ(desk.statements.addStatement(desk.root(), "elif").refusal,
              "\"ELSE\" statement already exists.");
    EXPECT_EQ(desk.statements.addStatement(desk.root(), "else").refusal,
              "\"ELSE\" statement already exists.");
    EXPECT_EQ(desk.shape(), shape);
}

TEST(StatementTree, AddsNothingExceptAValue) {
    StatementDesk desk;
    Node& statement = desk.add(desk.root(), "if", "({A} == 1)");
    desk.statements.addValueNode(statement, "A=1");
    for (const std::string_view type : {"if", "elif", "else"}) {
        const StatementTree::Added added = desk.statements.addStatement(statement, type);
        EXPECT_EQ(added.node, nullptr);
        EXPECT_EQ(added.refusal, "");
    }
    EXPECT_EQ(desk.shape(), "if>if ({A} == 1):\n  ItemValue>A=1\n");
}

} // namespace
} // namespace zb
