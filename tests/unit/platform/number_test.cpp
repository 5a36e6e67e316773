#include "platform/number.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zb {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

struct TextRow {
    std::string text;
    bool numeric;
    double value;
};

std::ostream& operator<<(std::ostream& out, const TextRow& row) {
    return out << '"' << row.text << '"';
}

class NumberText : public testing::TestWithParam<TextRow> {};

TEST_P(NumberText, IsJudgedAndRead) {
    EXPECT_EQ(isNumeric(GetParam().text), GetParam().numeric);
    EXPECT_EQ(valueOf(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Numeric, NumberText,
    testing::Values(TextRow{"0", true, 0}, TextRow{"007", true, 7}, TextRow{" 12 ", true, 12},
                    TextRow{"-5", true, -5}, TextRow{"+5", true, 5}, TextRow{".5", true, 0.5},
                    TextRow{"5.", true, 5}, TextRow{"-.5e1", true, -5}, TextRow{"1e5", true, 1e5},
                    TextRow{"1E+05", true, 1e5}, TextRow{"1e-2", true, 0.01}, TextRow{"-0", true, 0},
                    TextRow{"18446744073709551615", true, 18446744073709551615.0},
                    TextRow{"1e999", true, kLargest}, TextRow{"-1e999", true, -kLargest},
                    TextRow{"1e-999", true, 0}, TextRow{"0e99999999999999999999", true, 0},
                    TextRow{"1e99999999999999999999", true, kLargest},
                    TextRow{"1e-99999999999999999999", true, 0}, TextRow{"4.9e-324", true, 4.9e-324}));

INSTANTIATE_TEST_SUITE_P(
    NotNumeric, NumberText,
    testing::Values(TextRow{"", false, 0}, TextRow{"  ", false, 0}, TextRow{".", false, 0},
                    TextRow{"-", false, 0}, TextRow{"+.", false, 0}, TextRow{"e5", false, 0},
                    TextRow{"1e", false, 1}, TextRow{"1e+", false, 1}, TextRow{"12ab", false, 12},
                    TextRow{"1A", false, 1}, TextRow{"1 2", false, 1}, TextRow{"1,5", false, 1},
                    TextRow{"1.2.3", false, 1.2}, TextRow{"--1", false, 0}, TextRow{"- 1", false, 0},
                    TextRow{"inf", false, 0}, TextRow{"nan", false, 0}, TextRow{"0x10", false, 0},
                    TextRow{"\t1", false, 0}, TextRow{"1\n", false, 1}, TextRow{"١", false, 0},
                    TextRow{"3V", false, 3}));

TEST(NumberText, ReadsLongDigitRuns) {
    EXPECT_EQ(valueOf(std::string(100'000, '9')), kLargest);
    EXPECT_EQ(valueOf("0." + std::string(100'000, '0') + "1"), 0.0);
    EXPECT_EQ(valueOf(std::string(100'000, '0') + "7"), 7.0);
    EXPECT_EQ(valueOf("0." + std::string(1000, '0') + "1e1001"), 1.0);
}

TEST(NumberText, IsHeldOnlyWhenWholeAndInRange) {
    EXPECT_EQ(toNumber(" -2.5 "), -2.5);
    EXPECT_EQ(toNumber("2x"), std::nullopt);
    EXPECT_EQ(toNumber(""), std::nullopt);
    EXPECT_EQ(toNumber("1e999"), std::nullopt);
    EXPECT_EQ(toNumber("1e-999"), 0.0);
}

TEST(Rounding, SendsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(0.5), 0.0);
    EXPECT_EQ(roundHalfEven(1.5), 2.0);
    EXPECT_EQ(roundHalfEven(2.5), 2.0);
    EXPECT_EQ(roundHalfEven(-0.5), 0.0);
    EXPECT_EQ(roundHalfEven(-1.5), -2.0);
    EXPECT_EQ(roundHalfEven(-2.5), -2.0);
    EXPECT_EQ(roundHalfEven(0.25), 0.0);
    EXPECT_EQ(roundHalfEven(2.75), 3.0);
    EXPECT_EQ(roundHalfEven(1e300), 1e300);
    EXPECT_EQ(roundHalfEven(0.49999999999999994), 0.0);
}

TEST(Rounding, RefusesWhatLiesOutside) {
    EXPECT_EQ(toInteger(255.5, 0, 255), std::nullopt);
    EXPECT_EQ(toInteger(254.5, 0, 255), 254);
    EXPECT_EQ(toInteger(-0.5, 0, 255), 0);
    EXPECT_EQ(toInteger(-1, 0, 255), std::nullopt);
    constexpr long long kLeast = std::numeric_limits<long long>::min();
    constexpr long long kGreatest = std::numeric_limits<long long>::max();
    EXPECT_EQ(toInteger(9223372036854775808.0, kLeast, kGreatest), std::nullopt);
    EXPECT_EQ(toInteger(-9223372036854775808.0, kLeast, kGreatest), kLeast);
    EXPECT_EQ(toInteger(std::nan(""), kLeast, kGreatest), std::nullopt);
    EXPECT_EQ(toInteger(HUGE_VAL, kLeast, kGreatest), std::nullopt);
}

struct PrintRow {
    double value;
    std::string text;
};

class PrintedDouble : public testing::TestWithParam<PrintRow> {};

TEST_P(PrintedDouble, HasAtMost15Digits) {
    EXPECT_EQ(printDouble(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PrintedDouble,
    testing::Values(
        PrintRow{0, "0"}, PrintRow{-0.0, "0"}, PrintRow{1, "1"}, PrintRow{-1.5, "-1.5"}, PrintRow{0.5, "0.5"},
        PrintRow{0.1, "0.1"}, PrintRow{100, "100"}, PrintRow{0.0001, "0.0001"},
        PrintRow{0.00012345, "0.00012345"}, PrintRow{0.00001, "1E-05"}, PrintRow{-1.25e-7, "-1.25E-07"},
        PrintRow{123456789012345, "123456789012345"}, PrintRow{999999999999999, "999999999999999"},
        PrintRow{1e15, "1E+15"}, PrintRow{1234567890123456, "1.23456789012346E+15"},
        PrintRow{999999999999999.9, "1E+15"}, PrintRow{18446744073709551615.0, "1.84467440737096E+19"},
        PrintRow{1.0 / 3, "0.333333333333333"}, PrintRow{2.0 / 3, "0.666666666666667"},
        PrintRow{0.1 + 0.2, "0.3"}, PrintRow{1e100, "1E+100"}, PrintRow{4.9e-324, "4.94065645841247E-324"},
        PrintRow{kLargest, "1.79769313486232E+308"}, PrintRow{4294967295.0, "4294967295"},
        PrintRow{-922337203685478.0, "-922337203685478"}, PrintRow{HUGE_VAL, "0"}));

TEST(PrintedFloat, HasAtMost7Digits) {
    EXPECT_EQ(printFloat(0.1F), "0.1");
    EXPECT_EQ(printFloat(1.0F / 3), "0.3333333");
    EXPECT_EQ(printFloat(1234567.0F), "1234567");
    EXPECT_EQ(printFloat(12345678.0F), "1.234568E+07");
    EXPECT_EQ(printFloat(1e7F), "1E+07");
    EXPECT_EQ(printFloat(-2.5F), "-2.5");
    EXPECT_EQ(printFloat(-0.0F), "0");
    EXPECT_EQ(printFloat(1e-5F), "1E-05");
    EXPECT_EQ(printFloat(std::numeric_limits<float>::max()), "3.402823E+38");
}

TEST(PrintedDouble, ReadsBackAsPrinted) {
    for (const double value : {0.1, 1.84467440737096E+19, 1e-5, 123456.789, -42.0}) {
        const std::string text = printDouble(value);
        EXPECT_TRUE(isNumeric(text)) << text;
        EXPECT_EQ(printDouble(valueOf(text)), text);
    }
}

} // namespace
} // namespace zb
