#include "platform/code_page.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/text.h"

namespace zb {
namespace {

struct ByteRow {
    int number;
    std::string text;
    std::string bytes;
};

class CodePageBytes : public testing::TestWithParam<ByteRow> {};

TEST_P(CodePageBytes, ConvertBothWays) {
    const CodePage page(GetParam().number);
    EXPECT_TRUE(page.known());
    EXPECT_EQ(page.number(), GetParam().number);
    EXPECT_EQ(page.fromUtf8(GetParam().text), GetParam().bytes);
    EXPECT_EQ(page.toUtf8(GetParam().bytes), GetParam().text);
    EXPECT_EQ(page.ansiByteLength(GetParam().text), GetParam().bytes.size());
    EXPECT_EQ(page.fromUtf8("A\\~|'"), "A\\~|'");
}

INSTANTIATE_TEST_SUITE_P(Rows, CodePageBytes,
                         testing::Values(ByteRow{1252, "é€", "\xE9\x80"},
                                         ByteRow{949, "한A",
                                                 "\xC7\xD1"
                                                 "A"},
                                         ByteRow{932, "ソ", "\x83\x5C"}, ByteRow{932, "ｱ", "\xB1"},
                                         ByteRow{936, "中", "\xD6\xD0"}, ByteRow{950, "中", "\xA4\xA4"},
                                         ByteRow{874, "ก", "\xA1"}, ByteRow{1250, "ł", "\xB3"},
                                         ByteRow{1251, "я", "\xFF"}, ByteRow{1253, "α", "\xE1"},
                                         ByteRow{1254, "ğ", "\xF0"}, ByteRow{1255, "א", "\xE0"},
                                         ByteRow{1256, "ا", "\xC7"}, ByteRow{1257, "ė", "\xEB"},
                                         ByteRow{1258, "đ", "\xF0"}, ByteRow{437, "é", "\x82"},
                                         ByteRow{28591, "é", "\xE9"}, ByteRow{65001, "한", "\xED\x95\x9C"}));

TEST(CodePageNumber, FallsBackToWestern) {
    for (const int number : {0, -1, 1, 99999, 1200, 1201, 37, 500, 65000, 50220, 12000}) {
        const CodePage page(number);
        EXPECT_FALSE(page.known()) << number;
        EXPECT_EQ(page.number(), 1252) << number;
        EXPECT_EQ(page.fromUtf8("é"), "\xE9") << number;
    }
}

TEST(CodePageBytes, ReplaceWhatTheyCannotHold) {
    EXPECT_EQ(CodePage(1252).fromUtf8("a한b𝄞c"), "a?b?c");
    EXPECT_EQ(CodePage(949).fromUtf8("é\u200D\u2060"), "???"); // an invisible joiner counts too
    EXPECT_EQ(CodePage(949).toUtf8("a\xC7"), "a\uFFFD");
    EXPECT_EQ(CodePage(932).toUtf8("\xFF"
                                   "b"),
              "\uFFFD"
              "b");
    EXPECT_EQ(CodePage(1252).fromUtf8("a\xFF"), "a?");
}

struct CutRow {
    int number;
    std::string text;
    long start;
    long count;
    std::string cut;
};

class AnsiCut : public testing::TestWithParam<CutRow> {};

TEST_P(AnsiCut, CountsBytes) {
    const CodePage page(GetParam().number);
    const std::string cut = page.midAnsi(GetParam().text, GetParam().start, GetParam().count);
    EXPECT_EQ(cut, GetParam().cut);
    EXPECT_TRUE(isValidUtf8(cut));
}

constexpr long kMost = std::numeric_limits<long>::max();

INSTANTIATE_TEST_SUITE_P(Western, AnsiCut,
                         testing::Values(CutRow{1252, "abcdef", 1, 3, "abc"},
                                         CutRow{1252, "abcdef", 4, 99, "def"}, CutRow{1252, "abc", 4, 1, ""},
                                         CutRow{1252, "abc", 1, 0, ""}, CutRow{1252, "abc", 1, -1, ""},
                                         CutRow{1252, "abc", 0, 2, ""}, CutRow{1252, "abc", -5, 9, ""},
                                         CutRow{1252, "", 1, 1, ""}, CutRow{1252, "héé", 2, 1, "é"},
                                         CutRow{1252, "a한b", 1, 2, "a?"},
                                         CutRow{1252, "abc", 2, kMost, "bc"},
                                         CutRow{1252, "abc", kMost, kMost, ""}));

// "한글" is C7 D1 B1 DB in 949, "ソア" is 83 5C 83 41 in 932.
INSTANTIATE_TEST_SUITE_P(TwoByte, AnsiCut,
                         testing::Values(CutRow{949, "한글", 1, 2, "한"}, CutRow{949, "한글", 1, 3, "한?"},
                                         CutRow{949, "한글", 1, 1, "?"}, CutRow{949, "한글", 3, 2, "글"},
                                         CutRow{949, "a한", 1, 2, "a?"}, CutRow{949, "한글", 4, 1, "?"},
                                         CutRow{932, "ソア", 1, 2, "ソ"}, CutRow{932, "ソア", 2, 1, "\\"},
                                         CutRow{932, "ソア", 1, 3, "ソ?"}, CutRow{932, "ソア", 2, 9, "\\ア"},
                                         CutRow{932, "ソア", 4, 1, "A"}, CutRow{936, "中文", 1, 3, "中?"},
                                         CutRow{950, "中文", 1, 1, "?"}));

TEST(AnsiCut, NeverMeasuresMoreThanItsCount) {
    const std::string text = "a한글b日本語ソé𝄞z中文テスト";
    for (const int number : {1252, 932, 949, 936, 950, 65001}) {
        const CodePage page(number);
        for (long start = 1; start < 50; ++start) {
            for (long count = 0; count < 50; ++count) {
                const std::string cut = page.midAnsi(text, start, count);
                ASSERT_LE(page.ansiByteLength(cut), static_cast<std::size_t>(count))
                    << number << ' ' << start << ' ' << count << ' ' << cut;
                ASSERT_TRUE(isValidUtf8(cut));
            }
        }
    }
}

TEST(AnsiCut, HoldsForLongTexts) {
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "한";
    const CodePage page(949);
    EXPECT_EQ(page.ansiByteLength(text), 10'000U);
    EXPECT_EQ(page.midAnsi(text, 1, 10'000), text);
    EXPECT_EQ(page.midAnsi(text, 9'999, 2), "한");
}

TEST(AnsiValue, IsThatOfTheFirstCharacter) {
    EXPECT_EQ(CodePage(1252).ansiValue("A"), 65U);
    EXPECT_EQ(CodePage(1252).ansiValue("é"), 0xE9U);
    EXPECT_EQ(CodePage(1252).ansiValue("Abc"), 65U);
    EXPECT_EQ(CodePage(1252).ansiValue(""), 0U);
    EXPECT_EQ(CodePage(1252).ansiValue("한"), 63U);
    EXPECT_EQ(CodePage(949).ansiValue("한"), 0xC7D1U);
}

TEST(CodePageOfLocale, FollowsTheLanguage) {
    EXPECT_EQ(codePageFromLocale("ko_KR.UTF-8"), 949);
    EXPECT_EQ(codePageFromLocale("ja_JP"), 932);
    EXPECT_EQ(codePageFromLocale("zh_CN.UTF-8"), 936);
    EXPECT_EQ(codePageFromLocale("zh_SG"), 936);
    EXPECT_EQ(codePageFromLocale("zh_TW.Big5"), 950);
    EXPECT_EQ(codePageFromLocale("zh_HK"), 950);
    EXPECT_EQ(codePageFromLocale("zh-Hant"), 950);
    EXPECT_EQ(codePageFromLocale("pl_PL.UTF-8"), 1250);
    EXPECT_EQ(codePageFromLocale("ru_RU"), 1251);
    for (const char* western : {"", "C", "POSIX", "en_US.UTF-8", "de_DE@euro", "kok_IN", " ", "k"})
        EXPECT_EQ(codePageFromLocale(western), 1252) << western;
}

TEST(CodePageChoice, PrefersTheSetting) {
    EXPECT_EQ(chooseCodePage("932", "ko_KR.UTF-8").number(), 932);
    EXPECT_EQ(chooseCodePage("NotExist", "ko_KR.UTF-8").number(), 949);
    EXPECT_EQ(chooseCodePage("", "C").number(), 1252);
    EXPECT_EQ(chooseCodePage("12345", "ja_JP").number(), 932);
    EXPECT_EQ(chooseCodePage("1e30", "ja_JP").number(), 932);
}

} // namespace
} // namespace zb
