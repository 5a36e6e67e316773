#include "model/statement.h"

#include "model/statement_node.h"
#include "model/tr_item_record.h"
#include "platform/tree/node_tree.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using Kind = Statement::Kind;

/// "if ({A} == 1):" with a chain of its own, "elif", "else".
void fillNested(TRItemRecord& item) {
    NodeTree tree;
    Node& root = tree.add(nullptr, Relation::Last, "Conditions");
    Node& first = tree.add(&root, Relation::Child, "if ({A} == 1):");
    Node& inner = tree.add(&first, Relation::Child, "if ({B} != 'x'):");
    tree.add(&inner, Relation::Child, "STATE='UP'").setImage("ItemValue");
    Node& second = tree.add(&root, Relation::Child, "elif ({A} == 2):");
    tree.add(&second, Relation::Child, "STATE='DOWN'").setImage("ItemValue");
    tree.add(&root, Relation::Child, "else:");
    item.setConditionNode(conditionNodeOf(root));
}

TEST(Statements, AreReadAsTheTreeThatWasBuilt) {
    TRItemRecord item;
    fillNested(item);
    const std::vector<Statement> statements = statementsOf(item);
    ASSERT_EQ(statements.size(), 3U);
    EXPECT_EQ(statements[0].kind, Kind::If);
    EXPECT_EQ(statements[0].condition.text(), "({A} == 1)");
    EXPECT_EQ(statements[0].value, "");
    ASSERT_EQ(statements[0].branches.size(), 1U);
    EXPECT_EQ(statements[0].branches[0].condition.dataItems(), std::vector{DataItemAddress("B")});
    EXPECT_EQ(statements[0].branches[0].value, "UP");
    EXPECT_EQ(statements[1].kind, Kind::Elif);
    EXPECT_EQ(statements[1].value, "DOWN");
    EXPECT_EQ(statements[2].kind, Kind::Else);
    EXPECT_EQ(statements[2].condition.text(), "NONE");
    EXPECT_TRUE(statements[2].branches.empty());
}

TEST(Statements, ComeFlatEachBeforeItsBranches) {
    TRItemRecord item;
    fillNested(item);
    const std::vector<Statement> statements = statementsOf(item);
    std::vector<std::string> conditions;
    for (const Statement* statement : flatStatements(statements))
        conditions.push_back(statement->condition.text());
    EXPECT_EQ(conditions, (std::vector<std::string>{"({A} == 1)", "({B} != 'x')", "({A} == 2)", "NONE"}));
}

TEST(Statements, AreOfNoKindWithoutACondition) {
    TRItemRecord item;
    EXPECT_TRUE(statementsOf(item).empty());
    XmlElement node = createElement("Condition");
    node.append(createElement("Statement"));
    item.setConditionNode(node);
    const std::vector<Statement> statements = statementsOf(item);
    ASSERT_EQ(statements.size(), 1U);
    EXPECT_EQ(statements[0].kind, Kind::None);
    EXPECT_EQ(statements[0].condition.text(), "");
}

} // namespace
} // namespace zb
