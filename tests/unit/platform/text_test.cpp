#include "platform/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb {
namespace {

using Pieces = std::vector<std::string>;

TEST(Text, SplitsAndKeepsEmptyPieces) {
    EXPECT_EQ(split("", ","), Pieces());
    EXPECT_EQ(split("a", ","), Pieces({"a"}));
    EXPECT_EQ(split(",", ","), Pieces({"", ""}));
    EXPECT_EQ(split("a,,b,", ","), Pieces({"a", "", "b", ""}));
    EXPECT_EQ(split("a\r\nb\nc", "\r\n"), Pieces({"a", "b\nc"}));
    EXPECT_EQ(split("a,b", ""), Pieces({"a,b"}));
    EXPECT_EQ(splitAtBlanks("U1 2  rate 1"), Pieces({"U1", "2", "", "rate", "1"}));
    EXPECT_EQ(splitAtBlanks("1 "), Pieces({"1", ""}));
    EXPECT_EQ(splitAtBlanks("a\tb"), Pieces({"a\tb"}));
}

TEST(Text, JoinsWhatWasSplit) {
    EXPECT_EQ(join({}, ", "), "");
    EXPECT_EQ(join({"a"}, ", "), "a");
    EXPECT_EQ(join({"a", "", "b"}, ", "), "a, , b");
}

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trimRight("  a b  "), "  a b");
    EXPECT_EQ(trim("    "), "");
    EXPECT_EQ(trimRight("   "), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim("\t a\u00A0 "), "\t a\u00A0");
    EXPECT_TRUE(isBlank(""));
    EXPECT_TRUE(isBlank("  "));
    EXPECT_FALSE(isBlank(" \t"));
}

TEST(Text, ReplacesFromTheLeft) {
    EXPECT_EQ(replaceAll("it's 'x'", "'", ""), "its x");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("A 1 [K]", " [K]", ""), "A 1");
    EXPECT_EQ(replaceAll("aa", "a", "aa"), "aaaa");
}

TEST(Text, TakesWhatIsBeforeAMark) {
    EXPECT_EQ(before("S1F1: S1 F1", ":"), "S1F1");
    EXPECT_EQ(before("S1F1", ":"), "S1F1");
    EXPECT_EQ(before(":x", ":"), "");
    EXPECT_TRUE(contains("abc", "bc"));
    EXPECT_FALSE(contains("abc", "cb"));
}

struct CaseRow {
    std::string text;
    std::string upper;
    std::string lower;
};

class LetterCase : public testing::TestWithParam<CaseRow> {};

TEST_P(LetterCase, FollowsUnicode) {
    EXPECT_EQ(upper(GetParam().text), GetParam().upper);
    EXPECT_EQ(lower(GetParam().text), GetParam().lower);
}

INSTANTIATE_TEST_SUITE_P(Rows, LetterCase,
                         testing::Values(CaseRow{"", "", ""},
                                         CaseRow{"S1f1 [Az`{@", "S1F1 [AZ`{@", "s1f1 [az`{@"},
                                         CaseRow{"äÖé", "ÄÖÉ", "äöé"}, CaseRow{"Straße", "STRASSE", "straße"},
                                         CaseRow{"ΣΑΣ", "ΣΑΣ", "σασ"}, CaseRow{"привет", "ПРИВЕТ", "привет"},
                                         CaseRow{"i", "I", "i"}, CaseRow{"장비 a", "장비 A", "장비 a"},
                                         CaseRow{"a\xFFz", "A\uFFFDZ", "a\uFFFDz"}));

TEST(LetterCaseComparison, UppercasesBothSides) {
    EXPECT_TRUE(equalsIgnoringCase("s1F1", "S1f1"));
    EXPECT_TRUE(equalsIgnoringCase("", ""));
    EXPECT_FALSE(equalsIgnoringCase("S1F1", "S1F11"));
    EXPECT_FALSE(equalsIgnoringCase("[", "{"));
    EXPECT_TRUE(equalsIgnoringCase("gerät", "GERÄT"));
    EXPECT_TRUE(equalsIgnoringCase("straße", "STRASSE"));
    EXPECT_FALSE(equalsIgnoringCase("gerat", "GERÄT"));
}

TEST(LetterCaseOfLongText, KeepsEveryCharacter) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 5000; ++i) {
        text += "aé한𝄞";
        expected += "AÉ한𝄞";
    }
    EXPECT_EQ(upper(text), expected);
}

struct Utf8Row {
    std::string bytes;
    bool valid;
    std::string sanitized;
};

class Utf8 : public testing::TestWithParam<Utf8Row> {};

TEST_P(Utf8, IsJudgedAndCleaned) {
    EXPECT_EQ(isValidUtf8(GetParam().bytes), GetParam().valid);
    EXPECT_EQ(sanitizeUtf8(GetParam().bytes), GetParam().sanitized);
    EXPECT_TRUE(isValidUtf8(sanitizeUtf8(GetParam().bytes)));
    EXPECT_EQ(codePoints(GetParam().bytes).size(), codePointCount(GetParam().bytes));
    EXPECT_EQ(fromCodePoints(codePoints(GetParam().bytes)), GetParam().sanitized);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Utf8,
    testing::Values(Utf8Row{"", true, ""}, Utf8Row{"plain ascii text", true, "plain ascii text"},
                    Utf8Row{"aé한𝄞", true, "aé한𝄞"}, Utf8Row{"\xC0\x80", false, "\uFFFD\uFFFD"},
                    Utf8Row{"\xE0\x80\x80", false, "\uFFFD\uFFFD\uFFFD"},
                    Utf8Row{"\xED\xA0\x80", false, "\uFFFD\uFFFD\uFFFD"},
                    Utf8Row{"\xF4\x90\x80\x80", false, "\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Utf8Row{"12345678\xE2\x82", false, "12345678\uFFFD\uFFFD"},
                    Utf8Row{"\xC3(x", false, "\uFFFD(x"}, Utf8Row{"\x80", false, "\uFFFD"},
                    Utf8Row{std::string("a\0b", 3), true, std::string("a\0b", 3)}));

TEST(CodePoints, AreReadOneByOne) {
    EXPECT_EQ(codePoints("aé한𝄞"), U"aé한𝄞");
    EXPECT_EQ(codePointCount("aé한𝄞"), 4U);
    EXPECT_EQ(fromCodePoints(std::u32string{0xD800, 0x110000, U'a'}), "\uFFFD\uFFFDa");
}

} // namespace
} // namespace zb
