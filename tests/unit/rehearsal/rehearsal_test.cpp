#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_files.h"
#include "rehearsal/rehearsal.h"
#include "unit/rehearsal/recorded.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace zb::test {
namespace {

/// A host that receives event reports and sends commands.
constexpr const char* kProject = R"zbp(
###[PROJECT INFORMATION]
ProjectType=1
## [EDIT SMD]
* Event with a lot
LotEvent: S6 F11 W H<-E
    L 3
        U4 1 CEID 4001 [K]
        A 16V LOT ''
        L 10V WAFERCOUNT
            L 2
                U1 1 SLOT 1
                F4 2V DEPTH 1.5.
* Event without data
PlainEvent: S6 F11 W H<-E
    L 3
        U4 1 CEID 1
        X 5V ANYTHING ''
        L 0.
* Reply
EventAck: S6 F12 H->E
    B 1 ACKC6 0.
* Command
Start: S2 F41 W H->E
    L 2
        A 5 RCMD 'START'
        L 0.
* Command reply
StartAck: S2 F42 H<-E
    L 2
        B 1 HCACK 0
        L 2V PARAMETERS
            A 8V CPNAME ''.
###[TRANSACTION MODEL] 1
## [TR MESSAGE] AnyLot
  SECSMessage LotEvent
  Report True
  Direction 1
EndTRMessage
## [TR MESSAGE] SecondSlot
  SECSMessage LotEvent
  Condition (({LOT} == 'L1') and ({SLOT[2]} == 2))
  Report True
  Direction 1
  TRItem LOT
    Type STRING
    Value LOT
  EndTRItem
  TRItem PORT
    Type NUMERIC
    Value SLOT[7]
    ABSValue 9
  EndTRItem
  TRItem KIND
    Type STRING
    Value LOT
    StatementText if ({SLOT[1]} != 1):
    StatementText  KIND='odd'
    StatementText else:
    StatementText  KIND='even'
    Element 1 Condition
    Element 2 Statement Type="if" Condition="({SLOT[1]} != 1)" "odd"
    Element 2 Statement Type="else" Condition="NONE" "even"
  EndTRItem
EndTRMessage
## [TR MESSAGE] Acknowledge
  SECSMessage EventAck
  Report False
  Direction 2
EndTRMessage
## [TR MESSAGE] StartLot
  SECSMessage Start
  Report False
  Direction 2
EndTRMessage
## [TR MESSAGE] Started
  SECSMessage StartAck
  Condition ({HCACK} == '0')
  Report False
  Direction 1
EndTRMessage



###[SEQUENCE TABLE]
SeqName%Work%%
SeqItem%1%ToEquip%StartLot
SeqItem%2%ToHost%Started
SeqItem%3%ToHost%SecondSlot
SeqItem%4%ToEquip%Acknowledge
)zbp";

Project project() {
    const TemporaryFolder folder;
    const std::string path = (folder / "Host.zbp").string();
    std::string text = replaceAll(replaceAll(kProject, "%", "\u00FF"), "\n", "\r\n");
    std::ofstream(path, std::ios::binary) << encodeUtf16(text);
    auto file = readProjectFile(path);
    EXPECT_TRUE(file && file->fault.empty());
    return std::move(file.value().project);
}

/// "LotEvent SecondSlot Work 3 [LOT=L1] (structure: text)" for each message.
std::vector<std::string> rehearse(const Project& project, const std::string& log) {
    rehearsal::Rehearsal rehearsal(project, CodePage(1252));
    const auto recording = rehearsal::openLogText(log, {std::nullopt, std::nullopt, Side::Host});
    rehearsal::RecordedMessage message;
    while (recording->next(message))
        rehearsal.add(std::move(message));
    rehearsal.finish();
    std::vector<std::string> lines;
    while (const auto verdict = rehearsal.take()) {
        const auto& result = verdict->interpretation;
        std::string line(result.definition ? result.definition->getName() : "-");
        line += result.transaction ? " " + result.transaction->Name() : " -";
        if (verdict->sequence)
            line += " " + verdict->sequence->name + " " + std::to_string(verdict->sequence->step);
        for (const auto& item : result.items)
            line += " [" + item.name + (item.isNumber ? ":" : "=") + (item.isPresent ? item.text : "?") + "]";
        for (const auto& finding : verdict->findings)
            line.append(" (").append(finding.id).append(": ").append(finding.text).append(")");
        lines.push_back(line);
    }
    return lines;
}

