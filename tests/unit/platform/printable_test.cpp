#include "platform/printable.h"

#include <gmock/gmock.h>

#include <string>

namespace zb {
namespace {

TEST(Printable, PlainTextStaysAsItIs) {
    EXPECT_EQ(printable("S1F13 <A 'x'> ~"), "S1F13 <A 'x'> ~");
    EXPECT_EQ(printable("\xED\x95\x9C \xF0\x9F\x98\x80"), "\xED\x95\x9C \xF0\x9F\x98\x80");
    EXPECT_EQ(printable(""), "");
}

TEST(Printable, WhiteSpaceThatBreaksLinesBecomesABlank) {
    EXPECT_EQ(printable("a\tb\r\nc\vd\fe"), "a b  c d e");
    EXPECT_EQ(printable("a\xE2\x80\xA8"
                        "b\xE2\x80\xA9"
                        "c\xC2\x85"
                        "d"),
              "a b c d");
}

TEST(Printable, ControlCharactersOfBothSetsBecomeAQuestionMark) {
    EXPECT_EQ(printable(std::string("a\0b", 3)), "a?b");
    EXPECT_EQ(printable("\x1B[31mred\x07\x7F"), "?[31mred??");
    EXPECT_EQ(printable("\xC2\x9B"
                        "31m\xC2\x80\xC2\x9F"),
              "?31m??");
    EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0");
}

TEST(Printable, MarksThatTurnTheDirectionBecomeAQuestionMark) {
    EXPECT_EQ(printable("a\xE2\x80\xAE"
                        "b\xE2\x80\xAA\xE2\x81\xA6\xE2\x81\xA9\xD8\x9C\xE2\x80\x8E\xE2\x80\x8F"),
              "a?b??????");
}

TEST(Printable, InvalidBytesBecomeReplacementCharacters) {
    EXPECT_EQ(printable("a\xFFz\xC3"), "a\xEF\xBF\xBDz\xEF\xBF\xBD");
    // A raw C1 byte is no UTF-8, yet some terminals obey it.
    EXPECT_EQ(printable("\x9B"), "\xEF\xBF\xBD");
}

TEST(Printable, LinesKeepTheirEndsAndTabs) {
    EXPECT_EQ(printableLines("a\tb\r\nc\n\x1B\rd\n"), "a\tb\nc\n? d\n");
    EXPECT_EQ(printableLines("a\xE2\x80\xA8"
                             "b"),
              "a b");
}

TEST(Printable, JsonKeepsItsMeaningByEscapes) {
    EXPECT_EQ(printableJson(R"({"a":"plain \u001b"})"), R"({"a":"plain \u001b"})");
    EXPECT_EQ(printableJson("\"\x7F\xC2\x9B\xE2\x80\xAE\xE2\x80\xA8\xED\x95\x9C\""),
              "\"\\u007f\\u009b\\u202e\\u2028\xED\x95\x9C\"");
}

} // namespace
} // namespace zb
