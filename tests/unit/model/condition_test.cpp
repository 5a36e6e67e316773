#include "model/condition.h"

#include "model/condition_text.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace zb {
namespace {

using Texts = std::vector<std::string>;

Texts dataItemTexts(std::string_view text) {
    Texts texts;
    for (const DataItemAddress& item : Condition::parse(text).dataItems())
        texts.push_back(item.text());
    return texts;
}

const Comparison& comparisonAt(const Condition& condition, std::size_t node) {
    return std::get<Comparison>(condition.nodes().at(node));
}

/// Evaluates as a reader of meaning does: in one pass over the nodes.
bool evaluate(const Condition& condition, const std::map<std::string, std::string, std::less<>>& values) {
    std::vector<bool> results;
    for (const ConditionNode& node : condition.nodes()) {
        if (const auto* junction = std::get_if<Junction>(&node)) {
            const bool left = results[junction->left];
            const bool right = results[junction->right];
            results.push_back(junction->word == Junction::Word::And ? left && right : left || right);
        } else {
            const auto& comparison = std::get<Comparison>(node);
            const bool same = values.at(comparison.item.text()) == comparison.plainValue();
            results.push_back(same == comparison.isEqual);
        }
    }
    return results.back();
}

TEST(Condition, HoldsOneComparison) {
    const Condition condition = Condition::parse("({MDLN[1;2]} == 'HLVFAB')");
    EXPECT_EQ(condition.faultAt(), std::nullopt);
    ASSERT_EQ(condition.nodes().size(), 1U);
    const Comparison& comparison = comparisonAt(condition, 0);
    EXPECT_EQ(comparison, (Comparison{DataItemAddress("MDLN[1;2]"), true, "'HLVFAB'"}));
    EXPECT_TRUE(comparison.hasTextValue());
    EXPECT_EQ(comparison.plainValue(), "HLVFAB");
}

TEST(Condition, DistinguishesTextsFromNumbersByTheirApostrophes) {
    const Condition number = Condition::parse("({A} != 7)");
    EXPECT_EQ(comparisonAt(number, 0), (Comparison{DataItemAddress("A"), false, "7"}));
    EXPECT_FALSE(comparisonAt(number, 0).hasTextValue());
    EXPECT_EQ(comparisonAt(number, 0).plainValue(), "7");
    EXPECT_EQ(comparisonAt(Condition::parse("({A} == '')"), 0).plainValue(), "");
    EXPECT_EQ(comparisonAt(Condition::parse("({A} == ''x'')"), 0).plainValue(), "'x'");
}

TEST(Condition, PutsEachNodeAfterThoseItJoins) {
    const Condition condition = Condition::parse("((({A} == 1) or ({B} != 'x')) and ({C} == TRUE))");
    ASSERT_EQ(condition.nodes().size(), 5U);
    EXPECT_EQ(std::get<Junction>(condition.nodes()[2]), (Junction{Junction::Word::Or, 0, 1}));
    EXPECT_EQ(comparisonAt(condition, 3).item.text(), "C");
    EXPECT_EQ(std::get<Junction>(condition.nodes()[4]), (Junction{Junction::Word::And, 2, 3}));
    EXPECT_TRUE(evaluate(condition, {{"A", "1"}, {"B", "x"}, {"C", "TRUE"}}));
    EXPECT_FALSE(evaluate(condition, {{"A", "2"}, {"B", "x"}, {"C", "TRUE"}}));
    EXPECT_FALSE(evaluate(condition, {{"A", "1"}, {"B", "y"}, {"C", "FALSE"}}));
}

TEST(Condition, TakesOperatorsAndParenthesesWithinATextAsItsCharacters) {
    const Condition condition = Condition::parse("(({A} == 'x) and ({B} == 1') or ({C} == ' '))");
    EXPECT_EQ(condition.faultAt(), std::nullopt);
    ASSERT_EQ(condition.nodes().size(), 3U);
    EXPECT_EQ(comparisonAt(condition, 0).plainValue(), "x) and ({B} == 1");
    EXPECT_EQ(comparisonAt(condition, 1).item.text(), "C");
}

struct OddText {
    const char* text;
    std::size_t faultAt;
    Texts dataItems;
};

class OddCondition : public testing::TestWithParam<OddText> {};

TEST_P(OddCondition, IsReportedAndKept) {
    const OddText& odd = GetParam();
    const Condition condition = Condition::parse(odd.text);
    EXPECT_EQ(condition.faultAt(), odd.faultAt);
    EXPECT_TRUE(condition.nodes().empty());
    EXPECT_EQ(condition.text(), odd.text);
    EXPECT_EQ(condition.print(), odd.text);
    EXPECT_EQ(dataItemTexts(odd.text), odd.dataItems);
}

INSTANTIATE_TEST_SUITE_P(
    AllKinds, OddCondition,
    testing::Values(OddText{"", 0, {}}, OddText{"NONE", 0, {}}, OddText{"(", 1, {}}, OddText{"()", 1, {}},
                    OddText{"({A} == 1", 0, {"A"}}, OddText{"({A == 1)", 0, {}}, OddText{"{A} == 1", 0, {}},
                    OddText{" ({A} == 1)", 0, {"A"}}, OddText{"({A} == 1) ", 10, {"A"}},
                    OddText{"(({A} == 1))", 11, {"A"}}, OddText{"({A} < 1)", 0, {}},
                    OddText{"({A} == 'x)", 0, {"A"}}, OddText{"({A} == 1) and ({B} == 2)", 10, {"A", "B"}},
                    OddText{"(({A} == 1) AND ({B} == 2))", 11, {"A", "B"}},
                    OddText{"(({A} == 1) and ({B} == 2)", 26, {"A", "B"}},
                    OddText{"(({A} == 1) and )", 16, {"A"}},
                    OddText{"(({A} == 1)  and ({B} == 2))", 11, {"A", "B"}},
                    OddText{"({A} == 'a') b')", 12, {"A"}},
                    OddText{"(({A} == 1) and ({B} == 2) or ({C} == 3))", 26, {"A", "B", "C"}}));

// Conditions as the builder makes them, and what is left when one of their bytes is lost or doubled.
class RandomConditions : public testing::Test {
protected:
    std::size_t below(std::size_t count) { return random_() % count; }
    std::string pick(const Texts& texts) { return texts[below(texts.size())]; }