constexpr const char* kStart = "10:00:00 SEND [0x00000001] S2F41 W <L <A 'START'> <L>>.\n";
constexpr const char* kStarted = "10:00:01 RECV [0x00000001] S2F42 <L <B 0> <L>>.\n";
constexpr const char* kLot =
    "10:00:02 RECV [0x00000002] S6F11 W <L <U4 4001> <A 'L1'> <L <L <U1 1> <F4 1.5>> <L <U1 2> <F4>>>>.\n";
constexpr const char* kAck = "10:00:03 SEND [0x00000002] S6F12 <B 0>.\n";

TEST(Rehearsal, AModelledExchangeHasNoFindings) {
    EXPECT_THAT(rehearse(project(), std::string(kStart) + kStarted + kLot + kAck),
                ElementsAre("Start StartLot Work 1", "StartAck Started Work 2",
                            "LotEvent SecondSlot Work 3 [LOT=L1] [PORT:9] [KIND=even]",
                            "EventAck Acknowledge Work 4"));
}

TEST(Rehearsal, TheDefaultAppliesAfterAllConditions) {
    const auto lines =
        rehearse(project(), "RECV [0x1] S6F11 W <L <U4 4001> <A 'L2'> <L>>.\nSEND [0x1] S6F12 <B 0>.\n");
    EXPECT_EQ(lines.at(0), "LotEvent AnyLot");
}

TEST(Rehearsal, KeyItemsChooseAmongDefinitionsAndTheMostKeysWin) {
    const auto lines = rehearse(project(), "RECV [0x1] S6F11 <L <U4 7> <L> <L>>.\n");
    EXPECT_EQ(lines.at(0), "PlainEvent - (wait-bit: the W-bit is not set, the definition has one)");
}

TEST(Rehearsal, TheNearestDefinitionIsNamedWithItsDifferences) {
    const auto lines = rehearse(
        project(), "RECV [0x1] S6F11 W <L <U4 4001> <A 'a text of more than 16'> <L <L <U1 1> <I1 1>>>>.\n"
                   "SEND [0x1] S6F12 <B 0 0>.\n");
    EXPECT_THAT(
        lines,
        ElementsAre(
            "- - (structure: no definition fits; PlainEvent is the nearest: 1/3: expected a list of 0 items, found 1)",
            "- - (structure: no definition fits; EventAck is the nearest: 1: expected 1 values, found 2)"));
}

TEST(Rehearsal, AKeyThatDiffersIsAFindingOfItsOwn) {
    const auto lines =
        rehearse(project(),
                 "RECV [0x1] S6F11 W <L <U4 4002> <A 'L2'> <L <L <U1 1> <F4>>>>.\nSEND [0x1] S6F12 <B 0>.\n");
    EXPECT_EQ(
        lines.at(0),
        "- - (key-item: no definition fits; LotEvent is the nearest: 1/1: the key item CEID is 4002, expected 4001)");
}

TEST(Rehearsal, WhatIsNotModelledIsReported) {
    EXPECT_THAT(
        rehearse(project(), "RECV [0x1] S9F9 <B 1>.\nRECV [0x2] S2F41 W <L <A 'START'> <L>>.\n"
                            "10:00:00 SEND [0x3] S2F41 W <L <A 'START'> <L>>.\n"
                            "10:00:50 RECV [0x3] S2F42 <L <B 1> <L>>.\n"
                            "RECV [0x8] S2F42 <L <B 0> <L>>.\n"),
        ElementsAre("- - (unknown-message: S9F9 is not defined)",
                    "- - (wrong-direction: S2F41 is defined for the other direction only) "
                    "(missing-reply: no reply to S2F41 up to the end of the recording)",
                    "Start StartLot Work 1",
                    "StartAck - (no-transaction: no condition of the TR messages of StartAck applies) "
                    "(late-reply: the reply to S2F41 came after 50.0 s; T3 is 45.0 s)",
                    "StartAck Started Work 2 (unexpected-reply: no primary waits for S2F42)"));
}

