#include "modeler/sent_values.h"

#include "messages/item_record.h"
#include "model/reserved_words.h"
#include "platform/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

namespace zb {
namespace {

SECSItemRecord itemOf(std::string_view text) {
    SECSItemRecord item;
    item.parseText(text);
    return item;
}

struct TextCase {
    const char* item;
    const char* value;
    const char* text;
};

class SetItemValue : public testing::TestWithParam<TextCase> {};

TEST_P(SetItemValue, BuildsTheTextAgain) {
    SECSItemRecord item = itemOf(GetParam().item);
    EXPECT_EQ(setItemValue(item, GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    AllTypes, SetItemValue,
    testing::Values(
        TextCase{"L 5V LIST", "3", "L 3 LIST"}, TextCase{"L 5V LIST", "0", "L 0 LIST"},
        TextCase{"L 5V LIST", "2.5", "L 2 LIST"}, TextCase{"L 5 LIST", "3", "L 3 "},
        TextCase{"A 6 MDLN 'x'", "abc", "A 6 MDLN 'abc'"}, TextCase{"A 6V MDLN 'x'", "", "A 6V MDLN ''"},
        TextCase{"A 6 'x'", "it's", "A 6  'it's'"}, TextCase{"X 3 RAW ''", "1 2", "X 3 RAW '1 2'"},
        TextCase{"J 4 NOTE 'old'", "12", "J 4 NOTE 12"}, TextCase{"J 4V NOTE ''", "", "J 4V NOTE "},
        TextCase{"B 2 BITS 0 0", "1 2", "B 2 BITS 1 2"}, TextCase{"U4 1", "7", "U4 1  7"},
        TextCase{"BOOLEAN 1 ON True", "False", "BOOLEAN 1 ON False"},
        TextCase{"I2 2V PAIR 1 2", "3", "I2 2V PAIR 3"}, TextCase{"A 6 KEY 'x' [K]", "y", "A 6 KEY 'y'"}));

TEST(SetItemValueRoundTrip, IsReadBackAsItWasSet) {
    for (const char* text : {"A 6V MDLN 'x'", "A 6 'x'", "U4 1", "U4 1 N 3", "BOOLEAN 1 True", "J 4 'x'"}) {
        SECSItemRecord item = itemOf(text);
        const SECSItemRecord again = itemOf(setItemValue(item, "17"));
        EXPECT_EQ(again.getValue(), "17") << text;
        EXPECT_EQ(again.getName(), item.getName()) << text;
        EXPECT_EQ(again.getCount(), item.getCount()) << text;
        EXPECT_EQ(again.isFixed(), item.isFixed()) << text;
    }
}

TEST(ListCountOf, TakesWholeNumbersOfSixteenBits) {
    EXPECT_EQ(listCountOf("0"), 0);
    EXPECT_EQ(listCountOf(" 12 "), 12);
    EXPECT_EQ(listCountOf("1.5"), 2);
    EXPECT_EQ(listCountOf("32767"), 32767);
    for (const char* text : {"", " ", "x", "1 2", "-1", "32768", "1e99", "1e999"})
        EXPECT_EQ(listCountOf(text), std::nullopt) << text;
}

/// The codes that unlock the field, from 0 to 255.
std::set<int> unlocking(const char* item, std::size_t length, int shift = 0) {
    const SECSItemRecord record = itemOf(item);
    std::set<int> codes;
    for (int code = 0; code < 256; ++code) {
        const KeyEffect effect = filterSentValueKey(&record, {code, shift}, length);
        if (effect == KeyEffect::Unlock)
            codes.insert(code);
        else
            EXPECT_EQ(effect, KeyEffect::Lock) << code;
    }
    return codes;
}

std::set<int> allCodes() {
    std::set<int> codes;
    for (int code = 0; code < 256; ++code)
        codes.insert(code);
    return codes;
}

const std::set<int> kNumberCodes{48, 49, 50,  51,  52,  53,  54,  55,  56, 57, 96, 97,
                                 98, 99, 100, 101, 102, 103, 104, 105, 8,  46, 32};

TEST(SentValueKeys, LockWithoutAnItem) {
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(filterSentValueKey(nullptr, {code, 0}, 0), KeyEffect::Lock);
}

TEST(SentValueKeys, FillTextUpToItsCount) {
    for (const char* item : {"A 6 N ''", "X 6 N ''", "A 6V N ''"}) {
        EXPECT_EQ(unlocking(item, 0), allCodes()) << item;
        EXPECT_EQ(unlocking(item, 5), allCodes()) << item;
        EXPECT_EQ(unlocking(item, 6), (std::set<int>{8, 46})) << item;
        EXPECT_EQ(unlocking(item, 7, kShiftKey), (std::set<int>{8, 46})) << item;
    }
    EXPECT_EQ(unlocking("A 0 N ''", 0), (std::set<int>{8, 46}));
}

TEST(SentValueKeys, TakeDigitsAndBlanksForAllOtherTypes) {
    for (const char* item :
         {"L 5V N", "J 1 N ''", "B 1 N 0", "I1 1 N 0", "U8 1 N 0", "F4 1 N 0", "F8 1 N 0"}) {
        EXPECT_EQ(unlocking(item, 0), kNumberCodes) << item;
        EXPECT_EQ(unlocking(item, 99, kShiftKey), kNumberCodes) << item;
    }
}

TEST(SentValueKeys, TakeZeroAndOneForBoolean) {
    EXPECT_EQ(unlocking("BOOLEAN 1 N True", 9), (std::set<int>{48, 49, 96, 97, 8, 46, 32}));
    const SECSItemRecord item = itemOf("BOOLEAN 1 N True");
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(filterSentValueKey(&item, {code, kShiftKey}, 0), KeyEffect::Leave);
    EXPECT_EQ(unlocking("BOOLEAN 1 N True", 0, kShiftKey | kControlKey),
              (std::set<int>{48, 49, 96, 97, 8, 46, 32}));
}

class ReservedWord : public testing::TestWithParam<const char*> {};

TEST_P(ReservedWord, IsKnownInUpperCase) {
    EXPECT_TRUE(checkReservedWord(GetParam()));
    EXPECT_FALSE(checkReservedWord(lower(GetParam())));
    EXPECT_FALSE(checkReservedWord(std::string(GetParam()) + "S"));
}

INSTANTIATE_TEST_SUITE_P(All, ReservedWord,
                         testing::Values("PRIVATE", "PUBLIC", "FRIEND", "END", "FUNCTION", "SUB", "PROPERTY",
                                         "EVENT", "VARIANT", "INTEGER", "STRING", "LONG", "DOUBLE", "BYTE",
                                         "BOOLEAN", "CURRENCY", "DATE", "SINGLE", "OBJECT", "ENUM", "CONST",
                                         "TYPE", "DECLARE", "NEW", "DIM", "LOAD", "UNLOAD"));

TEST(ReservedWords, AreNoOthers) {
    for (const char* word : {"", "IF", "ELSE", "CLASS", "NUMERIC", "SET", "MESSAGE"})
        EXPECT_FALSE(checkReservedWord(word)) << word;
}

} // namespace
} // namespace zb
