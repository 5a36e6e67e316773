#include "platform/wildcard.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

struct Row {
    std::string pattern;
    std::string text;
    bool matches;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.pattern << " on " << row.text;
}

class Wildcard : public testing::TestWithParam<Row> {};

TEST_P(Wildcard, MatchesWholeTexts) {
    const auto pattern = WildcardPattern::compile(GetParam().pattern);
    ASSERT_TRUE(pattern.has_value());
    EXPECT_EQ(pattern->matches(GetParam().text), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(Plain, Wildcard,
                         testing::Values(Row{"", "", true}, Row{"", "a", false}, Row{"abc", "abc", true},
                                         Row{"abc", "ABC", false}, Row{"abc", "abcd", false},
                                         Row{"abc", "ab", false}, Row{"a]b", "a]b", true},
                                         Row{"한글", "한글", true}));

INSTANTIATE_TEST_SUITE_P(
    Runs, Wildcard,
    testing::Values(Row{"*", "", true}, Row{"*", "a\r\nb", true}, Row{"**", "x", true}, Row{"*V", "3V", true},
                    Row{"*V", "3VV", true}, Row{"*V", "3Vx", false}, Row{"*:*", "S1F1: S1 F1", true},
                    Row{"*:*", "S1F1", false}, Row{"*'*'", "A 1 'x'", true}, Row{"*'*'", "A 1 'x", false},
                    Row{"*ab*ab", "abab", true}, Row{"*ab*ab", "ab", false}, Row{"a*b*c", "aXbYbZc", true},
                    Row{"a*b*c", "aXcYb", false}, Row{"*ab", "aab", true}, Row{"*a?b", "aaxaxb", true},
                    Row{"* NAME *", "X NAME Y", true}, Row{"(*)", "(a(b))", true},
                    Row{"*[0-9]x", "1y2x", true}, Row{"*?", "", false}, Row{"*?", "한", true},
                    Row{"*[]*", "abc", true}));

INSTANTIATE_TEST_SUITE_P(Singles, Wildcard,
                         testing::Values(Row{"A?B", "AXB", true}, Row{"A?B", "AB", false},
                                         Row{"?", "한", true}, Row{"??", "한", false}, Row{"?", "\xFF", true},
                                         Row{"S#F#", "S1F2", true}, Row{"S#F#", "S1Fx", false},
                                         Row{"#", "٣", false}, Row{"#", "", false}));

INSTANTIATE_TEST_SUITE_P(
    Sets, Wildcard,
    testing::Values(Row{"[A-F]", "C", true}, Row{"[A-F]", "c", false}, Row{"[A-F]", "G", false},
                    Row{"[A-F]", "", false}, Row{"[!0]", "1", true}, Row{"[!0]", "0", false},
                    Row{"[!0]", "", false}, Row{"[!0]", "12", false}, Row{"[]", "", true},
                    Row{"[]", "a", false}, Row{"a[]b", "ab", true}, Row{"[!]", "!", true},
                    Row{"[!]", "a", false}, Row{"[a!]", "!", true}, Row{"[-a]", "-", true},
                    Row{"[a-]", "-", true}, Row{"[a-]", "b", false}, Row{"[!-a]", "-", false},
                    Row{"[!-a]", "b", true}, Row{"[*]", "*", true}, Row{"[*]", "x", false},
                    Row{"[?]", "?", true}, Row{"[#]", "#", true}, Row{"[#]", "1", false},
                    Row{"[[]", "[", true}, Row{"[a-c0-9]", "7", true}, Row{"[a-c-e]", "-", true},
                    Row{"[a-c-e]", "d", false}, Row{"[a-a]", "a", true}, Row{"[가-힣]", "한", true},
                    Row{"[-]", "-", true}, Row{"[]]", "]", true}, Row{"*[[]K]", "U1 1 2 [K]", true}));

TEST(WildcardRefusal, NamesNoPattern) {
    for (const char* pattern : {"[", "a[b", "*[", "[!", "[z-a]", "[a-cz-a]", "[!9-0]"})
        EXPECT_FALSE(WildcardPattern::compile(pattern).has_value()) << pattern;
}

TEST(WildcardCost, StaysInProportionToPatternAndText) {
    std::string pattern;
    for (int i = 0; i < 200; ++i)
        pattern += "*a";
    const std::string text(100'000, 'a');
    EXPECT_TRUE(WildcardPattern::compile(pattern)->matches(text));
    EXPECT_FALSE(WildcardPattern::compile(pattern + "*b")->matches(text));
    std::string spread;
    for (int i = 0; i < 200; ++i)
        spread += "*?[ab]";
    EXPECT_FALSE(WildcardPattern::compile(spread + "c")->matches(text));
    EXPECT_TRUE(WildcardPattern::compile(std::string(100'000, '*'))->matches(text));
}

TEST(Colon, RecognisesMessages) {
    EXPECT_TRUE(hasColon("S1F1: S1 F1"));
    EXPECT_FALSE(hasColon("A 1 'x'"));
}

} // namespace
} // namespace zb
