#include "project/project_text.h"

#include "messages/smd/smd_text.h"
#include "unit/messages/workbench.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::crlf;

const std::string kHeader = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n";
const std::string kMessages = "## [EDIT SMD]\r\n* One\r\nA: S1 F1 W H->E\r\n    L 1\r\n        U2 1 x 0.\r\n";
const std::string kForeign = "###[COLOURS]\r\nmessage A\r\n\r\n  item B\r\n";
const std::string kModel = "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] M\r\n  SECSMessage A\r\n"
                           "  Report True\r\n  Direction 2\r\nEndTRMessage\r\n";
const std::string kSequences = "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\nSeqName\u00FFMain\u00FF\u00FF\r\n"
                               "SeqItem\u00FF1\u00FFToEquip\u00FFM\r\n";

/// The tree of a project's messages.
std::string treeOf(const Project& project) {
    NodeTree tree;
    project.messages.fill(tree);
    return test::outline(tree);
}

std::string composedAgain(const std::string& text) {
    return composeProject(parseProject(text));
}

TEST(ProjectText, HoldsAllSections) {
    const Project project = parseProject(kHeader + kMessages + kForeign + kModel + kSequences);
    EXPECT_EQ(project.side, Side::Equipment);
    EXPECT_EQ(treeOf(project), "\nOne\nA: S1 F1 W H->E #A\n  L 1\n    U2 1 x 0\n");
    EXPECT_EQ(project.foreign.text(), kForeign);
    ASSERT_EQ(project.model->TRMessages().size(), 1U);
    EXPECT_EQ(project.model->TRMessages()[0]->SECSMessage(), "A");
    EXPECT_EQ(project.model->ProjectType(), 2);
    ASSERT_EQ(project.sequences.rows().size(), 2U);
    EXPECT_EQ(project.sequences.rows()[1].transactionName, "M");
}

TEST(ProjectText, IsComposedAsItWasRead) {
    for (const std::string& messages : {std::string(), kMessages})
        for (const std::string& foreign : {std::string(), kForeign})
            for (const std::string& model : {std::string(), kModel}) {
                const std::string text =
                    std::string(kHeader).append(messages).append(foreign).append(model).append(kSequences);
                EXPECT_EQ(composedAgain(text), text);
            }
    const std::string host = "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n\r\n\r\n\r\n"
                             "###[SEQUENCE TABLE]\r\n";
    EXPECT_EQ(composedAgain(host), host);
}

TEST(ProjectText, KeepsMessageLinesThatBreakTheGrammar) {
    const std::string damaged = "## [EDIT SMD]\r\nno message\r\n* lost\r\n****\r\n\r\nA:S1F1\r\n\tU1 1 5\r\n"
                                "  <L 2>>.\r\nstray\r\n";
    EXPECT_EQ(composedAgain(kHeader + damaged + kSequences), kHeader + damaged + kSequences);
}

TEST(ProjectText, OfNothingIsAnEmptyHostProject) {
    const Project project = parseProject("");
    EXPECT_EQ(project.side, Side::Host);
    EXPECT_FALSE(project.messages.hasSection());
    EXPECT_EQ(treeOf(project), "");
    EXPECT_TRUE(project.model->TRMessages().empty());
    EXPECT_TRUE(project.sequences.rows().empty());
}

TEST(ProjectText, ASectionWithoutMessagesKeepsItsLine) {
    const Project project = parseProject(kHeader + "## [EDIT SMD]\r\n" + kSequences);
    EXPECT_TRUE(project.messages.hasSection());
    EXPECT_EQ(project.messages.text(), "");
    EXPECT_EQ(composeProject(project), kHeader + "## [EDIT SMD]\r\n" + kSequences);
}

TEST(ProjectText, ALastSectionOfBlankLinesIsNoneOfItsOwn) {
    const std::string section = "## [EDIT SMD]\r\n* One\r\nA: S1 F1 H->E.\r\n";
    const std::string blank = "## [EDIT SMD]\r\n \r\n";
    const std::string once = composedAgain(kHeader + section + blank + "## x\r\n" + blank + kSequences);
    EXPECT_EQ(once, kHeader + section + "## x\r\n" + kSequences);
    EXPECT_EQ(composedAgain(once), once);
    // Before others it opens them.
    EXPECT_EQ(composedAgain(kHeader + blank + section + kSequences), kHeader + blank + section + kSequences);
}

TEST(ProjectText, ALastLineGetsItsEnd) {
    EXPECT_EQ(parseProject("## [EDIT SMD]\nA: S1 F1 H->E.").messages.text(), "A: S1 F1 H->E.\r\n");
}

struct Reading {
    const char* name;
    std::string text;
    std::string tree;
};

void PrintTo(const Reading& tested, std::ostream* out) {
    *out << tested.name;
}

class MessageSections : public testing::TestWithParam<Reading> {};

