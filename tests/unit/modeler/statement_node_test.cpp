#include "model/statement_node.h"

#include "unit/modeler/statement_desk.h"

#include <ostream>

namespace zb {
namespace {

using test::StatementDesk;

using Attributes = std::vector<XmlAttribute>;

struct StatementRow {
    std::string text;
    Attributes attributes;
};

std::ostream& operator<<(std::ostream& out, const StatementRow& row) {
    return out << '<' << row.text << '>';
}

class StatementElement : public testing::TestWithParam<StatementRow> {};

TEST_P(StatementElement, ReportsTypeAndCondition) {
    const XmlElement element = statementElement(GetParam().text);
    EXPECT_EQ(element.name(), "Statement");
    EXPECT_EQ(element.attributes(), GetParam().attributes);
    EXPECT_EQ(element.text(), "");
}

Attributes pair(std::string type, std::string condition) {
    return {{"Type", std::move(type)}, {"Condition", std::move(condition)}};
}

INSTANTIATE_TEST_SUITE_P(
    Table, StatementElement,
    testing::Values(
        StatementRow{"if ({A} == 1):", pair("if", "({A} == 1)")},
        StatementRow{"elif (({A} == 1) and ({B} != 'x')):", pair("elif", "(({A} == 1) and ({B} != 'x'))")},
        StatementRow{"  if   ({A} == 1)  :", pair("if", "({A} == 1)")},
        StatementRow{"else:", pair("else", "NONE")}, StatementRow{"elsewhere=1", pair("else", "NONE")},
        StatementRow{"if", {}}, StatementRow{"elif", {}}, StatementRow{"lse:", {}}, StatementRow{"", {}},
        StatementRow{"COUNT=3", {}}, StatementRow{"({A} == 1):", {}}, StatementRow{" ({A} == 1):", {}},
        // the condition ends at the first colon after the parenthesis
        StatementRow{"if ({A} == 'x:y'):", pair("if", "NONE")},
        StatementRow{"if ({A} == '(:)'):", pair("if", "NONE")},
        StatementRow{"if ({A} == 1)", pair("if", "NONE")},
        StatementRow{"a:b ({A} == 1):", pair("a:b", "({A} == 1)")},
        StatementRow{"if ({A} == 1) x:", pair("if", "NONE")}, StatementRow{"if (:", pair("if", "NONE")},
        StatementRow{"if ():", pair("if", "()")}, StatementRow{"else (x):", pair("else", "(x)")}));

struct ValueRow {
    std::string text;
    std::string value;
};

class AssignedValue : public testing::TestWithParam<ValueRow> {};

TEST_P(AssignedValue, IsWhatTheTextAssigns) {
    EXPECT_EQ(assignedValue(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Table, AssignedValue,
                         testing::Values(ValueRow{"NAME='UP'", "UP"}, ValueRow{"COUNT=3", "3"},
                                         ValueRow{"  COUNT=3  ", "3"}, ValueRow{"COUNT= 3", " 3"},
                                         ValueRow{"NAME=' UP '", " UP "}, ValueRow{"NAME= 'UP'", " 'UP'"},
                                         ValueRow{"A=B=C", "B=C"}, ValueRow{"NAME=''UP''", "'UP'"},
                                         ValueRow{"NAME=''", ""}, ValueRow{"NAME='", "'"},
                                         ValueRow{"NAME", ""}, ValueRow{"", ""}, ValueRow{"=", ""}));

TEST(ConditionNode, OfAnEmptyTreeHasNoChildren) {
    StatementDesk desk;
    EXPECT_EQ(conditionNodeOf(desk.root()), createElement("Condition"));
}

TEST(ConditionNode, HoldsValuesAndNestedChains) {
    StatementDesk desk;
    Node& first = desk.add(desk.root(), "if", "({A} == 1)");
    desk.statements.addValueNode(first, "NAME='UP'");
    desk.statements.addValueNode(first, "NAME='NEVER'");
    Node& last = desk.add(desk.root(), "else");
    desk.statements.addValueNode(desk.add(last, "if", "({B} == 2)"), "NAME=3");
    desk.add(last, "elif");

    XmlElement expected = createElement("Condition");
    XmlElement one = statementElement("if ({A} == 1):");
    one.setText("UP");
    expected.append(one);
    XmlElement other = statementElement("else:");
    XmlElement inner = statementElement("if ({B} == 2):");
    inner.setText("3");
    other.append(inner);
    other.append(createElement("Statement"));
    expected.append(other);
    EXPECT_EQ(conditionNodeOf(desk.root()), expected);
}

} // namespace
} // namespace zb
