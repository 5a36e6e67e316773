#include "messages/secs2/item_codec.h"
#include "unit/secs2/random_items.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

using namespace std::string_view_literals;

namespace zb::secs2 {
namespace {

Items decoded(std::string_view bytes) {
    Items items;
    const auto fault = decodeItems(bytes, items);
    EXPECT_FALSE(fault) << fault->offset << ": " << fault->text;
    return items;
}

void expectFault(std::string_view bytes, std::size_t offset, std::string_view text) {
    Items items;
    const auto fault = decodeItems(bytes, items);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->offset, offset);
    EXPECT_EQ(fault->text, text);
    EXPECT_TRUE(items.empty());
}

TEST(ItemCodec, WhatIsEncodedDecodesToTheSameItems) {
    std::mt19937 random(4711);
    for (int round = 0; round < 2000; ++round) {
        const Items items = test::randomItems(random);
        std::string bytes;
        ASSERT_TRUE(encodeItems(items, bytes));
        Items again;
        const auto fault = decodeItems(bytes, again);
        ASSERT_FALSE(fault) << fault->text;
        ASSERT_TRUE(again == items) << "round " << round;
        std::string bytesAgain;
        encodeItems(again, bytesAgain);
        ASSERT_EQ(bytesAgain, bytes);
    }
}

TEST(ItemCodec, ReadsAListOfTexts) {
    const Items items = decoded("\x01\x02\x41\x06ZE3000\x41\x06V04R21"sv);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].format, Format::List);
    EXPECT_EQ(items[0].size, 2U);
    EXPECT_EQ(items[0].end, 3U);
    EXPECT_EQ(items.data(items[1]), "ZE3000");
    EXPECT_EQ(items.data(items[2]), "V04R21");
}

TEST(ItemCodec, ReadsNumbersAsBigEndian) {
    const Items items =
        decoded("\x01\x06\x71\x04\xFF\xFF\xFF\xFE\xA9\x02\x01\x00\xA1\x08\xFF\xFF\xFF\xFF\xFF\xFF"
                "\xFF\xFF\x91\x04\x3F\x80\x00\x00\x25\x02\x00\x07\x81\x08\xC0\x00\x00\x00\x00\x00\x00\x00"sv);
    EXPECT_EQ(items.signedValue(items[1], 0), -2);
    EXPECT_EQ(items.unsignedValue(items[2], 0), 256U);
    EXPECT_EQ(items.unsignedValue(items[3], 0), 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(items.floatValue(items[4], 0), 1.0);
    EXPECT_EQ(Items::count(items[5]), 2U);
    EXPECT_EQ(items.floatValue(items[6], 0), -2.0);
    std::string text;
    items.appendValue(text, items[5], 0);
    items.appendValue(text, items[5], 1);
    EXPECT_EQ(text, "FalseTrue");
}

TEST(ItemCodec, TakesMoreLengthBytesThanNeeded) {
    const Items items = decoded("\x43\x00\x00\x02ok"sv);
    EXPECT_EQ(items.data(items[0]), "ok");
}

TEST(ItemCodec, WritesTheFewestLengthBytes) {
    for (const auto& [length, head] : {std::pair<std::size_t, std::string>{255, "\x41\xFF"},
                                       {256, std::string("\x42\x01\x00", 3)},
                                       {65536, std::string("\x43\x01\x00\x00", 4)}}) {
        Items items;
        items.addText(Format::Ascii, std::string(length, 'x'));
        std::string bytes;
        ASSERT_TRUE(encodeItems(items, bytes));
        EXPECT_EQ(bytes.substr(0, head.size()), head);
        EXPECT_EQ(bytes.size(), head.size() + length);
    }
}

TEST(ItemCodec, AnItemThatIsTooLargeIsNotEncoded) {
    Items items;
    items.addText(Format::Ascii, std::string(kLargestItem + 1, 'x'));
    std::string bytes = "before";
    EXPECT_FALSE(encodeItems(items, bytes));
    EXPECT_EQ(bytes, "before");
}

TEST(ItemCodec, NoBytesAreAMessageWithoutData) {
    EXPECT_TRUE(decoded("").empty());
}

TEST(ItemCodec, EveryFormatMayBeEmpty) {
    for (unsigned code = 0; code < 64; ++code) {
        if (!traitsOfCode(code))
            continue;
        const std::string bytes{static_cast<char>(code << 2U | 1U), '\0'};
        EXPECT_EQ(decoded(bytes).size(), 1U) << code;
    }
}

TEST(ItemCodec, ReportsTheOffsetOfAFault) {
    expectFault("\x01\x02\x41\x01X\xFD\x01"sv, 5, "the format byte has no known format code");
    expectFault("\x01\x02\x41\x01X\x40"sv, 5, "the format byte announces no length byte");
    expectFault("\x41"sv, 0, "the data ends within the length bytes of an item");
    expectFault("\x43\x01"sv, 0, "the data ends within the length bytes of an item");
    expectFault("\x41\x03X"sv, 0, "an item of format A claims 3 bytes, 1 are left");
    expectFault("\xB1\x03XXX"sv, 0, "an item of format U4 has 3 bytes, which are no whole values");
    expectFault("\x41\x01XYZ"sv, 3, "2 bytes follow the item");
    expectFault("\x01\x02\x41\x02XY"sv, 6, "the data ends within a list; 1 more members are announced");
}

TEST(ItemCodec, ALengthThatExceedsTheDataTakesNoMemory) {
    expectFault("\x03\xFF\xFF\xFF"sv, 0, "a list claims 16777215 members, 0 bytes are left");
    expectFault("\x43\xFF\xFF\xFFX"sv, 0, "an item of format A claims 16777215 bytes, 1 are left");
}

TEST(ItemCodec, RefusesListsThatAreTooDeep) {
    std::string bytes;
    for (std::size_t i = 0; i < kDeepestList; ++i)
        bytes += "\x01\x01";
    EXPECT_EQ(decoded(bytes + std::string("\x41\x00", 2)).size(), kDeepestList + 1);
    expectFault(bytes + "\x01\x01\x01\x01", 2 * kDeepestList, "more than 1000 lists within each other");
}

TEST(ItemCodec, AnyBytesGiveItemsOrAFaultWithinThem) {
    std::mt19937 random(99);
    for (int round = 0; round < 20'000; ++round) {
        Items items = test::randomItems(random);
        std::string bytes;
        encodeItems(items, bytes);
        if (bytes.empty() || bytes.size() > 5000)
            continue;
        bytes[random() % bytes.size()] = static_cast<char>(random());
        bytes.resize(bytes.size() - random() % 2);
        const auto fault = decodeItems(bytes, items);
        ASSERT_LE(fault ? fault->offset : 0, bytes.size());
    }
}

} // namespace
} // namespace zb::secs2
