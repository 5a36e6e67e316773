#include "messages/value_loss.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

TEST(LostByCount, NamesTheItemAndBothValues) {
    EXPECT_EQ(lostByCount("A 1 RCMD 'START'", "A 1 RCMD 'S'"),
              "RCMD has a count of 1: 'START' was cut to 'S'");
    EXPECT_EQ(lostByCount("U1 2 1 2 3", "U1 2 1 2"), "The item has a count of 2: 1 2 3 was cut to 1 2");
    EXPECT_EQ(lostByCount("A 0 'x'", "A 0 ''"), "The item has a count of 0: 'x' was cut to ''");
}

TEST(LostByCount, IsNothingWhereAllValuesAreKept) {
    EXPECT_EQ(lostByCount("A 5 'abc'", "A 5 'abc  '"), "");
    EXPECT_EQ(lostByCount("A 3 'abc  '", "A 3 'abc'"), "");
    EXPECT_EQ(lostByCount("U1 3 1", "U1 3 1 0 0"), "");
    EXPECT_EQ(lostByCount("boolean 2 X T", "BOOLEAN 2 X True False"), "");
    EXPECT_EQ(lostByCount("U1 2 1   2", "U1 2 1 2"), "");
}

TEST(LostByCount, ShortensLongValuesBetweenCharacters) {
    std::string text;
    for (int i = 0; i < 30; ++i)
        text += "\xED\x95\x9C"; // a character of three bytes
    const std::string loss = lostByCount("A 1 N '" + text + "'", "A 1 N '?'");
    EXPECT_EQ(loss, "N has a count of 1: '" + text.substr(0, 39) + "...' was cut to '?'");
}

TEST(LostByType, NamesTheNumberThatDoesNotFit) {
    EXPECT_EQ(lostByType("U2", "1 70000", "1 0"), "70000 does not fit into U2 and became 0");
    EXPECT_EQ(lostByType("U8", "12345678901234567", "1.23456789012346E+16"),
              "12345678901234567 does not fit into U8 and became 1.23456789012346E+16");
    EXPECT_EQ(lostByType("F4", "1E39", "0"), "1E39 does not fit into F4 and became 0");
}

TEST(LostByType, IsNothingWhereOnlyTheNotationChanges) {
    EXPECT_EQ(lostByType("U2", " 007  1E2", "7 100"), "");
    EXPECT_EQ(lostByType("F4", "3.14159265", "3.141593"), "");
    EXPECT_EQ(lostByType("F4", "0.0", "0"), "");
    EXPECT_EQ(lostByType("U2", "", "0"), "");
}

} // namespace
} // namespace zb
