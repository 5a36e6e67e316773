#include "platform/text.h"
#include "unit/lint/checked_project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zb::test {
namespace {

using testing::ElementsAre;

/// Messages without a fault, as an equipment has them.
constexpr const char* kMessages = "* Online\nRequestOnLine: S1 F17 W H->E.\n"
                                  "* Reply\nOnLine: S1 F18 H<-E\n    B 1 ONLACK 0.\n"
                                  "* Command\nStart: S2 F41 W H->E\n    L 2\n        A 5 RCMD 'START' [K]\n"
                                  "        L 1\n            L 2\n                A 4 CPNAME 'PORT'\n"
                                  "                U1 1 CPVAL 1.\n"
                                  "* Command\nStop: S2 F41 W H->E\n    L 2\n        A 4 RCMD 'STOP' [K]\n"
                                  "        L 0.\n"
                                  "* Reply\nDone: S2 F42 H<-E\n    L 2\n        B 1 HCACK 0\n        L 0.\n"
                                  "* Alarm\nAlarm: S5 F1 W H<-E\n    L 3\n        B 1 ALCD 132\n"
                                  "        U4 1 ALID 3011\n        A 80V ALTX 'Pressure'.\n"
                                  "* Reply\nAlarmTaken: S5 F2 H->E\n    B 1 ACKC5 0.\n"
                                  "* Own\nReport: S64 F1 W H<-E\n    L 3\n        U2 1 SLOT 1\n"
                                  "        A 16 LOT 'L1              '\n        L 4V STEPCOUNT\n"
                                  "            U1 1 STEP 1.\n"
                                  "* Reply\nReportTaken: S64 F2 H->E\n    U1 1 RESULT 0.\n";

constexpr const char* kModel =
    "###[TRANSACTION MODEL] 1\n"
    "## [TR MESSAGE] StartLot\n  SECSMessage Start\n  Condition ({RCMD} == 'START')\n  Report True\n"
    "  Direction 2\n  TRItem PORT\n    Type NUMERIC\n    Value CPVAL\n"
    "    StatementText if ({CPVAL} == 1):\n    StatementText  PORT=1\n    StatementText else:\n"
    "    StatementText  PORT=2\n    Element 1 Condition\n"
    "    Element 2 Statement Type=\"if\" Condition=\"({CPVAL} == 1)\" \"1\"\n"
    "    Element 2 Statement Type=\"else\" Condition=\"NONE\" \"2\"\n  EndTRItem\nEndTRMessage\n"
    "## [TR MESSAGE] AnyStart\n  SECSMessage Start\n  Report False\n  Direction 2\nEndTRMessage\n"
    "## [TR MESSAGE] Good\n  SECSMessage ReportTaken\n  Condition ({RESULT} == 0)\n  Report False\n"
    "  Direction 2\nEndTRMessage\n"
    "## [TR MESSAGE] Bad\n  SECSMessage ReportTaken\n  Report False\n  Direction 2\nEndTRMessage\n"
    "## [TR MESSAGE] LotReport\n  SECSMessage Report\n  Report False\n  Direction 1\n"
    "  DataBlock Report: S64 F1 W H<-E\n    Description Own\n    Item 1 L 3\n    Item 2 U2 1 SLOT 1\n"
    "    Item 2 A 16 LOT 'L2              '\n    Item 2 L 2 STEPCOUNT\n    Item 3 U1 1 STEP 1\n"
    "    Item 3 U1 1 STEP 2\nEndTRMessage\n"
    "## [TR MESSAGE] LotDone\n  SECSMessage Done\n  Report False\n  Direction 1\n"
    "  DataBlock Done: S2 F42 H<-E\n    Description Reply\n    Item 1 L 2\n    Item 2 B 1 HCACK 0\n"
    "    Item 2 L 0\nEndTRMessage\n";

constexpr const char* kSequences = "\n\n\n###[SEQUENCE TABLE]\nSeqName\u00FFLot\u00FF\u00FF\n"
                                   "SeqItem\u00FF1\u00FFToEquip\u00FFStartLot\n"
                                   "SeqItem\u00FF2\u00FFToHost\u00FFLotDone\n"
                                   "SeqItem\u00FF3\u00FFToHost\u00FFLotReport\n"
                                   "SeqItem\u00FF4\u00FFToEquip\u00FFGood\n";

/// One change of the sound project, and the finding that it has to give.
struct Plant {
    const char* from;
    const char* to;
    const char* finding;
};

void PrintTo(const Plant& plant, std::ostream* out) {
    *out << plant.finding;
}

std::string soundProject() {
    return projectOf(kMessages, std::string(kModel) + kSequences);
}

class PlantedFault : public testing::TestWithParam<Plant> {};

TEST_P(PlantedFault, IsReportedOnceAndNothingElse) {
    const auto [from, to, finding] = GetParam();
    const std::string project = soundProject();
    const std::size_t at = project.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    ASSERT_EQ(project.find(from, at + 1), std::string::npos) << from << " is there twice";
    EXPECT_THAT(placesOf(findingsOf(replaceAll(project, from, to))), ElementsAre(finding));
}

TEST(SoundProject, HasNoFinding) {
    EXPECT_THAT(placesOf(findingsOf(soundProject())), ElementsAre());
}

constexpr Plant kInMessages[] = {
    {"F18 H<-E\n    B 1 ONLACK 0", "F18 H<-E\n    B 1 ONLACK 3", "std.item.code: OnLine: 1"},
    {"RequestOnLine: S1 F17 W H->E", "RequestOnLine: S1 F17 W H<->E", "std.direction: RequestOnLine"},
    {"RequestOnLine: S1 F17 W H->E", "RequestOnLine: S1 F17 H->E", "std.wait.missing: RequestOnLine"},
    {"OnLine: S1 F18 H<-E", "OnLine: S1 F18 W H<-E", "std.wait.forbidden: OnLine"},
    {"OnLine: S1 F18 H<-E", "OnLine: S1 F18 H->E", "std.direction: OnLine"},
    {"* Reply\nOnLine: S1 F18 H<-E\n    B 1 ONLACK 0.\n", "", "std.reply.missing: RequestOnLine"},
    {"* Reply\nAlarmTaken: S5 F2 H->E\n    B 1 ACKC5 0.\n", "", "std.reply.missing: Alarm"},
    {"ReportTaken: S64 F2 H->E", "ReportTaken: S64 F2 H<-E", "std.reply.direction: ReportTaken"},
    {"* Own\n", "* No\nNone: S1 F63 H->E.\n* Own\n", "std.message.unknown: None"},
    {"B 1 ONLACK 0", "B 2 ONLACK 0 0", "std.item.length: OnLine: 1"},
    {"A 80V ALTX 'Pressure'", "A 121V ALTX 'Pressure'", "std.item.length: Alarm: 1/3"},
    {"U4 1 ALID 3011", "A 4 ALID '3011'", "std.item.format: Alarm: 1/2"},
    {"U4 1 ALID 3011", "U4 1 ALDI 3011", "style.item.name: Alarm: 1/2"},
    {"B 1 ALCD 132", "B 1 ALCD 9", "std.item.code: Alarm: 1/1"},
    {"U4 1 ALID 3011", "L 0", "std.structure: Alarm: 1/2"},
    {"    L 3\n        B 1 ALCD 132\n        U4 1 ALID 3011\n        A 80V ALTX 'Pressure'",
     "    L 2\n        B 1 ALCD 132\n        U4 1 ALID 3011", "std.structure: Alarm: 1"},
    {"A 4 RCMD 'STOP' [K]", "A 8 RCMD 'STOP' [K]", "key.length: Stop: 1/1"},
    {"RCMD 'STOP' [K]", "RCMD 'STOP'", "key.lost: Stop: 1/1"},
    {"A 4 RCMD 'STOP' [K]", "A 5 RCMD 'START' [K]", "key.equal: Stop: 1/1"},
    {"U4 1 ALID 3011", "U4 1 ALID 4294967296", "smd.value.range: Alarm: 1/2"},
    {"A 5 RCMD 'START' [K]", "A 5 RCMD 'START NOW' [K]", "smd.value.length: Start: 1/1"},
    {"            U1 1 STEP 1.", "            U1 1 STEP 1 [K].", "key.repeated: Report: 1/3/1"},
    {"U1 1 CPVAL 1", "U1 1 CPVAL 1 [K]", "key.second: Start: 1/2/1/2"},
    {"    L 3\n        U2 1 SLOT", "    L 4\n        U2 1 SLOT", "smd.item.count: Report: 1"},
    {"U1 1 RESULT 0", "U1 1 RESULT -1", "smd.item.value: ReportTaken: 1"},
    {"H<-E\n    L 2\n        B 1 HCACK 0", "H<-E\n    L 2\n        B 1 HCACK 300",
     "smd.item.value: Done: 1/1"},
    {"* Own\n",
     "* Link\nLink: S1 F13 W H->E\n    L 0.\n* Reply\nLinked: S1 F14 H->E\n    L 2\n"
     "        B 1 COMMACK 0\n        L 0.\n* Own\n",
     "std.reply.direction: Linked"},
    {"* Own\n",
     "* Link\nLink: S1 F13 W H<->E\n    L 0.\n* Reply\nLinked: S1 F14 H->E\n    L 2\n"
     "        B 1 COMMACK 0\n        L 0.\n* Own\n",
     "std.reply.missing: Link"},
};

constexpr Plant kInModel[] = {
    {"({RESULT} == 0)", "({RESULT} == 'A')", "tr.condition.kind: Good"},
    {"## [TR MESSAGE] Good\n",
     "## [TR MESSAGE] Taken\n  SECSMessage AlarmTaken\n  Condition ({ACKC5} == 'x')\n  Direction 2\n"
     "EndTRMessage\n## [TR MESSAGE] Good\n",
     "tr.condition.kind: Taken"},
    {"  Report True\n  Direction 2\n", "  Report True\n  Direction 3\n", "tr.direction: StartLot"},
    {"({RESULT} == 0)", "({RESULT[1]} == 0)", "tr.item.index: Good"},
    {"({RESULT} == 0)", "({RESULT} == 0", "tr.condition.form: Good"},
    {"({RESULT} == 0)", "(({RESULT} == 0) and ({RESULT} == 1))", "tr.condition.unreachable: Good"},
    {"({RESULT} == 0)", "({RESULTS} == 0)", "tr.item.unknown: Good"},
    {"## [TR MESSAGE] AnyStart\n  SECSMessage Start\n",
     "## [TR MESSAGE] AnyStart\n  SECSMessage Start\n  Condition ({RCMD} == 'START')\n",
     "tr.condition.unreachable: AnyStart"},
    {"## [TR MESSAGE] Good\n",
     "## [TR MESSAGE] First\n  SECSMessage AlarmTaken\n  Direction 2\nEndTRMessage\n## [TR MESSAGE] Second\n"
     "  SECSMessage AlarmTaken\n  Condition ({ACKC5} == '1')\n  Direction 2\nEndTRMessage\n## [TR MESSAGE] Good\n",
     "tr.default.first: First"},
    {"    Value CPVAL\n", "    Value CPVAL[1]\n", "tr.item.index: StartLot: PORT"},
    {"    StatementText  PORT=1\n", "", "tr.statement.result: StartLot: PORT"},
    {"    StatementText if ({CPVAL} == 1):\n", "    StatementText if:\n",
     "tr.statement.condition: StartLot: PORT"},
    {"    StatementText if ({CPVAL} == 1):\n", "    StatementText if ({CPVAL} == ':'):\n",
     "tr.statement.colon: StartLot: PORT"},
    {"## [TR MESSAGE] AnyStart\n  SECSMessage Start\n  Report False\n  Direction 2\n",
     "## [TR MESSAGE] AnyStart\n  SECSMessage Start\n  Report False\n  Direction 2\n  TRItem EMPTY\n  EndTRItem\n",
     "tr.item.source: AnyStart: EMPTY"},
    {"Item 2 U2 1 SLOT 1", "Item 2 U2 1 SLOT 99999", "tr.block.range: LotReport: 1/1"},
    {"'L2              '", "'한국어한국어한국어'", "tr.block.length: LotReport: 1/2"},
    {"Item 2 B 1 HCACK 0", "Item 2 B 1 HCACK 9", "tr.block.code: LotDone: 1/1"},
    {"Item 2 B 1 HCACK 0", "Item 2 B 1 HCACK 300", "tr.block.range: LotDone: 1/1"},
    {"Item 2 U2 1 SLOT 1", "Item 2 U4 1 SLOT 1", "tr.block.changed: LotReport: 1/1"},
    {"    L 3\n        U2 1 SLOT 1", "    L 3\n        U2 1 SLOT 1 [K]", "tr.block.key: LotReport: 1/1"},
    {"SeqItem\u00FF3\u00FFToHost\u00FFLotReport\n", "", "seq.reply.order: Lot: 3"},
    {"\u00FFLot\u00FF", "\u00FFStartLot\u00FF", "seq.name.taken: StartLot"},
    {"\u00FFLot\u00FF", "\u00FFStart up\u00FF", "tmd.name: Start up"},
    {"SeqItem\u00FF4\u00FFToEquip\u00FFGood\n",
     "SeqItem\u00FF4\u00FFToEquip\u00FFGood\nSeqName\u00FFLot\u00FF\u00FF\nSeqItem\u00FF1\u00FFToEquip\u00FFStartLot\n",
     "seq.name.twice: Lot"},
};

INSTANTIATE_TEST_SUITE_P(InMessages, PlantedFault, testing::ValuesIn(kInMessages));
INSTANTIATE_TEST_SUITE_P(InModel, PlantedFault, testing::ValuesIn(kInModel));

TEST(SoundVariants, AreNotReported) {
    const std::string project = soundProject();
    const auto expectNone = [&](const std::string& from, const std::string& to) {
        ASSERT_NE(project.find(from), std::string::npos) << from;
        EXPECT_THAT(placesOf(findingsOf(replaceAll(project, from, to))), ElementsAre()) << to;
    };
    expectNone("* Own\n", "* Abort\nAbort: S1 F0 H<->E.\n* Own\n");
    expectNone("* Own\n",
               "* Carrier\nCarrierAction: S3 F17 W H->E\n    L 0.\n* Ack\nCarrierAck: S3 F18 H<-E\n"
               "    L 0.\n* Own\n");
    expectNone("U4 1 ALID 3011", "U4 1 ALARM 3011");
    expectNone("U4 1 ALID 3011", "U4 1 ALIDS 3011");
    expectNone("B 1 HCACK 0", "B 1 HCACK 64");
    expectNone("* Own\n", "* Own time\nOwnTime: S66 F1 H<-E\n    F4 1 TIME 0.5.\n* Own\n");
    expectNone("Alarm: S5 F1 W H<-E", "Alarm: S5 F1 H<-E");
    expectNone("A 4 RCMD 'STOP' [K]", "A 4V RCMD ''");
}

// Both sides ask, so that there are replies of both.
TEST(Sequences, HaveTheReplyOfTheOtherSide) {
    const std::string messages = "* Ask\nAsk: S64 F1 W H<->E.\n* Answer\nAnswer: S64 F2 H<->E.\n";
    const auto message = [](const std::string& name, const std::string& secsMessage, int direction) {
        return "## [TR MESSAGE] " + name + "\n  SECSMessage " + secsMessage +
               "\n  Report False\n  Direction " + std::to_string(direction) + "\nEndTRMessage\n";
    };
    const std::string model = "###[TRANSACTION MODEL] 1\n" + message("Asked", "Ask", 2) +
                              message("AnswerToEquip", "Answer", 2) + message("AnswerToHost", "Answer", 1);
    const auto places = [&](const std::string& reply) {
        return placesOf(findingsOf(projectOf(messages, model + "\n\n\n###[SEQUENCE TABLE]\n" +
                                                           "SeqName\u00FFTalk\u00FF\u00FF\n" +
                                                           "SeqItem\u00FF1\u00FFToEquip\u00FFAsked\n" +
                                                           "SeqItem\u00FF2\u00FF" + reply + "\n")));
    };
    EXPECT_THAT(places("ToHost\u00FFAnswerToHost"), ElementsAre());
    EXPECT_THAT(places("ToEquip\u00FFAnswerToEquip"), ElementsAre("seq.reply.order: Talk: 2"));
}

TEST(SoundVariants, EitherSideHasItsReply) {
    const std::string link = "* Link\nLink: S1 F13 W H<->E\n    L 0.\n";
    const std::string data = "    L 2\n        B 1 COMMACK 0\n        L 0.\n";
    const auto places = [&](const std::string& replies) {
        return placesOf(findingsOf(projectOf(kMessages + link + replies)));
    };
    EXPECT_THAT(places("* Both\nLinked: S1 F14 H<->E\n" + data), ElementsAre());
    EXPECT_THAT(places("* Host\nLinked: S1 F14 H->E\n" + data + "* Equipment\nLinkedE: S1 F14 H<-E\n" + data),
                ElementsAre());
}

TEST(MissingReplies, SayWhichSideHasNone) {
    const Findings findings =
        findingsOf(projectOf("* Ask\nAsk: S64 F1 W H<->E.\n* Answer\nAnswer: S64 F2 H<-E.\n"));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].text, "The reply S64F2 from the host to the equipment is not defined");
}

TEST(TmdNames, SayWhatTheFileLeavesOut) {
    const std::string project =
        replaceAll(soundProject(), "## [TR MESSAGE] Good\n", "## [TR MESSAGE] 2Good\n");
    const Findings findings = findingsOf(replaceAll(project, "\u00FFGood\n", "\u00FF2Good\n"));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].text,
              "\"2Good\" is no name that a TMD file can hold, so that it leaves out it and the "
              "3 TR messages after it");
}

} // namespace
} // namespace zb::test
