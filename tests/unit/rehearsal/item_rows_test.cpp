#include "rehearsal/item_rows.h"

#include "messages/secs2/sml_data.h"
#include "platform/text.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zb::test {
namespace {

using rehearsal::ItemRow;

/// Each blank at the start of a line is one level below the message.
std::string indented(const std::string& definition) {
    std::string text;
    for (const std::string& line : split(definition, "\r\n")) {
        const std::size_t level = line.find_first_not_of(' ') + 1;
        text += (text.empty() ? "" : "\r\n") + std::string(4 * level, ' ') + trim(line);
    }
    return text;
}

/// "~ 1 A 2 'xy' | A 5 NAME | what differs" for each row, with the level.
std::vector<std::string> rows(const std::string& definition, const std::string& sml,
                              std::size_t most = 1000) {
    SECSMessageRecord record;
    EXPECT_EQ(record.parseSmd("M: S1 F1 H->E\r\n" + indented(definition) + ".\r\n", kFormatSmd), "");
    secs2::Items items;
    EXPECT_FALSE(secs2::readSmlData(sml, items));
    const rehearsal::MessagePattern pattern(record);
    std::vector<std::string> lines;
    for (const ItemRow& row : rehearsal::itemRows(items, &pattern, CodePage(1252), most)) {
        std::string line(1, "=~-+"[static_cast<std::size_t>(row.sign)]);
        line += " " + std::to_string(row.level) + " " + row.received + " | " + row.defined;
        lines.push_back(row.difference.empty() ? line : line + " | " + row.difference);
    }
    return lines;
}

TEST(ItemRows, AMessageAsDefinedHasNoSigns) {
    EXPECT_THAT(
        rows("L 2\r\n U4 1 CEID 4001 [K]\r\n A 16V LOT ''", "<L <U4 4001> <A 'L1'>>"),
        ElementsAre("= 0 L 2 | L 2", "= 1 U4 1 4001 | U4 1 CEID = 4001 [K]", "= 1 A 2 'L1' | A 16V LOT"));
}

TEST(ItemRows, FormatCountAndKeyDifferInTheirRow) {
    EXPECT_THAT(
        rows("L 3\r\n U4 1 CEID 4001 [K]\r\n A 2 LOT ''\r\n U1 1 SLOT 1", "<L <U4 7> <A 'L1x'> <I1 1>>"),
        ElementsAre("= 0 L 3 | L 3",
                    "~ 1 U4 1 7 | U4 1 CEID = 4001 [K] | the key item CEID is 7, expected 4001",
                    "~ 1 A 3 'L1x' | A 2 LOT | expected 2 characters, found 3",
                    "~ 1 I1 1 1 | U1 1 SLOT | expected format U1, found format I1"));
}

TEST(ItemRows, AMissingMemberIsFoundByTheFormatsOfTheOthers) {
    EXPECT_THAT(rows("L 3\r\n U4 1 CEID 1\r\n L 1\r\n  A 2V LOT ''\r\n B 1 ACK 0", "<L <U4 1> <B 0>>"),
                ElementsAre("~ 0 L 2 | L 3 | expected a list of 3 items, found 2", "= 1 U4 1 1 | U4 1 CEID",
                            "- 1  | L 1 | is missing", "- 2  | A 2V LOT | is missing",
                            "= 1 B 1 0 | B 1 ACK"));
}

TEST(ItemRows, ASurplusMemberIsOneThatOnlyTheMessageHas) {
    EXPECT_THAT(rows("L 1\r\n U4 1 CEID 1", "<L <L <A 'x'>> <U4 1>>"),
                ElementsAre("~ 0 L 2 | L 1 | expected a list of 1 items, found 2",
                            "+ 1 L 1 |  | is not defined", "+ 2 A 1 'x' |  | is not defined",
                            "= 1 U4 1 1 | U4 1 CEID"));
}

TEST(ItemRows, EachMemberOfAVariableListHasItsOneDefinition) {
    EXPECT_THAT(rows("L 2V LIST\r\n U1 1 SLOT 1", "<L <U1 1> <U1 2> <U1 3>>"),
                ElementsAre("~ 0 L 3 | L 2V LIST | expected at most 2 items in the list, found 3",
                            "= 1 U1 1 1 | U1 1 SLOT", "= 1 U1 1 2 | U1 1 SLOT", "= 1 U1 1 3 | U1 1 SLOT"));
}

TEST(ItemRows, SeveralItemsOutsideOfAListAreMembersOfOne) {
    EXPECT_THAT(rows("U1 1 A1 1\r\nU1 1 A2 1", "<L <U1 1>>"),
                ElementsAre("~ 0 L 1 | L | expected a list of 2 items, found 1", "= 1 U1 1 1 | U1 1 A1",
                            "- 1  | U1 1 A2 | is missing"));
}

TEST(ItemRows, AMessageWithoutADefinitionHasItsItemsAlone) {
    secs2::Items items;
    ASSERT_FALSE(secs2::readSmlData("<L <A \"x\">>", items));
    const auto all = rehearsal::itemRows(items, nullptr, CodePage(1252), 10);
    ASSERT_THAT(all, SizeIs(2));
    EXPECT_EQ(all[1].received, "A 1 'x'");
    EXPECT_EQ(all[1].sign, ItemRow::Sign::Same);
    EXPECT_THAT(rehearsal::itemRows({}, nullptr, CodePage(1252), 10), IsEmpty());
}

TEST(ItemRows, NoMoreRowsThanAskedFor) {
    EXPECT_THAT(rows("L 9V\r\n U1 1 S 1", "<L <U1 1> <U1 2> <U1 3>>", 2), SizeIs(2));
}

TEST(ItemRows, ControlCharactersOfAValueStayOnTheirLine) {
    EXPECT_THAT(rows("A 9V NAME ''", "<A 'a' 0x0A 'b'>"), ElementsAre("= 0 A 3 'a b' | A 9V NAME"));
}

} // namespace
} // namespace zb::test
