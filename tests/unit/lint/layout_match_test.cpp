#include "lint/layout_match.h"

#include "messages/message_record.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb {
namespace {

using testing::ElementsAre;

std::vector<std::string> differences(int stream, int function, const std::string& body) {
    const PublishedStandard standard;
    SECSMessageRecord record;
    record.parseTexts("M: S" + std::to_string(stream) + " F" + std::to_string(function) + " H->E", "", body);
    const CheckedMessage message = CheckedMessage::of(record);
    std::vector<std::string> texts;
    for (const auto& difference :
         matchLayout(message, *standard.message(stream, function), standard).differences)
        texts.push_back((difference.item ? message.items[*difference.item].path + ": " : "") +
                        difference.text);
    return texts;
}

TEST(LayoutForm, DescribesEachPublishedStructure) {
    for (const PublishedLayout& layout : publishedLayouts())
        for (const std::string_view form : layout.forms)
            EXPECT_TRUE(LayoutForm::parse(form)) << form;
    EXPECT_EQ(describe(*LayoutForm::parse("L[CPNAME, L*[CPVAL]]")), "a list of 2 (CPNAME, L)");
    EXPECT_EQ(describe(*LayoutForm::parse("L*[SVID]")), "a list of any number of SVID");
    EXPECT_EQ(describe(*LayoutForm::parse("L[]")), "a list of 0");
    EXPECT_FALSE(LayoutForm::parse("L[A"));
    EXPECT_FALSE(LayoutForm::parse("L*[A, B]"));
    EXPECT_FALSE(LayoutForm::parse(""));
}

TEST(LayoutMatch, NamesTheSmallestDifference) {
    EXPECT_THAT(differences(2, 41, "1 L 2\r\n2 A 5 RCMD 'START'\r\n2 L 1\r\n3 A 5 CPVAL 'x'\r\n"),
                ElementsAre("1/2/1: Expected a list of 2 (CPNAME, CPVAL), found A"));
    EXPECT_THAT(differences(5, 1, "1 L 2\r\n2 B 1 ALCD 0\r\n2 U4 1 ALID 1\r\n"),
                ElementsAre("1: Expected a list of 3 (ALCD, ALID, ALTX), found a list of 2 (ALCD, ALID)"));
    EXPECT_THAT(differences(1, 13, "1 L 3\r\n2 A 1 A 'x'\r\n2 A 1 B 'x'\r\n2 A 1 C 'x'\r\n"),
                ElementsAre("1: Expected a list of 2 (MDLN, SOFTREV), found a list of 3 (A, B, C)"));
    EXPECT_THAT(differences(1, 1, "1 A 1 MDLN 'x'\r\n"), ElementsAre("1: Expected no data, found A"));
    EXPECT_THAT(differences(1, 16, ""), ElementsAre("Expected OFLACK, found no data"));
    EXPECT_THAT(differences(1, 16, "1 B 1 A 0\r\n1 B 1 C 0\r\n"),
                ElementsAre("2: Expected one item or list, found 2 items"));
}

TEST(LayoutMatch, AcceptsEachPublishedForm) {
    EXPECT_THAT(differences(1, 13, "1 L 0\r\n"), ElementsAre());
    EXPECT_THAT(differences(1, 3, "1 L 20V COUNT\r\n2 U4 1 SVID 1\r\n"), ElementsAre());
    EXPECT_THAT(differences(1, 3, "1 L 2\r\n2 U4 1 SVID 1\r\n2 A 4 SVID2 'x'\r\n"), ElementsAre());
    EXPECT_THAT(differences(1, 3, "1 U4 20V SVID 1\r\n"), ElementsAre());
}

TEST(LayoutMatch, AcceptsAnythingWhereAnyFormatIsAllowed) {
    EXPECT_THAT(
        differences(6, 11,
                    "1 L 3\r\n2 U4 1 DATAID 0\r\n2 U4 1 CEID 1\r\n2 L 1\r\n3 L 2\r\n4 U4 1 RPTID 1\r\n"
                    "4 L 2\r\n5 L 1\r\n6 A 1 SLOT 'x'\r\n5 F4 1 TIME 0\r\n"),
        ElementsAre());
    EXPECT_THAT(differences(2, 41, "1 X 100V BODY ''\r\n"), ElementsAre());
}

TEST(LayoutMatch, LeavesFaultsOfTheDefinitionToTheirOwnRules) {
    EXPECT_THAT(differences(5, 1, "1 L 3\r\n2 B 1 ALCD 0\r\n2 U4 1 ALID 1\r\n"), ElementsAre());
    EXPECT_THAT(differences(1, 16, "1 U3 1 OFLACK 0\r\n"), ElementsAre());
}

} // namespace
} // namespace zb
