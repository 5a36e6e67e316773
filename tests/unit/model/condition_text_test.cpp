#include "model/condition_text.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace zb {
namespace {

using Rows = std::map<std::string, std::string, std::less<>>;

std::optional<std::string> expand(std::string_view condition, const Rows& rows = {}) {
    return expandCondition(condition, [&](std::string_view id) {
        const auto found = rows.find(id);
        return found == rows.end() ? std::string() : found->second;
    });
}

TEST(ExpandCondition, PutsASimpleConditionIntoParentheses) {
    EXPECT_EQ(expand("{A} == 1"), "({A} == 1)");
    EXPECT_EQ(expand("{A[1;2]} != 'x and y or z'"), "({A[1;2]} != 'x and y or z')");
}

TEST(ExpandCondition, PutsTheConditionsOfBothIdsIntoTheirPlaces) {
    const Rows rows{{"S1", "{A} == 1"}, {"S2", "{B} != 'x'"}, {"C1", "S1 and S2"}, {"C2", "C1 or S1"}};
    EXPECT_EQ(expand("S1 and S2", rows), "(({A} == 1) and ({B} != 'x'))");
    EXPECT_EQ(expand("S1 or S1", rows), "(({A} == 1) or ({A} == 1))");
    EXPECT_EQ(expand("C2 and C1", rows),
              "(((({A} == 1) and ({B} != 'x')) or ({A} == 1)) and (({A} == 1) and ({B} != 'x')))");
}

TEST(ExpandCondition, TakesTheWordsOfOperatorsExactly) {
    EXPECT_EQ(expand("S1 AND S2"), "(S1 AND S2)");
    EXPECT_EQ(expand("alone"), "(alone)");
    EXPECT_EQ(expand("S1 and"), "(S1 and)");
}

TEST(ExpandCondition, RefusesIdsWithoutACondition) {
    const Rows rows{{"S1", "{A} == 1"}, {"C1", "S1 and S9"}};
    EXPECT_EQ(expand("S1 and hello", rows), std::nullopt);
    EXPECT_EQ(expand("S1 or C1", rows), std::nullopt);
    EXPECT_EQ(expand("S1 and and S1", rows), std::nullopt);
    EXPECT_EQ(expand(""), std::nullopt);
}

TEST(ExpandCondition, RefusesWhatRefersToItself) {
    EXPECT_EQ(expand("C1 and C1", {{"C1", "C1 and C1"}}), std::nullopt);
    const Rows circle{{"S1", "{A} == 1"}, {"C1", "S1 and C2"}, {"C2", "S1 or C1"}};
    EXPECT_EQ(expand("S1 and C2", circle), std::nullopt);
    EXPECT_EQ(expand("C2 or S1", circle), std::nullopt);
}

TEST(ExpandCondition, RefusesWhatOutgrowsAllMemory) {
    Rows rows{{"S1", "{A} == 1"}, {"C1", "S1 and S1"}};
    for (int i = 2; i <= 60; ++i) {
        const std::string below = "C" + std::to_string(i - 1);
        rows["C" + std::to_string(i)] = std::string(below).append(" and ").append(below);
    }
    EXPECT_EQ(expand(rows["C60"], rows), std::nullopt);
    EXPECT_EQ(expand(rows["C3"], rows)->size(), 8U * 10U + 7U * 7U);
}

TEST(ExpandCondition, TakesAChainOfManyConditions) {
    Rows rows{{"S1", "{A} == 1"}, {"C1", "S1 and S1"}};
    constexpr int kCount = 20000;
    for (int i = 2; i <= kCount; ++i)
        rows["C" + std::to_string(i)] = "C" + std::to_string(i - 1) + " and S1";
    const auto text = expand(rows["C" + std::to_string(kCount)], rows);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), (kCount + 1U) * 10U + kCount * 7U);
}

struct ValueCase {
    const char* type;
    const char* text;
    ConditionValueForm form;
    bool good;
};

class ConditionValue : public testing::TestWithParam<ValueCase> {};

TEST_P(ConditionValue, IsTestedByTheItemsType) {
    const ValueCase& value = GetParam();
    EXPECT_EQ(conditionValueForm(value.type), value.form);
    EXPECT_EQ(isConditionValue(value.form, value.text), value.good);
}

constexpr auto kQuoted = ConditionValueForm::Quoted;
constexpr auto kBoolean = ConditionValueForm::Boolean;
constexpr auto kNumeric = ConditionValueForm::Numeric;

INSTANTIATE_TEST_SUITE_P(
    AllTypes, ConditionValue,
    testing::Values(ValueCase{"B", "x", kQuoted, true}, ValueCase{"A", "it's", kQuoted, true},
                    ValueCase{"J", "1", kQuoted, true}, ValueCase{"X", " ", kQuoted, true},
                    ValueCase{"BOOLEAN", "true", kBoolean, true},
                    ValueCase{"BOOLEAN", "FALSE", kBoolean, true}, ValueCase{"BOOLEAN", "1", kBoolean, false},
                    ValueCase{"BOOLEAN", " TRUE", kBoolean, false}, ValueCase{"I1", "-1", kNumeric, true},
                    ValueCase{"I2", "x", kNumeric, false}, ValueCase{"I4", "1e3", kNumeric, true},
                    ValueCase{"I8", "1 2", kNumeric, false}, ValueCase{"U1", "1.5", kNumeric, true},
                    ValueCase{"U2", "0x10", kNumeric, false}, ValueCase{"U4", " 7 ", kNumeric, true},
                    ValueCase{"U8", "-", kNumeric, false}, ValueCase{"F4", "1e", kNumeric, false},
                    ValueCase{"F8", ".5", kNumeric, true}, ValueCase{"", "5", kNumeric, true},
                    ValueCase{"", "five", kNumeric, false}, ValueCase{"boolean", "TRUE", kNumeric, false},
                    ValueCase{"a", "text", kNumeric, false}));

TEST(SimpleCondition, IsTheItemInBracesTheOperatorAndTheValueAsTyped) {
    EXPECT_EQ(simpleCondition("SVID[1;2]", "!=", " 7 "), "{SVID[1;2]} !=  7 ");
}

} // namespace
} // namespace zb
