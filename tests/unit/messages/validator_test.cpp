#include "unit/messages/workbench.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

struct ItemCase {
    std::string before; ///< of a single item
    std::string after;
    std::string fault; ///< led by "! " for the stop icon
};

void PrintTo(const ItemCase& tested, std::ostream* out) {
    *out << tested.before;
}

class Items : public testing::TestWithParam<ItemCase> {};

TEST_P(Items, AreNormalizedAndChecked) {
    test::Workbench bench;
    Node& node = bench.tree.add(nullptr, Relation::Last, GetParam().before);
    Validator validator(bench.codePage);
    const auto [fault, canonicalText] = validator.check(node);
    EXPECT_EQ(node.text(), GetParam().before);
    EXPECT_EQ(canonicalText.value_or(node.text()), GetParam().after);
    EXPECT_NE(canonicalText, GetParam().before) << "a change that is none";
    EXPECT_EQ(fault ? test::Workbench::textOf(*fault) : "", GetParam().fault);
}

const std::string kNoName = "Insert item name";
const std::string kNameChars = "! The name of this item is not correct";
const std::string kNameWord = "! Item name is not correct.";
const std::string kBinary = "! Insert binary for initial value.";
const std::string kBinaryNumber = "! Insert binary for initial value..";
const std::string kBoolean = "! Insert boolean(0, 1, False, True) for initial value.";
const std::string kInteger = "! Insert integer for initial value.";
const std::string kUnsigned = "! Insert unsigned integer for initial value.";
const std::string kFloat = "! Insert floating point for initial value.";
const std::string kCount = "! The count of sub items is not correct.\r\nChange the item count";

INSTANTIATE_TEST_SUITE_P(Names, Items,
                         testing::Values(ItemCase{"L 0", "L 0", ""}, ItemCase{"L 0 LIST_1", "L 0 LIST_1", ""},
                                         ItemCase{"L 0 a-b", "L 0 a-b", kNameChars},
                                         ItemCase{"L 5V", "L 5V", kNoName},
                                         ItemCase{"L 5V 12", "L 5V 12", kNoName},
                                         ItemCase{"L 5V N", "L 5V N", ""},
                                         ItemCase{"L 5V n\xC3\xA9", "L 5V n\xC3\xA9", kNameChars},
                                         ItemCase{"A 2 N.x 'ab'", "A 2 N.x 'ab'", ""},
                                         ItemCase{"A 2 N/x 'ab'", "A 2 N/x 'ab'", kNameChars},
                                         ItemCase{"A 2 [x] 'ab'", "A 2 [x] 'ab'", kNameChars}));

INSTANTIATE_TEST_SUITE_P(
    Normalization, Items,
    testing::Values(ItemCase{"A 3 NAME 'abcdef'", "A 3 NAME 'abc'", ""},
                    ItemCase{"A 6 NAME 'ab'", "A 6 NAME 'ab    '", ""},
                    ItemCase{"A 6V NAME 'ab' [k]", "A 6V NAME 'ab' [K]", ""},
                    ItemCase{"A 1V 'ab'", "A 1V 'a'", ""}, ItemCase{"a 1 'x'", "A 1 'x'", ""},
                    ItemCase{"J 0 'x'", "J 0 ''", ""}, ItemCase{"X -4 'x'", "X -4 ''", ""},
                    ItemCase{"A x 'ab'", "A 0 ''", ""}, ItemCase{"A 1000001 'x'", "A 1000001 'x'", ""},
                    ItemCase{"A 2000000000 'x'", "A 2000000000 'x'", ""},
                    ItemCase{"A 2000000000V 'x'", "A 2000000000V 'x'", ""},
                    ItemCase{"U1 2000000000 1", "U1 2000000000 1", ""}, ItemCase{"U1 3 1", "U1 3 1 0 0", ""},
                    ItemCase{"U1 2 N 1  2 3", "U1 2 N 1 2", ""}, ItemCase{"U1 3V 1", "U1 3V 1", ""},
                    ItemCase{"U1 1V 1 2 [K]", "U1 1V 1 [K]", ""}, ItemCase{"U1 0 N 5", "U1 0 N", ""},
                    ItemCase{"BOOLEAN 2 T", "BOOLEAN 2 T False False", ""},
                    ItemCase{"BOOLEAN 2 N T", "BOOLEAN 2 N True False", ""},
                    ItemCase{"BOOLEAN 4 0 2 true x", "BOOLEAN 4 False True True False", ""},
                    ItemCase{"BOOLEAN 2V N fALSE", "BOOLEAN 2V N False", ""}));