    std::string comparison() {
        static const Texts kItems{"A", "SVID[1;2]", "x y", "\u00C4[10]", "A[", "{A", "A)(", ""};
        static const Texts kValues{"1",       "-2.5e3",  "TRUE", " 7 ",  "''", "'x and y'", "'({A} == 1 '",
                                   "'} != '", "'\u00E9", "",     "'a'b'"};
        return simpleCondition(pick(kItems), pick({"==", "!="}), pick(kValues));
    }
    std::string condition(int depth) {
        if (depth == 0 || below(3) == 0)
            return "(" + comparison() + ")";
        return "(" + condition(depth - 1) + pick({" and ", " or "}) + condition(depth - 1) + ")";
    }

    std::mt19937 random_{20};
};

TEST_F(RandomConditions, ArePrintedAsTheSameBytes) {
    int understood = 0;
    for (int round = 0; round < 5000; ++round) {
        const std::string text = condition(static_cast<int>(below(6)));
        const Condition parsed = Condition::parse(text);
        ASSERT_EQ(parsed.print(), text);
        understood += parsed.faultAt() ? 0 : 1;
    }
    EXPECT_GT(understood, 2500);
}

TEST_F(RandomConditions, AreKeptWithAByteLostOrDoubled) {
    for (int round = 0; round < 5000; ++round) {
        std::string text = condition(static_cast<int>(below(4)));
        const std::size_t at = below(text.size());
        if (below(2) == 0)
            text.erase(at, 1);
        else
            text.insert(at, 1, text[at]);
        const Condition parsed = Condition::parse(text);
        ASSERT_EQ(parsed.print(), text);
        ASSERT_EQ(parsed.text(), text);
        ASSERT_LE(parsed.faultAt().value_or(0), text.size());
    }
}

TEST(Condition, MayBeAsDeepAsTheBuilderMakesIt) {
    constexpr std::size_t kDepth = 50'000;
    std::string text(kDepth, '(');
    text += "({A} == 1)";
    for (std::size_t level = 0; level < kDepth; ++level)
        text += " or ({A} == 1))";
    const Condition condition = Condition::parse(text);
    EXPECT_EQ(condition.nodes().size(), 2 * kDepth + 1);
    EXPECT_EQ(condition.print(), text);
    EXPECT_FALSE(evaluate(condition, {{"A", "2"}}));
    // One parenthesis too few is found at the very end.
    text.pop_back();
    EXPECT_EQ(Condition::parse(text).faultAt(), text.size());
}

TEST(DefaultCondition, IsEmptyOrNone) {
    for (const char* text : {"", "  ", "NONE", " NONE "})
        EXPECT_TRUE(isDefaultCondition(text)) << text;
    for (const char* text : {"none", "({A} == 1)", "NONE."})
        EXPECT_FALSE(isDefaultCondition(text)) << text;
}

TEST(Condition, NamesItsDataItems) {
    EXPECT_EQ(dataItemTexts("(({A[1;2]} == 1) or (({B} != '({C} == 2)') and ({D} == TRUE)))"),
              (Texts{"A[1;2]", "B", "D"}));
    for (const char* text : {"", "NONE", "({", "({A}", "({A} = 1)", "{A} == 1", "(a)"})
        EXPECT_EQ(dataItemTexts(text), Texts()) << text;
    EXPECT_EQ(dataItemTexts("({A} == '"), Texts{"A"});
    EXPECT_EQ(dataItemTexts("({A} == "), Texts{"A"});
}

TEST(DataItemAddress, HasANameAndAnIndexForEachDimension) {
    EXPECT_EQ(DataItemAddress("SVID[1;2]").name(), "SVID");
    EXPECT_EQ(DataItemAddress("SVID[1;2]").indexes(), (Texts{"1", "2"}));
    EXPECT_EQ(DataItemAddress(" MDLN ").name(), "MDLN");
    EXPECT_EQ(DataItemAddress(" MDLN ").indexes(), Texts());
    EXPECT_EQ(DataItemAddress("A[7").indexes(), Texts());
    EXPECT_EQ(DataItemAddress("A[7").name(), "A");
    EXPECT_EQ(DataItemAddress("").name(), "");
}

} // namespace
} // namespace zb
