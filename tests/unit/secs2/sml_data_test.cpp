#include "messages/secs2/sml_data.h"
#include "unit/secs2/random_items.h"

#include <gtest/gtest.h>
#include <string>

namespace zb::secs2 {
namespace {

Items read(std::string_view text) {
    Items items;
    const auto fault = readSmlData(text, items);
    EXPECT_FALSE(fault) << fault->offset << ": " << fault->text;
    return items;
}

std::string written(const Items& items) {
    std::string text;
    appendSmlData(text, items, 0);
    return text;
}

void expectFault(std::string_view text, std::size_t offset, std::string_view what) {
    Items items;
    const auto fault = readSmlData(text, items);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->offset, offset);
    EXPECT_EQ(fault->text, what);
    EXPECT_TRUE(items.empty());
}

TEST(SmlData, WhatIsWrittenReadsAsTheSameItems) {
    std::mt19937 random(815);
    for (int round = 0; round < 1000; ++round) {
        const Items items = test::randomItems(random);
        const Items again = read(written(items));
        ASSERT_EQ(written(again), written(items));
        ASSERT_TRUE(again == items) << written(items);
    }
}

TEST(SmlData, IndentsByLevel) {
    EXPECT_EQ(written(read("<L<B 1 0xff><L><A 'x'>>.")),
              "<L [3]\n  <B [2] 0x01 0xFF>\n  <L [0]\n  >\n  <A [1] \"x\">\n>\n");
}

TEST(SmlData, TextsMayComeWithoutQuotes) {
    EXPECT_EQ(written(read("<L [2]\n  <A [6] ZE3000>\n  <A [8] //a b> 1>\n>\n.")),
              "<L [2]\n  <A [6] \"ZE3000\">\n  <A [8] \"//a b> 1\">\n>\n");
    EXPECT_EQ(written(read("<A [4] 1234>")), "<A [4] \"1234\">\n");
    EXPECT_EQ(written(read("<A ZE3000 >")), "<A [6] \"ZE3000\">\n");
    EXPECT_EQ(written(read("<A [0] >")), "<A [0] \"\">\n");
}

TEST(SmlData, ReadsTheDialectsOfMessageLists) {
    const Items items = read("<L,4\n <A,5 [MDLN] 'MDLN1'> = Name /* c */\n <Boolean[3] T False 0x01> // x\n"
                             "<B 10 0x0A A4 0b101>* note\n <U2 '356' 7>\n> .");
    EXPECT_EQ(written(items), "<L [4]\n  <A [5] \"MDLN1\">\n  <BOOLEAN [3] True False True>\n"
                              "  <B [4] 0x0A 0x0A 0xA4 0x05>\n  <U2 [2] 356 7>\n>\n");
    EXPECT_EQ(written(read("<A 'a' 0x0A \"b\">")), "<A [3] \"a\" 0x0A \"b\">\n");
    EXPECT_EQ(written(read("<A 'Joe's lot'>")), "<A [9] \"Joe's lot\">\n");
    EXPECT_EQ(written(read("<F4 1e3 -.5>")), "<F4 [2] 1000 -0.5>\n");
    EXPECT_TRUE(read(".").empty());
    EXPECT_TRUE(read("").empty());
}

TEST(SmlData, TheDeclaredCountDelimitsATextWithQuotes) {
    EXPECT_EQ(written(read("<A[5] \"a\" \"b\">")), "<A [5] \"a\" 0x22 \" \" 0x22 \"b\">\n");
}

TEST(SmlData, ReportsTheOffsetOfAFault) {
    expectFault("<L <U1 300>>", 7, "expected a whole number from 0 to 255 or \">\", found \"300\"");
    expectFault("<Q 1>", 1, "expected a format, as L or A, found \"Q\"");
    expectFault("<L <A 'x'>", 10, "the message ends within a list");
    expectFault("<A 'x", 3, "expected a text and \">\", found \"'x\"");
    expectFault("<A 'x'> <A 'y'>", 8, "the message has more than one item outside of a list");
    expectFault("<A [6 'x'>", 3, "expected \"]\" after \"[\"");
}

TEST(SmlData, RefusesListsThatAreTooDeep) {
    std::string text;
    for (std::size_t i = 0; i <= kDeepestList; ++i)
        text += "<L ";
    Items items;
    const auto fault = readSmlData(text, items);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->text, "more than 1000 lists within each other");
}

} // namespace
} // namespace zb::secs2
