#include "project/foreign_sections.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kProject = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n"
                                 "## [EDIT SMD]\r\n* One\r\nA: S1 F1 H->E.\r\n"
                                 "###[MODEL]\r\nmessage A\r\n\r\n  item B\r\n"
                                 "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\nSeqName\u00FFMain\u00FF\u00FF\r\n";

TEST(ForeignSections, AreTheUnknownLinesAfterTheMessages) {
    EXPECT_EQ(ForeignSections::parse(splitProject(kProject).foreign).lines(),
              (Lines{"###[MODEL]", "message A", "", "  item B"}));
}

TEST(ForeignSections, AreWrittenBackAsTheyWereRead) {
    EXPECT_EQ(ForeignSections::parse(splitProject(kProject).foreign).text(),
              "###[MODEL]\r\nmessage A\r\n\r\n  item B\r\n");
}

TEST(ForeignSections, OfAnOrdinaryProjectAreEmpty) {
    EXPECT_EQ(
        ForeignSections::parse(splitProject("\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n").foreign)
            .text(),
        "");
}

TEST(ForeignSections, DoNotBeginInsideTheSequenceTable) {
    EXPECT_EQ(
        ForeignSections::parse(splitProject("###[SEQUENCE TABLE]\r\n## [EDIT SMD]\r\n###[X]\r\n").foreign)
            .lines(),
        Lines());
}

TEST(ForeignSections, AreEmptyOnceCleared) {
    ForeignSections sections = ForeignSections::parse(splitProject(kProject).foreign);
    sections.clear();
    EXPECT_EQ(sections.text(), "");
}

} // namespace
} // namespace zb
