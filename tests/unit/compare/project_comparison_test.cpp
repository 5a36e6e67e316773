#include "compare/project_comparison.h"

#include "unit/compare/compared_texts.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::linesOf;
using test::projectOf;

const std::string kHello = "* Are you there\nHello: S1 F1 W H<->E.\n";
const std::string kData = "* Data\nData: S1 F2 H<-E\n    L 2\n        A 6 MDLN 'ETCHER'\n"
                          "        A 6 SOFTREV 'V01R01'.\n";
const std::string kEvent = "* Event\nEvent: S6 F11 W H<-E\n    U4 1 DATAID 0\n    U4 1 CEID 7 [K]\n    L 9V\n"
                           "        L 2\n            U4 1 RPTID 1\n            A 40V TEXT ''.\n";

std::string compared(const std::string& before, const std::string& after) {
    return linesOf(compareProjects(projectOf(before), projectOf(after)));
}

std::string changed(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

TEST(ProjectComparison, OfEqualProjectsIsEmpty) {
    EXPECT_EQ(compared(kHello + kData + kEvent, kHello + kData + kEvent), "");
    EXPECT_EQ(compared("", ""), "");
}

TEST(ProjectComparison, IgnoresHowATextIsLaidOut) {
    EXPECT_EQ(compared(kHello + kData, kHello + "\n\n" + changed(kData, "    L 2", "     L 2  ")), "");
}

TEST(ProjectComparison, TellsMessagesThatAreAddedOrRemoved) {
    EXPECT_EQ(compared(kHello, kHello + kData),
              "message added Data : - -> '* Data\nData: S1 F2 H<-E\n    L 2\n        A 6 MDLN 'ETCHER'\n"
              "        A 6 SOFTREV 'V01R01'.'\n");
    EXPECT_EQ(compared(kHello + kData, kData),
              "message removed Hello : '* Are you there\nHello: S1 F1 W H<->E.' -> -\n");
}

TEST(ProjectComparison, TellsEachFieldOfAHead) {
    EXPECT_EQ(compared(kHello, "* Anybody\nHello: S2 F3 <R> <NL> H->E.\n"),
              "message changed Hello stream: '1' -> '2'\n"
              "message changed Hello function: '1' -> '3'\n"
              "message changed Hello wait: 'true' -> 'false'\n"
              "message changed Hello reply: 'false' -> 'true'\n"
              "message changed Hello nologging: 'false' -> 'true'\n"
              "message changed Hello direction: 'H<->E' -> 'H->E'\n"
              "message changed Hello description: 'Are you there' -> 'Anybody'\n");
}

TEST(ProjectComparison, ComparesADamagedHeadAsAWhole) {
    EXPECT_EQ(compared(kHello, changed(kHello, "F1 W", "F1 Q")),
              "message changed Hello head: ': S1 F1 W H<->E' -> ': S1 F1 Q H<->E'\n");
}

TEST(ProjectComparison, RecognisesRenamedMessages) {
    EXPECT_EQ(compared(kData + kEvent, changed(kData, "Data:", "OnLine:") + kEvent),
              "message renamed Data => OnLine name: 'Data' -> 'OnLine'\n");
    EXPECT_EQ(compared(kData, changed(changed(kData, "Data:", "OnLine:"), "V01R01", "V02")),
              "message renamed Data => OnLine name: 'Data' -> 'OnLine'\n"
              "item changed Data@1/2 => OnLine@1/2 value: 'V01R01' -> 'V02'\n");
    EXPECT_EQ(compared(kHello, changed(kHello, "Hello", "HELLO")),
              "message renamed Hello => HELLO name: 'Hello' -> 'HELLO'\n");
}

TEST(ProjectComparison, DoesNotTakeDissimilarMessagesForRenamedOnes) {
    EXPECT_EQ(compared(kEvent, "* Other\nOther: S6 F11 W H<-E\n    A 3 x 'y'.\n").find("renamed"),
              std::string::npos);
    EXPECT_EQ(compared(kData, changed(kData, "Data: S1 F2", "OnLine: S1 F14")).find("renamed"),
              std::string::npos);
}

TEST(ProjectComparison, RecognisesMovedMessages) {
    EXPECT_EQ(compared(kHello + kData + kEvent, kData + kEvent + kHello),
              "message moved Hello position: '1' -> '3'\n");
}

TEST(ProjectComparison, MatchesSeveralMessagesOfOneNameByTheirOrder) {
    EXPECT_EQ(compared(kHello + kHello, kHello + changed(kHello, " W", "")),
              "message changed Hello wait: 'true' -> 'false'\n");
}

TEST(ProjectComparison, TellsEachFieldOfAnItem) {
    EXPECT_EQ(compared(kEvent, changed(kEvent, "U4 1 CEID 7 [K]", "I2 2V CEID 8")),
              "item changed Event@2 type: 'U4' -> 'I2'\n"
              "item changed Event@2 count: '1' -> '2V'\n"
              "item changed Event@2 value: '7' -> '8'\n"
              "item changed Event@2 key: 'true' -> 'false'\n");
    EXPECT_EQ(compared(kEvent, changed(kEvent, "RPTID 1", "REPORT 1")),
              "item renamed Event@3/1/1 name: 'RPTID' -> 'REPORT'\n");
}

TEST(ProjectComparison, TellsAddedAndRemovedItemsWithAllBelowThem) {
    EXPECT_EQ(compared(changed(kEvent, "    U4 1 DATAID 0\n", ""), kEvent),
              "item added Event@1 : - -> 'U4 1 DATAID 0'\n");
    EXPECT_EQ(compared(kEvent, "* Event\nEvent: S6 F11 W H<-E\n    U4 1 DATAID 0\n    U4 1 CEID 7 [K].\n"),
              "item removed Event@3 : 'L 9V\n    L 2\n        U4 1 RPTID 1\n        A 40V TEXT ''' -> -\n");
}

TEST(ProjectComparison, LeavesOutACountThatFollowsTheItems) {
    EXPECT_EQ(
        compared(kData, changed(changed(kData, "L 2", "L 3"), "'V01R01'", "'V01R01'\n        U1 1 NEW 0")),
        "item added Data@1/3 : - -> 'U1 1 NEW 0'\n");
    EXPECT_EQ(compared(kData, changed(kData, "L 2", "L 2V")), "item changed Data@1 count: '2' -> '2V'\n");
}

TEST(ProjectComparison, RecognisesMovedItems) {
    EXPECT_EQ(compared(kEvent,
                       "* Event\nEvent: S6 F11 W H<-E\n    U4 1 CEID 7 [K]\n    U4 1 DATAID 0\n    L 9V\n"
                       "        L 2\n            U4 1 RPTID 1\n            A 40V TEXT ''.\n"),
              "item moved Event@2 => Event@1 position: '2' -> '1'\n");
    EXPECT_EQ(compared(kEvent, "* Event\nEvent: S6 F11 W H<-E\n    U4 1 DATAID 0\n    L 9V\n"
                               "        L 3\n            U4 1 RPTID 1\n            A 40V TEXT ''\n"
                               "            U4 1 CEID 7 [K].\n"),
              "item moved Event@2 => Event@2/1/3 position: '2' -> '2/1/3'\n");
}

TEST(ProjectComparison, FindsNamedItemsInANewList) {
    EXPECT_EQ(compared("* d\nM: S1 F1 H->E\n    U1 1 A 0\n    U1 1 B 0.\n",
                       "* d\nM: S1 F1 H->E\n    L 2\n        U1 1 A 0\n        U1 1 B 0.\n"),
              "item added M@1 : - -> 'L 2\n    U1 1 A 0\n    U1 1 B 0'\n"
              "item moved M@1 => M@1/1 position: '1' -> '1/1'\n"
              "item moved M@2 => M@1/2 position: '2' -> '1/2'\n");
}

const std::string kModel =
    "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Go\n  SECSMessage Hello\n  Condition ({A} == 1)\n"
    "  Report True\n  Direction 1\n  TRItem LOT\n    Type STRING\n    Value LOTID\n    StatementText  if (X)\n"
    "    Element 1 Condition\n  EndTRItem\nEndTRMessage\n## [TR MESSAGE] Say\n  SECSMessage Data\n"
    "  Report False\n  Direction 2\n  DataBlock Data: S1 F2 H<-E\n    Item 1 L 1\n    Item 2 A 6 MDLN 'x'\n"
    "EndTRMessage\n";
const std::string kSequences = "\n\n\n###[SEQUENCE TABLE]\nSeqName\u00FFMain\u00FF\u00FF\n"
                               "SeqItem\u00FF1\u00FFToEquip\u00FFGo\nSeqItem\u00FF2\u00FFToHost\u00FFSay\n";
const std::string kForeign = "###[COLOURS]\nred\n";

std::string comparedRest(const std::string& before, const std::string& after) {
    return linesOf(compareProjects(projectOf(kHello, before), projectOf(kHello, after)));
}

TEST(ProjectComparison, TellsFieldsOfTrMessages) {
    EXPECT_EQ(comparedRest(kModel, changed(changed(kModel, "== 1", "== 2"), "Report False", "Report True")),
              "tr-message changed Go condition: '({A} == 1)' -> '({A} == 2)'\n"
              "tr-message changed Say report: 'False' -> 'True'\n");
    EXPECT_EQ(comparedRest(kModel, changed(kModel, "DataBlock Data: S1", "DataBlock Data: S2")),
              "tr-message changed Say data: 'Data: S1 F2 H<-E' -> 'Data: S2 F2 H<-E'\n");
}

TEST(ProjectComparison, TellsItemsOfTrMessages) {
    EXPECT_EQ(comparedRest(kModel, changed(kModel, "if (X)", "if (Y)")),
              "tr-item changed Go@LOT statements: ' if (X)' -> ' if (Y)'\n");
    EXPECT_EQ(comparedRest(kModel, changed(kModel, "TRItem LOT", "TRItem LOTS")),
              "tr-item renamed Go@LOT => Go@LOTS name: 'LOT' -> 'LOTS'\n");
    EXPECT_EQ(
        comparedRest(kModel, changed(kModel, "  TRItem LOT", "  TRItem NEW\n  EndTRItem\n  TRItem LOT")),
        "tr-item added Go@NEW : - -> 'NEW'\n");
    EXPECT_EQ(comparedRest(kModel, changed(kModel, "MDLN 'x'", "MDLN 'y'")),
              "tr-item changed Say@1/1 value: 'x' -> 'y'\n");
}

TEST(ProjectComparison, TellsTrMessagesThatAreAddedRemovedOrRenamed) {
    EXPECT_EQ(comparedRest(kModel, changed(kModel, "[TR MESSAGE] Go", "[TR MESSAGE] Run")),
              "tr-message renamed Go => Run name: 'Go' -> 'Run'\n");
    EXPECT_EQ(
        comparedRest("", "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] A\n  SECSMessage B\nEndTRMessage\n"),
        "tr-message added A : - -> '## [TR MESSAGE] A\n  SECSMessage B\n  Report False\n  Direction 1\n"
        "EndTRMessage'\n");
}

TEST(ProjectComparison, TellsSequencesAndTheirRows) {
    EXPECT_EQ(comparedRest(kSequences, changed(kSequences, "Main", "Start")),
              "sequence renamed Main => Start name: 'Main' -> 'Start'\n");
    EXPECT_EQ(comparedRest(kSequences, changed(kSequences, "1\u00FFToEquip\u00FFGo\nSeqItem\u00FF2", "1")),
              "sequence removed Main@1 : 'ToEquip Go' -> -\n");
    EXPECT_EQ(comparedRest(kSequences, changed(kSequences, "\u00FFSay", "\u00FFShout")),
              "sequence changed Main@2 row: 'ToHost Say' -> 'ToHost Shout'\n");
}

TEST(ProjectComparison, TellsTheSideAndForeignSections) {
    const std::string header = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n";
    EXPECT_EQ(linesOf(compareProjects(projectOf(""), parseProject(header))),
              "project changed  side: 'host' -> 'equipment'\n");
    EXPECT_EQ(comparedRest(kForeign, changed(kForeign, "red", "blue")),
              "project changed ###[COLOURS] section: 'red' -> 'blue'\n");
    EXPECT_EQ(comparedRest("", kForeign), "project added ###[COLOURS] : - -> '###[COLOURS]\nred'\n");
}

TEST(ProjectComparison, OfALibraryComparesMessagesAlone) {
    const Project before = projectOf(kHello, kForeign + kModel + kSequences);
    EXPECT_EQ(compareProjects(before, projectOf(kHello), CompareScope::Messages), Differences());
    EXPECT_FALSE(compareProjects(before, projectOf(kHello)).empty());
}

} // namespace
} // namespace zb
