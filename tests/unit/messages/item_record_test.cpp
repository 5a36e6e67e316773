#include "messages/item_record.h"

#include <gtest/gtest.h>

#include <random>

namespace zb {
namespace {

struct Parts {
    std::string type;
    int count;
    bool fixed;
    std::string name;
    std::string value;
    bool key;

    bool operator==(const Parts&) const = default;
};

void PrintTo(const Parts& parts, std::ostream* out) {
    *out << parts.type << '|' << parts.count << (parts.fixed ? "" : "V") << '|' << parts.name << '|'
         << parts.value << '|' << (parts.key ? "key" : "");
}

Parts partsOf(std::string_view text) {
    SECSItemRecord record;
    record.parseText(text);
    return {record.getType(), record.getCount(), record.isFixed(),
            record.getName(), record.getValue(), record.isKey()};
}

struct WellFormed {
    std::string text;
    Parts parts;
};

void PrintTo(const WellFormed& tested, std::ostream* out) {
    *out << tested.text;
}

class WellFormedItems : public testing::TestWithParam<WellFormed> {};

TEST_P(WellFormedItems, AreTakenApartAndPutTogether) {
    SECSItemRecord record;
    EXPECT_EQ(record.parseText(GetParam().text), "");
    EXPECT_EQ(partsOf(GetParam().text), GetParam().parts);
    EXPECT_EQ(composeItemText(record), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    ItemRecord, WellFormedItems,
    testing::Values(WellFormed{"A 6 MDLN 'HLVFAb'", {"A", 6, true, "MDLN", "HLVFAb", false}},
                    WellFormed{"A 10V SVNAME ''", {"A", 10, false, "SVNAME", "", false}},
                    WellFormed{"X 16V SV ''", {"X", 16, false, "SV", "", false}},
                    WellFormed{"A 6 MDLN 'HLVFAB' [K]", {"A", 6, true, "MDLN", "HLVFAB", true}},
                    WellFormed{"J 3 'a b'", {"J", 3, true, "", "a b", false}},
                    WellFormed{"A 5 '[K] x'", {"A", 5, true, "", "[K] x", false}},
                    WellFormed{"A 5 'a' [K]'", {"A", 5, true, "", "a' [K]", false}},
                    WellFormed{"A 5 'a' [K]' [K]", {"A", 5, true, "", "a' [K]", true}},
                    WellFormed{"A 1 '''", {"A", 1, true, "", "'", false}},
                    WellFormed{"A 4 N '  x '", {"A", 4, true, "N", "  x ", false}},
                    WellFormed{"A 3 '12'", {"A", 3, true, "", "12", false}},
                    WellFormed{"U2 1 ECID 0", {"U2", 1, true, "ECID", "0", false}},
                    WellFormed{"B 10 MHEAD 0 0 0 0 0 0 0 0 0 0",
                               {"B", 10, true, "MHEAD", "0 0 0 0 0 0 0 0 0 0", false}},
                    WellFormed{"I2 1 SVID 0 [K]", {"I2", 1, true, "SVID", "0", true}},
                    WellFormed{"I2 2 -1 5", {"I2", 2, true, "", "-1 5", false}},
                    WellFormed{"F8 1 1E+05", {"F8", 1, true, "", "1E+05", false}},
                    WellFormed{"BOOLEAN 2 True False", {"BOOLEAN", 2, true, "", "True False", false}},
                    WellFormed{"BOOLEAN 1 TRUE", {"BOOLEAN", 1, true, "", "TRUE", false}},
                    WellFormed{"BOOLEAN 1 Truth False", {"BOOLEAN", 1, true, "Truth", "False", false}},
                    WellFormed{"U1 1 True", {"U1", 1, true, "True", "", false}},
                    WellFormed{"U4 0", {"U4", 0, true, "", "", false}},
                    WellFormed{"U4 0 [K]", {"U4", 0, true, "", "", true}},
                    WellFormed{"L 2", {"L", 2, true, "", "", false}},
                    WellFormed{"L 0", {"L", 0, true, "", "", false}},
                    WellFormed{"L 20V SVIDCOUNT", {"L", 20, false, "SVIDCOUNT", "", false}},
                    WellFormed{"L 3 X [K]", {"L", 3, true, "X", "", true}}));

struct Broken {
    std::string text;
    Parts parts;
};

void PrintTo(const Broken& tested, std::ostream* out) {
    *out << tested.text;
}

class BrokenItems : public testing::TestWithParam<Broken> {};

TEST_P(BrokenItems, AreReportedAndTakenAsFarAsTheyGo) {
    SECSItemRecord record;
    EXPECT_NE(record.parseText(GetParam().text), "");
    EXPECT_EQ(partsOf(GetParam().text), GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(ItemRecord, BrokenItems,
                         testing::Values(Broken{"", {"", 0, true, "", "", false}},
                                         Broken{"hello", {"HELLO", 0, true, "", "", false}},
                                         Broken{"Z 1 N 5", {"Z", 1, true, "N", "5", false}},
                                         Broken{"A x 'ab'", {"A", 0, true, "", "ab", false}},
                                         Broken{"A V N 'ab'", {"A", 0, false, "N", "ab", false}},
                                         Broken{"A  NAME 'x'", {"A", 0, true, "NAME", "x", false}},
                                         Broken{"U1 99999999999 5", {"U1", 2147483647, true, "", "5", false}},
                                         Broken{"A 5 'abc", {"A", 5, true, "", "abc", false}},
                                         Broken{"A 5 '", {"A", 5, true, "", "", false}},
                                         Broken{"A 5 NAME abc", {"A", 5, true, "NAME", "abc", false}},
                                         Broken{"L 2 5", {"L", 2, true, "", "", false}},
                                         Broken{"\xff\xfe 1",
                                                {"\xEF\xBF\xBD\xEF\xBF\xBD", 1, true, "", "", false}}));

TEST(ItemRecord, HugeTextsAreTaken) {
    SECSItemRecord record;
    const std::string value(1 << 20, 'x');
    EXPECT_EQ(record.parseText("A 1048576 BIG '" + value + "'"), "");
    EXPECT_EQ(record.getValue(), value);
    EXPECT_NE(record.parseText(std::string(1 << 20, ' ') + std::string(1 << 20, '\'')), "");
}

/// Any item that the grammar can express.
class ItemMaker {
public:
    std::string make() {
        const std::string type =
            pick({"L", "A", "J", "X", "B", "BOOLEAN", "I1", "I8", "U2", "U4", "F4", "F8"});
        std::string text = type + " " + std::to_string(number(0, 40000));
        text += flip() ? "V" : "";
        text += flip() ? " " + pick({"MDLN", "_", "x.y", "Z9", "T", "1a", "\xED\x95\x9C"}) : "";
        if (type == "A" || type == "J" || type == "X")
            text += " '" + characters() + "'";
        else if (type != "L")
            text += words(type == "BOOLEAN");
        return text + (flip() ? " [K]" : "");
    }

private:
    int number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }
    bool flip() { return number(0, 1) == 1; }
    std::string pick(const std::vector<std::string>& from) {
        return from[static_cast<std::size_t>(number(0, static_cast<int>(from.size()) - 1))];
    }
    std::string characters() {
        std::string text;
        for (int left = number(0, 12); left > 0; --left)
            text += pick({"a", "B", " ", "'", "[K]", " [K]", "<", ">", ".", "\xED\x95\x9C", "\t", "0"});
        return text;
    }
    std::string words(bool boolean) {
        std::string text;
        for (int left = number(0, 5); left > 0; --left)
            text += " " + (boolean ? pick({"True", "False", "FALSE", "0"})
                                   : pick({"0", "-1", "255", "1.5", "1E+20"}));
        return text;
    }

    std::mt19937 random_{42};
};

TEST(ItemRecord, PuttingTogetherUndoesTakingApart) {
    ItemMaker maker;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = maker.make();
        SECSItemRecord record;
        ASSERT_EQ(record.parseText(text), "") << text;
        ASSERT_EQ(composeItemText(record), text);
    }
}

TEST(ItemGrammar, AThirdWordIsANameUnlessItIsAValueOrTheKeyMark) {
    EXPECT_TRUE(isItemName("U1", "ECID"));
    EXPECT_TRUE(isItemName("U1", "True"));
    EXPECT_TRUE(isItemName("U1", "1a"));
    EXPECT_FALSE(isItemName("U1", "12"));
    EXPECT_FALSE(isItemName("U1", "1.5e3"));
    EXPECT_FALSE(isItemName("A", "'x"));
    EXPECT_FALSE(isItemName("A", "[k]"));
    EXPECT_FALSE(isItemName("BOOLEAN", "tRUE"));
    EXPECT_FALSE(isItemName("boolean", "False"));
    EXPECT_FALSE(isItemName("A", ""));
}

TEST(ItemGrammar, OldBinaryFormsBecomeQuoted) {
    EXPECT_EQ(normalizeItemText("X 4 DATA 12 34"), "X 4 DATA '12 34'");
    EXPECT_EQ(normalizeItemText("X 2 1 2"), "X 2 '1 2'");
    EXPECT_EQ(normalizeItemText("  J 3V NAME "), "J 3V NAME ''");
    EXPECT_EQ(normalizeItemText("X 4 DATA AB CD"), "X 4 DATA 'AB CD'");
    EXPECT_EQ(normalizeItemText("X 4 -x 12"), "X 4 '-x 12'");
    EXPECT_EQ(normalizeItemText("X 4  LATE 12"), "X 4 'LATE 12'");
    EXPECT_EQ(normalizeItemText("X 4 [K]"), "X 4 [K] ''");
    EXPECT_EQ(normalizeItemText("X 4 'open"), "X 4 open ''");
    EXPECT_EQ(normalizeItemText("X 4 DATA '1  2' "), "X 4 DATA '1  2'");
    EXPECT_EQ(normalizeItemText(" A 4 DATA 12"), "A 4 DATA 12");
    EXPECT_EQ(normalizeItemText("x 4 DATA 12"), "x 4 DATA 12");
    EXPECT_EQ(normalizeItemText("X"), "X  ''");
    EXPECT_EQ(normalizeItemText(""), "");
}

} // namespace
} // namespace zb