TEST(Rehearsal, AReplyIsMatchedByItsSystemBytes) {
    const auto lines = rehearse(
        project(),
        "SEND [0x3] S2F41 W <L <A 'START'> <L>>.\nRECV [0x3] S6F12 <B 0>.\n"
        "10:00:00 SEND [0x4] S2F41 W <L <A 'START'> <L>>.\n10:02:00 SEND [0x5] S2F41 W <L <A 'START'> <L>>.\n");
    EXPECT_THAT(
        lines,
        ElementsAre(
            "Start StartLot Work 1",
            "- - (wrong-direction: S6F12 is defined for the other direction only) (wrong-reply: S6F12 replies to S2F41)",
            "Start StartLot Work 1 (sequence: Work begins again after step 1 of 4) (missing-reply: no reply to S2F41 within 45.0 s)",
            "Start StartLot Work 1 (sequence: Work begins again after step 1 of 4) (missing-reply: no reply to S2F41 up to the end of the recording)"));
}

TEST(Rehearsal, AMessageOutOfOrderIsReportedAndTheSequenceGoesOn) {
    EXPECT_THAT(
        rehearse(project(),
                 std::string(kStart) + "10:00:01 RECV [0x00000001] S2F42 <L <B 1> <L>>.\n" + kLot + kAck),
        ElementsAre("Start StartLot Work 1",
                    "StartAck - (no-transaction: no condition of the TR messages of StartAck applies)",
                    "LotEvent SecondSlot Work 3 [LOT=L1] [PORT:9] [KIND=even] "
                    "(sequence: SecondSlot comes out of order: Work expects Started as step 2)",
                    "EventAck Acknowledge Work 4"));
}

TEST(Rehearsal, AMessageOfASequenceThatHasNotBegunIsNoFault) {
    EXPECT_EQ(rehearse(project(), std::string(kLot) + kAck).at(0),
              "LotEvent SecondSlot [LOT=L1] [PORT:9] [KIND=even]");
}

TEST(Rehearsal, AChangedConditionChangesTheVerdict) {
    Project changed = project();
    EXPECT_EQ(rehearse(changed, std::string(kLot) + kAck).at(0).substr(0, 19), "LotEvent SecondSlot");
    changed.model->getTRMessage("SecondSlot")->setCondition("({LOT} == 'L9')");
    EXPECT_EQ(rehearse(changed, std::string(kLot) + kAck).at(0), "LotEvent AnyLot");
}

TEST(Rehearsal, EveryConditionOfTheChainHasItsValue) {
    const Project host = project();
    const rehearsal::Interpreter interpreter(host, CodePage(1252));
    const auto recording = rehearsal::openLogText(kLot, {});
    rehearsal::RecordedMessage message;
    ASSERT_TRUE(recording->next(message));
    const auto result = interpreter.interpret(message);
    ASSERT_EQ(result.conditions.size(), 2U);
    EXPECT_TRUE(result.conditions[0].holds);
    ASSERT_EQ(result.conditions[0].comparisons.size(), 2U);
    EXPECT_EQ(result.conditions[0].comparisons[0].value, "L1");
    EXPECT_EQ(result.conditions[0].comparisons[1].value, "2");
    EXPECT_TRUE(result.conditions[1].isDefault);
}

/// Whether the condition holds for the message with a lot and two slots.
bool holds(const std::string& condition) {
    Project host = project();
    host.model->getTRMessage("SecondSlot")->setCondition(condition);
    return rehearse(host, kLot).at(0).starts_with("LotEvent SecondSlot");
}

TEST(Rehearsal, ValuesAreComparedByTheirFormat) {
    for (const char* condition :
         {"({CEID} == 4001)", "({CEID} == 4001.0)", "({CEID} != 4002)", "({LOT} == 'L1')", "({LOT} != 'l1')",
          "({LOT} != 'L1 ')", "({SLOT} == 1)", "({SLOT[2]} == 2)", "({SLOT[1]} == 1)", "({DEPTH[1]} == 1.5)",
          "({CEID[3]} == 4001)", "({SLOT[3]} != 1)", "({SLOT[0]} != 1)", "({NOSUCH} != 1)",
          "({DEPTH[2]} != 0)", "(({LOT} == 'x') or ({CEID} == 4001))"})
        EXPECT_TRUE(holds(condition)) << condition;
    for (const char* condition :
         {"({CEID} == 4002)", "({LOT} == 'L1 ')", "({SLOT[3]} == 1)", "({SLOT[1.5]} == 1)", "({NOSUCH} == 1)",
          "({DEPTH[2]} == 0)", "(({LOT} == 'x') and ({CEID} == 4001))", "({LOT} == 'L1'"})
        EXPECT_FALSE(holds(condition)) << condition;
}

} // namespace
} // namespace zb::test