TEST_P(MessageSections, AreFound) {
    EXPECT_EQ(treeOf(parseProject(GetParam().text)), GetParam().tree);
    EXPECT_EQ(treeOf(parseProject(composedAgain(GetParam().text))), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(
    ProjectText, MessageSections,
    testing::Values(
        Reading{"NoMarker", "###[PROJECT INFORMATION]\r\nProjectType=1\r\nM: S1 F1 H->E.\r\n", ""},
        Reading{"AnotherSectionCloses", crlf({"## [EDIT SMD]", "###[OTHER]", "M: S1 F1 H->E."}), ""},
        Reading{"TheSectionOpensAgain",
                crlf({"## [EDIT SMD]", "## x", "A: S1 F1 H->E.", "## [EDIT SMD]  ", "B: S1 F1 H->E."}),
                "\n\nB: S1 F1 H->E #B\n"},
        Reading{"AGapDropsTheDescription",
                crlf({"## [EDIT SMD]", "* one", "## [EDIT SMD]", "M: S1 F1 H->E."}),
                "\n\nM: S1 F1 H->E #M\n"},
        Reading{"AMessageGoesOnAfterAGap",
                crlf({"## [EDIT SMD]", "M: S1 F1 H->E", "    L 1", "## x", "    U1 1 7", "## [EDIT SMD]",
                      "        U1 1 5."}),
                "\n\nM: S1 F1 H->E #M\n  L 1\n    U1 1 5\n"},
        Reading{"AfterTheSequences", crlf({"###[SEQUENCE TABLE]", "## [EDIT SMD]", "M: S1 F1 H->E."}),
                "\n\nM: S1 F1 H->E #M\n"},
        Reading{"LineFeedsAlone", "## [EDIT SMD]\n* a\nM: S1 F1 H->E.\n", "\na\nM: S1 F1 H->E #M\n"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(ProjectText, TheSequencesNeedTheirMarkerAsAWholeLine) {
    const std::string row = "SeqName\u00FFA\u00FF\u00FF\r\n";
    EXPECT_EQ(parseProject(row + "###[SEQUENCE TABLE]\r\n" + row).sequences.rows().size(), 1U);
    EXPECT_TRUE(parseProject(" ###[SEQUENCE TABLE]\r\n" + row).sequences.rows().empty());
    EXPECT_TRUE(parseProject("###[SEQUENCE TABLE] \r\n" + row).sequences.rows().empty());
}

TEST(ProjectText, AnUnknownLineInATRMessageIsNoForeignSection) {
    const std::string model = "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] M\r\n## damage\r\n"
                              "  SECSMessage A\r\n  Direction 2\r\nEndTRMessage\r\n## [KEPT]\r\n";
    const Project project = parseProject(kHeader + model);
    EXPECT_EQ(project.model->TRMessages()[0]->SECSMessage(), "A");
    EXPECT_EQ(project.foreign.text(), "## [KEPT]\r\n");
}

TEST(ProjectText, AMessageDoesNotGoOnInTheNextModelSection) {
    const Project project = parseProject("## [TR MESSAGE] M\r\n## [EDIT SMD]\r\n###[TRANSACTION MODEL] 1\r\n"
                                         "  SECSMessage A\r\n");
    ASSERT_EQ(project.model->TRMessages().size(), 1U);
    EXPECT_EQ(project.model->TRMessages()[0]->SECSMessage(), "");
}

TEST(ProjectText, RecordsAreTheMessagesOfTheTree) {
    const Project project = parseProject(kHeader + kMessages + "stray\r\n* two\r\nB: S1 F2 H<-E.\r\n");
    const std::vector<SECSMessageRecord> records = project.messages.records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].getHeadText(), "One\r\nA: S1 F1 W H->E");
    EXPECT_EQ(records[0].getBodyText(), crlf({"1 L 1", "2 U2 1 x 0"}));
    EXPECT_EQ(records[1].getName(), "B");
}

TEST(ProjectText, RecordsComposeTheirSection) {
    const std::string section = parseProject(kMessages).messages.text();
    const std::vector<SECSMessageRecord> records = ProjectMessages(section).records();
    EXPECT_EQ(composeSmd({records.data()}, SmdForm::Project), section);
}

TEST(ProjectText, AProjectIsMovedAsAWhole) {
    Project first = parseProject(kHeader + kMessages + kForeign + kModel + kSequences);
    const Project second = std::move(first);
    EXPECT_EQ(composeProject(second), kHeader + kMessages + kForeign + kModel + kSequences);
}

const std::string kNew = "* new\r\nN: S1 F3 W H->E.\r\n";

TEST(InsertMessages, AddsThemAtTheEndOfTheSection) {
    EXPECT_EQ(insertMessages(kHeader + kMessages + kForeign, kNew), kHeader + kMessages + kNew + kForeign);
    EXPECT_EQ(insertMessages(kHeader + kMessages, kNew), kHeader + kMessages + kNew);
    EXPECT_EQ(insertMessages("## [EDIT SMD]\r\nA: S1 F1 H->E.", kNew),
              "## [EDIT SMD]\r\nA: S1 F1 H->E.\r\n" + kNew);
}

TEST(InsertMessages, OpensASectionAfterTheHeader) {
    EXPECT_EQ(insertMessages(kHeader, kNew), kHeader + "## [EDIT SMD]\r\n" + kNew);
    EXPECT_EQ(insertMessages(kHeader + kSequences, kNew), kHeader + "## [EDIT SMD]\r\n" + kNew + kSequences);
    EXPECT_EQ(insertMessages("", kNew), "## [EDIT SMD]\r\n" + kNew);
}

TEST(ProjectLines, OfAProjectAreItsHeaderAndItsMessages) {
    EXPECT_TRUE(hasProjectLine("x\r\n###[PROJECT INFORMATION]  \r\n"));
    EXPECT_TRUE(hasProjectLine("## [EDIT SMD]"));
    EXPECT_FALSE(hasProjectLine(" ## [EDIT SMD]\r\n"));
    EXPECT_FALSE(hasProjectLine("###[SEQUENCE TABLE]\r\n"));
}

} // namespace
} // namespace zb
