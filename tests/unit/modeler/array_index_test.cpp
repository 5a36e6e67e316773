#include "messages/message_record.h"
#include "model/data_item_address.h"

#include <gtest/gtest.h>

#include <string>

namespace zb {
namespace {

/// Each line of `items` is a level, a blank and an item's Text.
SECSMessageRecord messageOf(std::string_view items) {
    SECSMessageRecord record;
    EXPECT_EQ(record.parseTexts("M: S6 F11 W H<-E", "", items), "");
    return record;
}

struct DimensionCase {
    const char* behaviour;
    const char* items;
    int dimension;
};

class CheckDimension : public testing::TestWithParam<DimensionCase> {};

TEST_P(CheckDimension, CountsTheListsWithoutACount) {
    EXPECT_EQ(checkDimension(messageOf(GetParam().items), "X"), GetParam().dimension);
}

INSTANTIATE_TEST_SUITE_P(
    Messages, CheckDimension,
    testing::Values(
        DimensionCase{"Alone", "1 U1 1 X 0\r\n", 0},
        DimensionCase{"Missing", "1 L 5V A\r\n2 U1 1 Y 0\r\n", 0},
        DimensionCase{"InFixedLists", "1 L 1\r\n2 L 1\r\n3 U1 1 X 0\r\n", 0},
        DimensionCase{"InOne", "1 L 5V A\r\n2 U1 1 X 0\r\n", 1},
        DimensionCase{"InOneWithItsCount", "1 L 5 A\r\n2 U1 1 X 0\r\n", 0},
        DimensionCase{"InTwo", "1 L 5V A\r\n2 L 5V B\r\n3 U1 1 X 0\r\n", 2},
        DimensionCase{"InTwoWithAFixedBetween", "1 L 5V A\r\n2 L 1\r\n3 L 5V B\r\n4 U1 1 X 0\r\n", 2},
        DimensionCase{"TheListItself", "1 L 5V X\r\n2 U1 1 Y 0\r\n", 1},
        DimensionCase{"BehindAClosedList", "1 L 5V A\r\n2 U1 1 Y 0\r\n1 U1 1 X 0\r\n", 1},
        DimensionCase{"BehindTwoClosedLists", "1 L 5V A\r\n2 L 5V B\r\n3 U1 1 Y 0\r\n1 U1 1 X 0\r\n", 2},
        DimensionCase{"InTheNextListOfALevel", "1 L 5V A\r\n2 U1 1 Y 0\r\n1 L 5V B\r\n2 U1 1 X 0\r\n", 1},
        DimensionCase{"OneStepDownForAnyLevels",
                      "1 L 5V A\r\n2 L 5V B\r\n3 L 5V C\r\n4 U1 1 Y 0\r\n1 L 5V D\r\n2 U1 1 X 0\r\n", 2},
        DimensionCase{
            "BelowNothing",
            "1 L 1\r\n2 L 1\r\n3 L 5V A\r\n4 U1 1 Y 0\r\n2 L 5V B\r\n3 U1 1 Z 0\r\n1 L 5V C\r\n2 U1 1 X "
            "0\r\n",
            -1},
        DimensionCase{"TheLastOfAName", "1 L 5V A\r\n2 U1 1 X 0\r\n1 L 5V B\r\n2 L 5V C\r\n3 U1 1 X 0\r\n",
                      2},
        DimensionCase{"NamesAreExact", "1 L 5V A\r\n2 U1 1 x 0\r\n", 0}),
    [](const auto& tested) { return tested.param.behaviour; });

} // namespace
} // namespace zb
