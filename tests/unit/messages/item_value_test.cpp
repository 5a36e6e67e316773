#include "messages/item_value.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace zb {
namespace {

using testing::Values;

constexpr CountMode kFixed = CountMode::Fixed;
constexpr CountMode kVariable = CountMode::Variable;

// The typed text

constexpr std::string_view kGood = "good";
constexpr std::string_view kSilent = "silent";
constexpr std::string_view kUnsigned = "Insert unsigned integer for initial value.";
constexpr std::string_view kInteger = "Insert integer for initial value.";
constexpr std::string_view kFloat = "Insert floating point for initial value.";
constexpr std::string_view kFloatWord = "Insert floating point for initial vlaue.";
constexpr std::string_view kBinary = "Insert numeric-type for initial value.";
constexpr std::string_view kBinaryRange = "Insert positive integer values between 0 to 255.";
constexpr std::string_view kApostrophe = "You cannot insert \"'\" character";

/// The result of the text in an item of each of the types: "good", "silent", or the text of the box.
struct TypedRow {
    std::string types;
    std::string text;
    std::string_view outcome;
};

std::ostream& operator<<(std::ostream& out, const TypedRow& row) {
    return out << row.types << " <" << row.text << '>';
}

std::string_view outcomeOf(std::string_view type, std::string_view text) {
    const TypedValue verdict = judgeTypedValue(type, text);
    switch (verdict.state) {
    case TypedValue::State::Good:
        return kGood;
    case TypedValue::State::Unfinished:
        return kSilent;
    default:
        return verdict.refusal;
    }
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

class TypedText : public testing::TestWithParam<TypedRow> {};

TEST_P(TypedText, IsJudgedByItsType) {
    for (const std::string& type : wordsOf(GetParam().types))
        EXPECT_EQ(outcomeOf(type, GetParam().text), GetParam().outcome) << type;
}

INSTANTIATE_TEST_SUITE_P(
    Unsigned, TypedText,
    Values(TypedRow{"U1 U2 U4 U8", "", kGood}, TypedRow{"U1 U2 U4 U8", "7", kGood},
           TypedRow{"U1 U2 U4 U8", "1 2 3", kGood}, TypedRow{"U1 U2 U4 U8", "300", kGood},
           TypedRow{"U1 U2 U4 U8", "1e2", kGood}, TypedRow{"U1 U2 U4 U8", "1 ", kSilent},
           TypedRow{"U1 U2 U4 U8", "1  2", kSilent}, TypedRow{"U1 U2 U4 U8", " ", kSilent},
           TypedRow{"U1 U2 U4 U8", "1  x", kSilent}, TypedRow{"U1 U2 U4 U8", "x  1", kUnsigned},
           TypedRow{"U1 U2 U4 U8", "x", kUnsigned}, TypedRow{"U1 U2 U4 U8", "1.5", kUnsigned},
           TypedRow{"U1 U2 U4 U8", "+1", kUnsigned}, TypedRow{"U1 U2 U4 U8", "-1", kUnsigned},
           TypedRow{"U1 U2 U4 U8", "-", kUnsigned}, TypedRow{"U1 U2 U4 U8", "1e+2", kUnsigned},
           TypedRow{"U1 U2 U4 U8", "1\t2", kUnsigned}));

INSTANTIATE_TEST_SUITE_P(
    Signed, TypedText,
    Values(TypedRow{"I1 I2 I4 I8", "", kGood}, TypedRow{"I1 I2 I4 I8", "-5", kGood},
           TypedRow{"I1 I2 I4 I8", "+5 6", kGood}, TypedRow{"I1 I2 I4 I8", "1e-2", kGood},
           TypedRow{"I1 I2 I4 I8", "1 ", kSilent}, TypedRow{"I1 I2 I4 I8", "-", kSilent},
           TypedRow{"I1 I2 I4 I8", "1 +", kSilent}, TypedRow{"I1 I2 I4 I8", "--", kInteger},
           TypedRow{"I1 I2 I4 I8", "x", kInteger}, TypedRow{"I1 I2 I4 I8", "1.5", kInteger},
           TypedRow{"I1 I2 I4 I8", "1e", kInteger}));

INSTANTIATE_TEST_SUITE_P(Floating, TypedText,
                         Values(TypedRow{"F4 F8", "", kGood}, TypedRow{"F4 F8", "1.5 -2e3", kGood},
                                TypedRow{"F4 F8", "1E+05", kGood}, TypedRow{"F4 F8", "1e999", kGood},
                                TypedRow{"F4 F8", "1 ", kSilent}, TypedRow{"F4 F8", "+", kSilent},
                                TypedRow{"F4 F8", "-", kSilent}, TypedRow{"F4 F8", ".", kSilent},
                                TypedRow{"F4 F8", "1e", kSilent}, TypedRow{"F4 F8", "1E+", kSilent},
                                TypedRow{"F4 F8", "-e", kSilent}, TypedRow{"F4 F8", "xex", kSilent},
                                TypedRow{"F4 F8", "e5", kFloat}, TypedRow{"F4 F8", "E", kFloat},
                                TypedRow{"F4 F8", "x", kFloatWord}, TypedRow{"F4 F8", "-.", kFloatWord},
                                TypedRow{"F4 F8", "1 1.2.3", kFloatWord}));

INSTANTIATE_TEST_SUITE_P(Binary, TypedText,
                         Values(TypedRow{"B", "", kGood}, TypedRow{"B", "0 255", kGood},
                                TypedRow{"B", "1e1", kGood}, TypedRow{"B", "1 ", kSilent},
                                TypedRow{"B", "x", kBinary}, TypedRow{"B", "-", kBinary},
                                TypedRow{"B", "300", kBinaryRange}, TypedRow{"B", "256", kBinaryRange},
                                TypedRow{"B", "-1", kBinaryRange}, TypedRow{"B", "+1", kBinaryRange},
                                TypedRow{"B", "1.0", kBinaryRange}, TypedRow{"B", "-0", kBinaryRange},
                                TypedRow{"B", "1 2 300", kBinaryRange}));

INSTANTIATE_TEST_SUITE_P(Boolean, TypedText,
                         Values(TypedRow{"BOOLEAN", "", kGood}, TypedRow{"BOOLEAN", "0 1", kGood},
                                TypedRow{"BOOLEAN", "t", kGood}, TypedRow{"BOOLEAN", "tr", kGood},
                                TypedRow{"BOOLEAN", "TRUE fAl", kGood}, TypedRow{"BOOLEAN", "False ", kGood},
                                TypedRow{"BOOLEAN", "2", kSilent}, TypedRow{"BOOLEAN", "00", kSilent},
                                TypedRow{"BOOLEAN", "-1", kSilent}, TypedRow{"BOOLEAN", "truer", kSilent},
                                TypedRow{"BOOLEAN", "x", kSilent}, TypedRow{"BOOLEAN", "1 rue", kSilent}));

INSTANTIATE_TEST_SUITE_P(Quoted, TypedText,
                         Values(TypedRow{"A J X", "", kGood}, TypedRow{"A J X", "any text", kGood},
                                TypedRow{"A J X", "it's", kGood}, TypedRow{"A J X", "''", kGood},
                                TypedRow{"A J X", "' ", kGood}, TypedRow{"A J X", "'", kApostrophe}));

// The canonical text

struct CanonicalRow {
    std::string types;
    std::string text;
    std::string canonical;
};

std::ostream& operator<<(std::ostream& out, const CanonicalRow& row) {
    return out << row.types << " <" << row.text << '>';
}

class CanonicalText : public testing::TestWithParam<CanonicalRow> {};

TEST_P(CanonicalText, IsWhatTheTypeHoldsAndPrints) {
    for (const std::string& type : wordsOf(GetParam().types))
        EXPECT_EQ(normalizeItemValue(type, 1, kVariable, GetParam().text), GetParam().canonical) << type;
}

TEST_P(CanonicalText, StaysAsItIs) {
    for (const std::string& type : wordsOf(GetParam().types))
        EXPECT_EQ(normalizeItemValue(type, 1, kVariable, GetParam().canonical), GetParam().canonical) << type;
}

INSTANTIATE_TEST_SUITE_P(Bytes, CanonicalText,
                         Values(CanonicalRow{"B U1", "0", "0"}, CanonicalRow{"B U1", "255", "255"},
                                CanonicalRow{"B U1", "256", "0"}, CanonicalRow{"B U1", "-1", "0"},
                                CanonicalRow{"B U1", "007", "7"}, CanonicalRow{"B U1", "1.5", "2"},
                                CanonicalRow{"B U1", "2.5", "2"}, CanonicalRow{"B U1", "254.5", "254"},
                                CanonicalRow{"B U1", "255.5", "0"}, CanonicalRow{"B U1", "255.4", "255"},
                                CanonicalRow{"B U1", "-0.5", "0"}, CanonicalRow{"B U1", "1e2", "100"},
                                CanonicalRow{"B U1", "x", "0"}, CanonicalRow{"B U1", "1x", "0"},
                                CanonicalRow{"B U1", "1e999", "0"}, CanonicalRow{"B U1", " 1   2 ", "1 2"},
                                CanonicalRow{"B U1", "1 300 2", "1 0 2"},
                                CanonicalRow{"b u1", "9 x", "9 0"}));

INSTANTIATE_TEST_SUITE_P(
    RoundedIntegers, CanonicalText,
    Values(CanonicalRow{"U2", "0 65535", "0 65535"}, CanonicalRow{"U2", "65536", "0"},
           CanonicalRow{"U2", "-1", "0"}, CanonicalRow{"U2", "0.5 1.5", "0 2"},
           CanonicalRow{"U2", "65535.5", "0"}, CanonicalRow{"U2", "9999999999", "0"},
           CanonicalRow{"I1", "-128 127", "-128 127"}, CanonicalRow{"I1", "-129 128", "0 0"},
           CanonicalRow{"I1", "200", "0"}, CanonicalRow{"I1", "-128.5 127.5", "-128 0"},
           CanonicalRow{"I1", "-1.5 -2.5", "-2 -2"}, CanonicalRow{"I1", "+5", "5"},
           CanonicalRow{"I2", "-32768 32767", "-32768 32767"}, CanonicalRow{"I2", "-32769 32768", "0 0"},
           CanonicalRow{"I4", "-2147483648 2147483647", "-2147483648 2147483647"},
           CanonicalRow{"I4", "-2147483649 2147483648", "0 0"}, CanonicalRow{"I4", "2147483647.5", "0"},
           CanonicalRow{"I4", "2147483647.4", "2147483647"}));

INSTANTIATE_TEST_SUITE_P(
    WideIntegers, CanonicalText,
    Values(CanonicalRow{"U4", "0 4294967295", "0 4294967295"}, CanonicalRow{"U4", "4294967296 -1", "0 0"},
           CanonicalRow{"U4", "1.9 4294967295.9", "1 4294967295"}, CanonicalRow{"U4", "-0.9", "0"},
           CanonicalRow{"U8", "999999999999999", "999999999999999"},
           CanonicalRow{"U8", "1000000000000000", "1E+15"},
           CanonicalRow{"U8", "1234567890123456", "1.23456789012346E+15"},
           CanonicalRow{"U8", "18446744073709551615", "1.84467440737096E+19"},
           CanonicalRow{"U8", "18446744073709600768", "1.84467440737096E+19"},
           CanonicalRow{"U8", "18446744073709604864", "0"}, CanonicalRow{"U8", "18446744073709700000", "0"},
           CanonicalRow{"U8", "-1", "0"}, CanonicalRow{"U8", "1e999", "0"}, CanonicalRow{"U8", "7.99", "7"},
           CanonicalRow{"I8", "-922337203685478 922337203685477", "-922337203685478 922337203685477"},
           CanonicalRow{"I8", "-922337203685479 922337203685478", "0 0"},
           CanonicalRow{"I8", "922337203685477.9", "922337203685477"},
           CanonicalRow{"I8", "-922337203685478.9", "-922337203685478"}, CanonicalRow{"I8", "-1.9", "-1"},
           CanonicalRow{"I8", "9223372036854775807", "0"}));

INSTANTIATE_TEST_SUITE_P(FloatingPoint, CanonicalText,
                         Values(CanonicalRow{"F4 F8", "1.50", "1.5"}, CanonicalRow{"F4 F8", "-.5", "-0.5"},
                                CanonicalRow{"F4 F8", "1e5", "100000"}, CanonicalRow{"F4 F8", "x 1", "0 1"},
                                CanonicalRow{"F4 F8", "-0", "0"}, CanonicalRow{"F4", "123456.78", "123456.8"},
                                CanonicalRow{"F4", "12345678", "1.234568E+07"},
                                CanonicalRow{"F4", "3.4028234E38", "3.402823E+38"},
                                CanonicalRow{"F4", "-3.4028234E38", "-3.402823E+38"},
                                CanonicalRow{"F4", "3.41E38", "0"}, CanonicalRow{"F4", "1e-60", "0"},
                                CanonicalRow{"F8", "12345678", "12345678"},
                                CanonicalRow{"F8", "3.41E38", "3.41E+38"},
                                CanonicalRow{"F8", "0.1234567890123456", "0.123456789012346"},
                                CanonicalRow{"F8", "1.79E308", "1.79E+308"}, CanonicalRow{"F8", "1e309", "0"},
                                CanonicalRow{"F8", "1e", "0"}));

INSTANTIATE_TEST_SUITE_P(Booleans, CanonicalText,
                         Values(CanonicalRow{"BOOLEAN", "0 1", "0 1"},
                                CanonicalRow{"BOOLEAN", "2 00 -1", "1 1 1"},
                                CanonicalRow{"BOOLEAN", "t True TOM", "True True True"},
                                CanonicalRow{"BOOLEAN", "f false x", "False False False"},
                                CanonicalRow{"boolean", " t  0 ", "True 0"}));

INSTANTIATE_TEST_SUITE_P(Others, CanonicalText,
                         Values(CanonicalRow{"L l", "1 2", ""},
                                CanonicalRow{"A J X a", "it's  'a'", "its  a"}, CanonicalRow{"A J X", "", ""},
                                CanonicalRow{"Q U3", "5", "0"}));

struct EmptyRow {
    std::string types;
    int count;
    CountMode mode;
    std::string canonical;
};

std::ostream& operator<<(std::ostream& out, const EmptyRow& row) {
    return out << row.types << ' ' << row.count << (row.mode == kFixed ? "" : "V");
}

class EmptyText : public testing::TestWithParam<EmptyRow> {};

TEST_P(EmptyText, IsFilledOnlyForAFixedCount) {
    for (const std::string& type : wordsOf(GetParam().types)) {
        EXPECT_EQ(normalizeItemValue(type, GetParam().count, GetParam().mode, ""), GetParam().canonical)
            << type;
        EXPECT_EQ(normalizeItemValue(type, GetParam().count, GetParam().mode, "  "),
                  type == "A" ? "  " : GetParam().canonical)
            << type;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EmptyText,
                         Values(EmptyRow{"B BOOLEAN I1 I8 U2 U8 F4 F8", 1, kFixed, "0"},
                                EmptyRow{"U2", 40000, kFixed, "0"}, EmptyRow{"U2", 0, kFixed, ""},
                                EmptyRow{"U2", -1, kFixed, ""},
                                EmptyRow{"B BOOLEAN I1 U2 F8", 1, kVariable, ""},
                                EmptyRow{"A L", 1, kFixed, ""}, EmptyRow{"Q", 0, kVariable, "0"}));

// Setting canonical text runs the change handling again, which must find nothing to do.
TEST(CanonicalTextOfAnyText, IsCanonical) {
    constexpr std::string_view kCharacters = "0123456789+-.eEtTfx  ";
    std::mt19937 random(7);
    const auto below = [&random](std::size_t bound) { return static_cast<std::size_t>(random()) % bound; };
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (std::size_t length = below(24); text.size() < length;)
            text += kCharacters[below(kCharacters.size())];
        for (const std::string& type : wordsOf("B BOOLEAN I1 I2 I4 I8 U1 U2 U4 U8 F4 F8")) {
            const std::string canonical = normalizeItemValue(type, 1, kFixed, text);
            EXPECT_EQ(normalizeItemValue(type, 1, kFixed, canonical), canonical)
                << type << " <" << text << '>';
        }
    }
}

// The largest double prints as a number that a double cannot represent; it is only required to end.
TEST(CanonicalTextEnd, TheLargestNumberIsPrinted) {
    EXPECT_EQ(normalizeItemValue("F8", 1, kFixed, "1.7976931348623157E308"), "1.79769313486232E+308");
}

// The cleaned text

struct CleanRow {
    std::string types;
    double count;
    std::string text;
    std::string cleaned;
};

std::ostream& operator<<(std::ostream& out, const CleanRow& row) {
    return out << row.types << ' ' << row.count << " <" << row.text << '>';
}

class CleanedText : public testing::TestWithParam<CleanRow> {};

TEST_P(CleanedText, ReplacesWhatIsUnfit) {
    for (const std::string& type : wordsOf(GetParam().types))
        EXPECT_EQ(cleanItemValue(type, GetParam().count, GetParam().text), GetParam().cleaned) << type;
}

INSTANTIATE_TEST_SUITE_P(Rows, CleanedText,
                         Values(CleanRow{"L", 1, "1 2", ""}, CleanRow{"A J X", 1, "it's 'x'", "its x"},
                                CleanRow{"B", 1, "0 255 256 -1 1e1 1.0 +1 x", "0 255 0 0 0 0 0 0"},
                                CleanRow{"U1 U2 U4 U8", 1, "0 300 1e1 1.0 +1 -1 x", "0 300 0 0 0 0 0"},
                                CleanRow{"I1 I2 I4 I8", 1, "-1 +1 1e1 1.0 x", "-1 +1 0 0 0"},
                                CleanRow{"F4 F8", 1, "1.5 1e5 -2 1e x", "1.5 1e5 -2 0 0"},
                                CleanRow{"BOOLEAN", 1, "1 0 t TRUE truer f 2",
                                         "1 0 True True False False False"}));

INSTANTIATE_TEST_SUITE_P(Skipped, CleanedText,
                         Values(CleanRow{"B U1 I1 F4", 1, "1  2 + - . 3 ", "1 2 3"},
                                CleanRow{"BOOLEAN", 1, "+ t .", "True"}, CleanRow{"B I2 F8", 0, "+ -", "0"},
                                CleanRow{"U1 U2 U4 U8", 1, ".", "0"}, CleanRow{"U1 U2 U4 U8", 0, ".", ""},
                                CleanRow{"BOOLEAN", 0, "-", "False"}));

INSTANTIATE_TEST_SUITE_P(Blank, CleanedText,
                         Values(CleanRow{"B U1 I1 F4", 0, "", "0"}, CleanRow{"B U1 I1 F4", 1, "  ", "0"},
                                CleanRow{"BOOLEAN", 1, " ", "False"}, CleanRow{"A", 1, "", ""}));

TEST(CleanedTextOfUnknownType, IsNone) {
    EXPECT_EQ(cleanItemValue("Q", 1, "1"), std::nullopt);
    EXPECT_EQ(cleanItemValue("", 1, "1"), std::nullopt);
}

} // namespace
} // namespace zb
