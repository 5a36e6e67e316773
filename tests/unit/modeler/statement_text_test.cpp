#include "model/statement_text.h"

#include "unit/modeler/statement_desk.h"

namespace zb {
namespace {

using test::StatementDesk;

TEST(StatementText, OfAnEmptyTreeIsNone) {
    StatementDesk desk;
    EXPECT_EQ(statementTextOf(desk.root()), "NONE");
}

TEST(StatementText, HasALineForEachNodeWithItsDepthInBlanks) {
    StatementDesk desk;
    Node& first = desk.add(desk.root(), "if", "({A} == 1)");
    desk.statements.addValueNode(first, "COUNT=3");
    Node& last = desk.add(desk.root(), "else");
    Node& inner = desk.add(last, "if", "({B} != 'x')");
    desk.statements.addValueNode(inner, "COUNT=4");
    desk.add(last, "elif");
    EXPECT_EQ(statementTextOf(desk.root()),
              "if ({A} == 1):\r\n COUNT=3\r\nelse:\r\n if ({B} != 'x'):\r\n  COUNT=4\r\n elif");
}

TEST(StatementText, WritesNothingExceptAValueThatIsFirst) {
    StatementDesk desk;
    Node& statement = desk.add(desk.root(), "if", "({A} == 1)");
    Node& value = desk.statements.addValueNode(statement, "COUNT=3");
    desk.add(value, "if");
    desk.statements.addValueNode(statement, "COUNT=4");
    EXPECT_EQ(statementTextOf(desk.root()), "if ({A} == 1):\r\n COUNT=3");
}

TEST(StatementText, WritesAValueAfterAStatementLikeAStatement) {
    StatementDesk desk;
    Node& statement = desk.add(desk.root(), "else");
    desk.statements.addValueNode(statement, "COUNT=4");
    EXPECT_EQ(statementTextOf(desk.root()), "if\r\nelse:\r\n COUNT=4");
    Node& chain = *desk.root().child();
    desk.add(chain, "if", "({A} == 1)");
    desk.statements.addValueNode(chain, "COUNT=5");
    EXPECT_EQ(statementTextOf(desk.root()), "if\r\n if ({A} == 1):\r\n COUNT=5\r\nelse:\r\n COUNT=4");
}

TEST(StatementText, WritesAllValuesAtTheTop) {
    StatementDesk desk;
    desk.statements.addValueNode(desk.root(), "A=1");
    desk.statements.addValueNode(desk.root(), "B=2");
    EXPECT_EQ(statementTextOf(desk.root()), "A=1\r\nB=2");
}

struct LineRow {
    std::string line;
    std::size_t depth;
    std::string image;
};

class StatementLine : public testing::TestWithParam<LineRow> {};

TEST_P(StatementLine, ReportsDepthAndPicture) {
    EXPECT_EQ(lineDepth(GetParam().line), GetParam().depth);
    EXPECT_EQ(lineImage(GetParam().line), GetParam().image);
}

INSTANTIATE_TEST_SUITE_P(Table, StatementLine,
                         testing::Values(LineRow{"if ({A} == 1):", 0, "if"}, LineRow{"  if", 2, "if"},
                                         LineRow{" elif ({A} == 1):", 1, "elif"}, LineRow{"else:", 0, "else"},
                                         LineRow{"   COUNT=3", 3, "ItemValue"},
                                         LineRow{"lif ({A} == 1):", 0, "ItemValue"},
                                         LineRow{" IFX=1", 1, "ItemValue"}, LineRow{" ifx=1", 1, "if"},
                                         LineRow{" elsewhere=1", 1, "else"}, LineRow{"elifa=1", 0, "elif"},
                                         LineRow{"els", 0, "ItemValue"}, LineRow{"i", 0, "ItemValue"},
                                         LineRow{"", 0, "ItemValue"}, LineRow{"   ", 3, "ItemValue"},
                                         LineRow{"\tif", 0, "ItemValue"}));

struct ReadingRow {
    std::string text;
    std::string shape;
};

class StatementReading : public testing::TestWithParam<ReadingRow> {};

TEST_P(StatementReading, BuildsTheTree) {
    StatementDesk desk;
    desk.statements.showStatementText(GetParam().text);
    EXPECT_EQ(desk.shape(), GetParam().shape);
}

INSTANTIATE_TEST_SUITE_P(
    Table, StatementReading,
    testing::Values(ReadingRow{"if ({A} == 1):\r\n COUNT=3\r\nelse:\r\n COUNT=4",
                               "if>if ({A} == 1):\n  ItemValue>COUNT=3\nelse>else:\n  ItemValue>COUNT=4\n"},
                    // the same depth as the line before: one character is lost
                    ReadingRow{"if\r\nelif", "if>if\nelif>lif\n"},
                    ReadingRow{"if\r\nelse:\r\n A=1", "if>if\nelse>lse:\n  ItemValue>A=1\n"},
                    ReadingRow{"if\r\n if\r\n elif", "if>if\n  if>if\n  elif>elif\n"},
                    ReadingRow{"if\r\n if\r\n  if\r\n  elif", "if>if\n  if>if\n    if>if\n    elif> elif\n"},
                    ReadingRow{"A=1\r\n\xC3\x84=2", "ItemValue>A=1\nItemValue>=2\n"},
                    // two levels up, and further up than there are levels
                    ReadingRow{"if\r\n if\r\n  A=1\r\nelse:",
                               "if>if\n  if>if\n    ItemValue>A=1\nelse>else:\n"},
                    ReadingRow{"if\r\n     if\r\n A=1", "if>if\n  if>if\nItemValue>A=1\n"},
                    ReadingRow{"   if\r\n A=1", "if>if\nItemValue>A=1\n"},
                    // text that no dialog has written
                    ReadingRow{"if\nelse", "if>if\nelse\n"},
                    ReadingRow{"\r\n\r\n", "ItemValue>\nItemValue>\nItemValue>\n"}, ReadingRow{"", ""}));

TEST(StatementReading, NumbersMarksAndSelectsTheNodes) {
    StatementDesk desk;
    desk.statements.showStatementText("if\r\n A=1");
    Node& statement = *desk.root().child();
    Node& value = *statement.child();
    EXPECT_EQ(statement.key(), "TVW_KEY1");
    EXPECT_EQ(value.key(), "TVW_KEY2");
    EXPECT_TRUE(statement.bold());
    EXPECT_FALSE(value.bold());
    EXPECT_EQ(value.backColor(), (Color{224, 224, 224}));
    EXPECT_EQ(desk.nodes().selected(), &value);
    EXPECT_TRUE(statement.expanded());
}

} // namespace
} // namespace zb