INSTANTIATE_TEST_SUITE_P(
    Values, Items,
    testing::Values(
        ItemCase{"B 1 255", "B 1 255", ""}, ItemCase{"B 1 256", "B 1 256", kBinary},
        ItemCase{"B 1 +5", "B 1 +5", kBinary}, ItemCase{"B 1 1.0", "B 1 1.0", kBinary},
        ItemCase{"B 1 N.x 5", "B 1 N.x 5", kNameWord}, ItemCase{"B 1 N x1", "B 1 N x1", kBinaryNumber},
        ItemCase{"B 1 N 300", "B 1 N 300", kBinary}, ItemCase{"B 1 N -1", "B 1 N -1", kBinary},
        ItemCase{"B 2 N 1 x", "B 2 N 1 x", kBinaryNumber},
        ItemCase{"BOOLEAN 1 N.x", "BOOLEAN 1 N.x False", kNameWord}, ItemCase{"I4 1 +5", "I4 1 +5", ""},
        ItemCase{"I4 1 1.5", "I4 1 1.5", kInteger}, ItemCase{"I4 1 N 1.5", "I4 1 N 1.5", kInteger},
        ItemCase{"I1 1 N x", "I1 1 N x", kInteger}, ItemCase{"I1 1 N.x 5", "I1 1 N.x 5", kNameWord},
        ItemCase{"U4 1 +5", "U4 1 +5", kUnsigned}, ItemCase{"U4 1 N -5", "U4 1 N -5", kUnsigned},
        ItemCase{"U4 1 N x", "U4 1 N x", kUnsigned}, ItemCase{"U8 1 N.x 5", "U8 1 N.x 5", kNameWord},
        ItemCase{"F4 1 -1.5E+3", "F4 1 -1.5E+3", ""}, ItemCase{"F8 1 N x", "F8 1 N x", kFloat},
        ItemCase{"F8 1 N.x 1", "F8 1 N.x 1", kNameWord}, ItemCase{"U1 1 [K] x", "U1 1 [K] x", kUnsigned},
        ItemCase{"U1 1 '5'", "U1 1 '5'", ""}, ItemCase{"Z 1 5", "Z 1 5", "Bad item type"},
        ItemCase{"hello", "HELLO 0", "Bad item type"}, ItemCase{"", "", "Bad item type"},
        ItemCase{"L 1", "L 1", kCount}, ItemCase{"L x", "L x", ""}, ItemCase{"L", "L", ""},
        ItemCase{"l 2", "l 2", kCount}));

struct ListCase {
    std::string text;
    int children;
    std::string fault;
};

void PrintTo(const ListCase& tested, std::ostream* out) {
    *out << tested.text;
}

class Lists : public testing::TestWithParam<ListCase> {};

TEST_P(Lists, HaveTheirCountOfSubItems) {
    const OptionalFault fault = valueFault(GetParam().text, GetParam().children);
    EXPECT_EQ(fault ? fault->text : "", GetParam().fault);
}

const std::string kTooMany = "There are too many sub items.\r\nChange the item count";
const std::string kWrong = "The count of sub items is not correct.\r\nChange the item count";

