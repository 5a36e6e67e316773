#include "messages/mdf_text.h"
#include "unit/messages/workbench.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::crlf;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kText =
    crlf({"MDF 1", "", "MESSAGE AreYouThere", "DESCRIPTION Are You There: Request", "HEAD S1 F1 W <R> H<->E",
          "END", "", "MESSAGE OnLineData", "DESCRIPTION ", "HEAD S1 F2 <NL> H<-E", "ITEM 1 L 2",
          "ITEM 2 A 6 MDLN 'HLVF\\\\b'", "ITEM 2 L 5V N", "ITEM 3 U1 1 5 [K]", "END"});

TEST(MdfText, ReadsBackWhatItWrites) {
    Findings findings;
    const std::vector<SECSMessageRecord> records = parseMdf(kText, findings);
    EXPECT_THAT(findings, IsEmpty());
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].getHeadText(), "Are You There: Request\r\nAreYouThere: S1 F1 W <R> H<->E");
    EXPECT_EQ(records[1].getHeadText(), "\r\nOnLineData: S1 F2 <NL> H<-E");
    EXPECT_EQ(records[1].getBodyText(), crlf({"1 L 2", "2 A 6 MDLN 'HLVF\\b'", "2 L 5V N", "3 U1 1 5 [K]"}));
    EXPECT_EQ(composeMdf({&records[0], &records[1]}), kText);
}

TEST(MdfText, MayBeWrittenCarelessly) {
    Findings findings;
    const std::vector<SECSMessageRecord> records =
        parseMdf("MDF 1\t\n\tMESSAGE\tA \t\nDESCRIPTION  a\tb\t\nHEAD\tS1\tF1 W\tH->E\t\n"
                 "ITEM\t1\tl\t2\t\n  ITEM 2 a\t3  N 'a  b'\n ITEM 2 u1 1 0 \nEND\t\n",
                 findings);
    EXPECT_THAT(findings, IsEmpty());
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].getHeadText(), "a\tb\r\nA: S1 F1 W H->E");
    EXPECT_EQ(records[0].getBodyText(), crlf({"1 L 2", "2 A 3 N 'a  b'", "2 U1 1 0"}));
}

TEST(MdfText, AnyTextStaysOnItsLine) {
    SECSMessageRecord record;
    const std::string description = " \\ tab\t cr\r lf\n \\n end ";
    EXPECT_EQ(record.parseTexts("My Msg.: S1 F1 H->E", description, "1 A 5 ' .  '\r\n"), "");
    Findings findings;
    const std::vector<SECSMessageRecord> again = parseMdf(composeMdf({&record}), findings);
    EXPECT_THAT(findings, IsEmpty());
    ASSERT_EQ(again.size(), 1U);
    EXPECT_EQ(again[0].getDescription(), description);
    EXPECT_EQ(again[0].getName(), "My Msg.");
    EXPECT_EQ(again[0].getBodyText(), "1 A 5 ' .  '\r\n");
}

TEST(MdfText, ReportsWhatBreaksTheGrammarAndGoesOn) {
    Findings findings;
    const std::vector<SECSMessageRecord> records =
        parseMdf("HEAD S1 F1 H->E\n"
                 "MESSAGE A\nHEAD S1 H->E\nEND\n"
                 "MESSAGE B\nHEAD S1 F1 H->E\nITEM 3 U1 1 5\nITEM x U1 1 5\nITEM 1 Z 5\nNOISE\n"
                 "  MESSAGE C  \r\n\r\nHEAD S1 F1 H->E\nEND\n",
                 findings);
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const SECSMessageRecord& record : records)
        names.emplace_back(record.getName());
    EXPECT_THAT(names, ElementsAre("B", "C"));
    std::vector<std::size_t> lines;
    for (const Finding& finding : findings)
        lines.push_back(finding.place.line);
    EXPECT_THAT(lines, ElementsAre(1U, 1U, 2U, 7U, 8U, 9U, 10U, 5U));
    EXPECT_EQ(findings.back().severity, Severity::Warning);
}

TEST(MdfText, LevelsHaveAnEnd) {
    std::string text = "MDF 1\nMESSAGE A\nHEAD S1 F1 H->E\n";
    for (int level = 1; level <= 1100; ++level)
        text += "ITEM " + std::to_string(level) + " L 1\n";
    Findings findings;
    parseMdf(text + "END\n", findings);
    EXPECT_EQ(findings.size(), 100U);
}

TEST(MdfText, OneMessageIsReadAsARecord) {
    SECSMessageRecord record;
    EXPECT_EQ(record.parseSmd("MDF 1\nMESSAGE A\nDESCRIPTION d\nHEAD S1 F1 H->E\nEND\n", kFormatMdf), "");
    EXPECT_EQ(record.getHeadText(), "d\r\nA: S1 F1 H->E");
    EXPECT_NE(record.parseSmd(kText, kFormatMdf), "");
}

} // namespace
} // namespace zb
