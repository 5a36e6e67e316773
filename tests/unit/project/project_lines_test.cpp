#include "project/project_lines.h"

#include "messages/definition_check.h"
#include "platform/code_page.h"
#include "project/project_text.h"

#include <gtest/gtest.h>
#include <string>

namespace zb {
namespace {

std::string lineOf(const ProjectLines& lines, FindingPlace place) {
    lines.locate(place);
    return std::to_string(place.line) + ":" + std::to_string(place.column);
}

// Two sections of messages, one of them after the model, and a foreign section.
constexpr const char* kProject =
    "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n" // 1 to 4
    "* a\r\nFirst: S1 F1 H->E\r\n    L 2\r\n        U3 1 A 0\r\n"        // 5 to 8
    "        L 1\r\n            U3 1 B 0.\r\n"                           // 9, 10
    "## [OTHER]\r\nforeign\r\n"                                          // 11, 12
    "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] Tr\r\n"                 // 13, 14
    "  SECSMessage First\r\n  DataBlock First: S1 F1 H->E\r\n"           // 15, 16
    "    Item 1 L 2\r\n    Item 2 U1 1 A 0\r\n    Item 2 L 1\r\n"        // 17 to 19
    "    Item 3 U1 1 B 0\r\n  TRItem NEW NAME\r\n  EndTRItem\r\n"        // 20 to 22
    "EndTRMessage\r\n## [EDIT SMD]\r\n* b\r\n\r\n"                       // 23 to 26
    "Second: S1 F3 H->E\r\n    U3 1 C 0.\r\n\r\n\r\n"                    // 27 to 30
    "###[SEQUENCE TABLE]\r\nSeqName\u00FFOne\u00FF\u00FF\r\n\r\n"        // 31 to 33
    "SeqItem\u00FF1\u00FFToHost\u00FFTr\r\n";                            // 34

TEST(ProjectLines, LocateFindingsOfMessages) {
    NodeTree tree;
    parseProject(kProject).messages.fill(tree);
    const ProjectLines lines(kProject);
    std::string places;
    for (const Finding& finding : checkDefinitions(tree, CodePage(1252)))
        places +=
            finding.place.message + " " + finding.place.item + " " + lineOf(lines, finding.place) + "\n";
    EXPECT_EQ(places, "First 1/1 8:9\nFirst 1/2/1 10:13\nSecond 1 28:5\n");
    EXPECT_EQ(lineOf(lines, FindingPlace::inMessage("First", "", 3)), "6:1");
    EXPECT_EQ(lineOf(lines, FindingPlace::inMessage("Second", "", 10)), "27:1");
}

TEST(ProjectLines, LocateFindingsOfTheModel) {
    const ProjectLines lines(kProject);
    EXPECT_EQ(lineOf(lines, FindingPlace::inTRMessage("Tr", "")), "14:1");
    EXPECT_EQ(lineOf(lines, FindingPlace::inTRMessage("Tr", "NEW NAME")), "21:3");
    EXPECT_EQ(lineOf(lines, FindingPlace::inTRMessage("Tr", "1/2/1")), "20:5");
    EXPECT_EQ(lineOf(lines, FindingPlace::inTRMessage("Tr", "unknown")), "14:1");
    EXPECT_EQ(lineOf(lines, FindingPlace::inSequence("One", "", 1)), "32:1");
    EXPECT_EQ(lineOf(lines, FindingPlace::inSequence("One", "1", 2)), "34:1");
}

TEST(ProjectLines, WhatIsNotInTheFileHasNoLine) {
    const ProjectLines lines(kProject);
    EXPECT_EQ(lineOf(lines, FindingPlace::inMessage("New", "", 100)), "0:0");
    EXPECT_EQ(lineOf(lines, FindingPlace::inTRMessage("New", "")), "0:0");
    EXPECT_EQ(lineOf(lines, FindingPlace::inSequence("New", "", 9)), "0:0");
    EXPECT_EQ(lineOf(ProjectLines(""), FindingPlace::inMessage("M", "", 1)), "0:0");
}

} // namespace
} // namespace zb