INSTANTIATE_TEST_SUITE_P(Counts, Lists,
                         testing::Values(ListCase{"L 20V N", 0, ""}, ListCase{"L 20V N", 1, ""},
                                         ListCase{"L 20V N", 2, kTooMany}, ListCase{"l 20v N", 2, kTooMany},
                                         ListCase{"L 2 N", 2, ""}, ListCase{"L 2", 1, kWrong},
                                         ListCase{"L 2", 3, kWrong}, ListCase{" L 2 ", 2, ""},
                                         ListCase{"L  2", 2, kWrong}));

TEST(ValueRules, BooleanWordsAfterTheThirdAreNumbersOrNames) {
    EXPECT_FALSE(valueFault("BOOLEAN 2 1 tRuE", 0).has_value());
    EXPECT_FALSE(valueFault("BOOLEAN 2 N 0 FALSE", 0).has_value());
    EXPECT_EQ(valueFault("BOOLEAN 1 2", 0)->text, "Insert boolean(0, 1, False, True) for initial value.");
    EXPECT_EQ(valueFault("BOOLEAN 1 N T", 0)->text, "Insert boolean(0, 1, False, True) for initial value.");
}

TEST(NameRules, LettersDigitsUnderscoreAndPointMakeAName) {
    EXPECT_TRUE(nameCharsFault("a b").has_value());
    EXPECT_TRUE(nameCharsFault("\xED\x95\x9C").has_value());
    EXPECT_FALSE(nameCharsFault("A_z.09").has_value());
}

TEST(NameRules, ANameOccursOnceInAMessage) {
    test::Workbench bench;
    for (const char* text : {"A 1 one 'x'", "L 0 ONE", "U1 1 two 5", "U1 1 5"})
        bench.tree.add(nullptr, Relation::Last, text);
    Validator validator(bench.codePage);
    const auto faultOf = [&](int index) { return validator.check(*bench.tree.at(index)).fault; };
    EXPECT_FALSE(faultOf(1));
    const OptionalFault fault = faultOf(2);
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(test::Workbench::textOf(*fault), "! The name of this item be duplicated");
    EXPECT_FALSE(faultOf(3));
    EXPECT_FALSE(faultOf(4));
    validator.beginMessage();
    EXPECT_FALSE(faultOf(2));
}

TEST(NameRules, CharactersAreCheckedOnTheirOwn) {
    EXPECT_FALSE(nameCharsFault("Ab_9."));
    const OptionalFault fault = nameCharsFault("a-b");
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(test::Workbench::textOf(*fault), "! The name of this item is not correct");
}

TEST(Normalizer, TextsAreMeasuredInAnsiBytes) {
    const CodePage korean(949);
    SECSItemRecord item;
    item.parseText("A 5 N '\xED\x95\x9C\xEA\xB8\x80'"); // two characters of two bytes
    EXPECT_EQ(normalizedItemText(item, korean), "A 5 N '\xED\x95\x9C\xEA\xB8\x80 '");
    item.setCount(2);
    EXPECT_EQ(normalizedItemText(item, korean), "A 2 N '\xED\x95\x9C'");
    item.setCount(3);
    EXPECT_EQ(korean.ansiByteLength(*normalizedItemText(item, korean)), std::string("A 3 N '123'").size());
}

TEST(Normalizer, StatusReportsAValueThatIsNotNumeric) {
    std::string value = "1 x";
    EXPECT_EQ(normalizeFixedValues("U1", 3, value), kValueNotNumeric);
    EXPECT_EQ(normalizeVariableValues("U1", 3, value), kValueNotNumeric);
    EXPECT_EQ(value, "1 x");
    EXPECT_EQ(normalizeFixedValues("BOOLEAN", 3, value), 0);
    EXPECT_EQ(value, "True False False");
    value = "";
    EXPECT_EQ(normalizeFixedValues("F4", 2, value), 0);
    EXPECT_EQ(value, "0 0");
    EXPECT_EQ(normalizeFixedValues("F4", 2000000000, value), 0);
    EXPECT_EQ(value.size(), 2U * kLargestItemCount - 1);
}

} // namespace
} // namespace zb
