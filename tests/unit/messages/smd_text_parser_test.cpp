#include "messages/smd/smd_text_parser.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string describe(const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings)
        text += (finding.severity == Severity::Error ? "error " : "warning ") +
                std::to_string(finding.place.line) + ": " + finding.text + "\n";
    return text;
}

TEST(SmdTextSplitter, CutsATextIntoItsMessages) {
    const std::string text =
        "***\r\n* first: one\r\n***\r\nA: S1 F1 H->E.\r\n\r\n"
        "***\r\n* second\r\n***\r\nB: S1 F2 H->E\r\n    <L 1\r\n        <A 3 'a.'>\r\n    >.\r\n"
        "C: S1 F3 H->E.\r\n";
    Findings findings;
    SmdTextSplitter splitter(text, &findings);
    std::vector<std::string> messages;
    while (const auto message = splitter.next())
        messages.push_back(std::to_string(message->headLine) + "|" + std::string(message->description) + "|" +
                           std::string(message->head) + "|" + std::string(message->body));
    EXPECT_THAT(messages, ElementsAre("4|first: one|A: S1 F1 H->E|",
                                      "9|second|B: S1 F2 H->E|    <L 1\r\n        <A 3 'a.'>\r\n    >.\r\n",
                                      "13||C: S1 F3 H->E|"));
    EXPECT_THAT(findings, IsEmpty());
}

TEST(SmdTextSplitter, ReportsLinesThatBelongNowhereAndEndsThatLack) {
    const std::string text = "noise\nA: S1 F1 H->E\n    <L 0>\n* b\nB: S1 F1 H->E.\n    <L 0>.\n";
    Findings findings;
    SmdTextSplitter splitter(text, &findings);
    int count = 0;
    while (splitter.next())
        ++count;
    EXPECT_EQ(count, 2);
    EXPECT_EQ(describe(findings), "error 1: This line belongs to no message\n"
                                  "warning 3: The message does not end with \".\"\n"
                                  "error 6: This line belongs to no message\n");
}

std::string read(const std::string& body, Findings& findings) {
    SmdBodyReader reader(body, 10, &findings);
    SmdItemText item;
    std::string text;
    while (reader.next(item))
        text += std::to_string(item.line) + ": " + std::to_string(item.level) + " " + item.text + "\n";
    return text;
}

TEST(SmdBodyReader, BracketsDefineTheLevels) {
    Findings findings;
    EXPECT_EQ(read("<L 2\n<L 1 X\n<A 1 '>'>>\n\n<U1 1 5> >.", findings),
              "10: 1 L 2\n11: 2 L 1 X\n12: 3 A 1 '>'\n14: 2 U1 1 5\n");
    EXPECT_EQ(describe(findings), "");
}

TEST(SmdBodyReader, FaultsAreReportedWithTheirLines) {
    Findings findings;
    EXPECT_EQ(read("<L 2\n<U1 1 5\n> x\n>\n>\n<L 1\n<L 1", findings),
              "10: 1 L 2\n11: 2 U1 1 5\n15: 1 L 1\n16: 2 L 1\n");
    EXPECT_EQ(describe(findings), "error 11: \">\" is missing at the end of the item\n"
                                  "error 12: Only \">\" and the final \".\" may stand here\n"
                                  "error 14: A \">\" closes no list\n"
                                  "error 16: A list is not closed: \">\" is missing\n");
}

TEST(SmdBodyReader, IndentationDefinesTheLevelsOfBareItems) {
    Findings findings;
    EXPECT_EQ(
        read("    L 1\r\n            U1 1 5\r\n    A 2 '.'\r\n    F4 1 1.\r\n    U1 1 7.\r\n", findings),
        "10: 1 L 1\n11: 2 U1 1 5\n12: 1 A 2 '.'\n13: 1 F4 1 1.\n14: 1 U1 1 7\n");
    EXPECT_EQ(describe(findings), "");
}

} // namespace
} // namespace zb
