// What a user may do wrong in a real project, each in a copy of the etcher: it is reported where it is, once,
// and nothing else is but what the fault makes wrong elsewhere.
#include "platform/text.h"
#include "platform/text_file.h"
#include "unit/lint/checked_project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace zb::test {
namespace {

/// One change of the project, and what it has to give.
struct Plant {
    const char* from;
    const char* to;
    std::vector<std::string> findings;
};

void PrintTo(const Plant& plant, std::ostream* out) {
    *out << (plant.findings.empty() ? "nothing" : plant.findings.front());
}

std::string etcher() {
    const auto bytes = readBytes(ZB_SOURCE_FOLDER "/examples/etcher/Etcher.zbp");
    return replaceAll(decodeProject(bytes.value()).text, "\r\n", "\n");
}

class PlantedInTheEtcher : public testing::TestWithParam<Plant> {};

TEST_P(PlantedInTheEtcher, IsReportedOnceWhereItIs) {
    const auto& [from, to, findings] = GetParam();
    const std::string project = etcher();
    const std::size_t at = project.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    ASSERT_EQ(project.find(from, at + 1), std::string::npos) << from << " is there twice";
    EXPECT_THAT(placesOf(findingsOf(replaceAll(project, from, to))), testing::ElementsAreArray(findings));
}

const Plant kPlants[] = {
    {"* The host reads equipment",
     "* x\n"
     "Odd3: S30 F1 H->E.\n"
     "* The host reads equipment",
     {"std.message.unknown: Odd3"}},
    {"TerminalDisplayLines: S10 F5 W H->E",
     "TerminalDisplayLines: S10 F5 W H<->E",
     {"std.direction: TerminalDisplayLines"}},
    {"RecipeListRequest: S7 F19 W H->E",
     "RecipeListRequest: S7 F19 H->E",
     {"std.wait.missing: RecipeListRequest"}},
    {"TransactionTimeout: S9 F9 H<-E",
     "TransactionTimeout: S9 F9 W H<-E",
     {"std.wait.forbidden: TransactionTimeout"}},
    {"* 0 accepted, other values refuse the recipe\n"
     "FormattedRecipeAck: S7 F24 H->E\n"
     "    B 1 ACKC7 0.\n",
     "",
     {"std.reply.missing: FormattedRecipeSend"}},
    {"###[TRANSACTION MODEL] 1",
     "* own\n"
     "Own: S100 F1 W H->E.\n"
     "###[TRANSACTION MODEL] 1",
     {"std.reply.missing: Own"}},
    {"###[TRANSACTION MODEL] 1",
     "* own\n"
     "Own: S100 F1 W H->E.\n"
     "* own\n"
     "OwnR: S100 F2 H->E.\n"
     "###[TRANSACTION MODEL] 1",
     {"std.reply.direction: OwnR"}},
    {"###[TRANSACTION MODEL] 1",
     "* own\n"
     "Own: S1 F65 W H->E.\n"
     "* own\n"
     "OwnR: S1 F66 H<-E.\n"
     "###[TRANSACTION MODEL] 1",
     {}},
    {"OnLineDataHost: S1 F2 H->E\n"
     "    L 0.",
     "OnLineDataHost: S1 F2 H->E\n"
     "    L 1\n"
     "        A 3 MDLN 'abc'.",
     {"std.structure: OnLineDataHost: 1"}},
    {"    L 2\n"
     "        B 1 TID 0\n"
     "        A 120V TEXT 'Hold lot L260321A07 after PM2'.",
     "    L 1\n"
     "        B 1 TID 0.",
     {"std.structure: TerminalDisplay: 1"}},
    {"            L 2\n"
     "                U4 1 RPTID 501\n"
     "                L 40V VIDCOUNT\n"
     "                    U4 1 VID 1001.",
     "            U4 1 RPTID 501.",
     {"std.structure: DefineReport: 1/2/1", "tr.item.unknown: ReportOfPressure"}},
    {"        A 40V PPID 'OXIDE_MAIN_ETCH_A12' [K]\n"
     "        B 4096V PPBODY 90 69 1 0.",
     "        B 4096V PPBODY 90 69 1 0\n"
     "        A 40V PPID 'OXIDE_MAIN_ETCH_A12' [K].",
     {"std.item.length: ProcessProgramSend: 1/1"}},
    {"    L 2\n"
     "        B 1 COMMACK 0\n"
     "        L 2\n"
     "            A 6 MDLN 'ZE3000'\n"
     "            A 6 SOFTREV 'V04R21'.",
     "    L 2\n"
     "        B 1 COMMACK 0\n"
     "        A 6 MDLN 'ZE3000'.",
     {"std.structure: EstablishCommunicationsAck: 1/2", "tr.item.unknown: AcceptLink",
      "tr.block.changed: AcceptLink: 1/2"}},
    {"    B 1 ACKC5 0.", "    A 1 ACKC5 '0'.", {"std.item.format: AlarmReportAck: 1"}},
    {"        A 6 MDLN 'ZE3000'\n"
     "        A 6 SOFTREV 'V04R21'.\n"
     "* The host is alive",
     "        A 21V MDLN 'ZE3000'\n"
     "        A 6 SOFTREV 'V04R21'.\n"
     "* The host is alive",
     {"std.item.length: OnLineData: 1/1"}},
    {"B 1 EAC 0.\n"
     "* Either",
     "B 1 EAC 9.\n"
     "* Either",
     {"std.item.code: NewEquipmentConstantAck: 1"}},
    {"B 1 HCACK 4\n"
     "        L 10V",
     "B 1 HCACK 9\n"
     "        L 10V",
     {"std.item.code: HostCommandAck: 1/1"}},
    {"B 1 TIAACK 0", "B 1 TIAACK 7", {"std.item.code: TraceInitializeAck: 1"}},
    {"* Names of all recipes\n",
     "* again\n"
     "RecipeListAgain: S7 F19 W H->E.\n"
     "* Names of all recipes\n",
     {"key.missing: RecipeListAgain"}},
    {"        A 40V PPID 'POLY_GATE_ETCH_B03'.",
     "        A 40V PPDI 'POLY_GATE_ETCH_B03'.",
     {"style.item.name: RecipeListData: 1/1"}},
    {"B 1 HCACK 4\n"
     "        L 10V",
     "B 1 HCAKC 4\n"
     "        L 10V",
     {"style.item.name: HostCommandAck: 1/1", "tr.item.unknown: CommandDone",
      "tr.item.unknown: PortRefused"}},
    {"  Condition ({RCMD} == 'START')", "  Condition ({ALID} == 1)", {"tr.item.unknown: StartLot"}},
    {"  Condition ({RCMD} == 'START')", "  Condition ({RCMD} == 5)", {"tr.condition.kind: StartLot"}},
    {"(({CPVAL3} == 1) or ({CPVAL3} == 2))",
     "(({CPVAL3} == 'one') or ({CPVAL3} == 2))",
     {"tr.condition.kind: SelectLot"}},
    {"({RCMD} == 'START')", "({RCMD[1]} == 'START')", {"tr.item.index: StartLot"}},
    {"({RPTID[1]} == 501)", "({RPTID[1;1]} == 501)", {"tr.item.index: ReportOfPressure"}},
    {"({RPTID[1]} == 501)", "({RPTID} == 501)", {"tr.item.index: ReportOfPressure"}},
    {"## [TR MESSAGE] SelectLotElsewhere\n"
     "  SECSMessage SelectRecipe\n"
     "  Condition NONE",
     "## [TR MESSAGE] SelectLotElsewhere\n"
     "  SECSMessage SelectRecipe\n"
     "  Condition (({RCMD} == 'PP-SELECT') and (({CPVAL3} == 1) or ({CPVAL3} == 2)))",
     {"tr.condition.unreachable: SelectLotElsewhere"}},
    {"## [TR MESSAGE] SelectLotElsewhere\n"
     "  SECSMessage SelectRecipe\n"
     "  Condition NONE",
     "## [TR MESSAGE] SelectLotElsewhere\n"
     "  SECSMessage SelectRecipe\n"
     "  Condition (({RCMD} == 'PP-SELECT') and ({CPVAL3} == 2))",
     {"tr.condition.unreachable: SelectLotElsewhere"}},
    {"({COMMACK} == '0')",
     "(({COMMACK} == '0') and ({COMMACK} == '1'))",
     {"tr.condition.unreachable: LinkAccepted"}},
    {"## [TR MESSAGE] LinkAccepted\n"
     "  SECSMessage EstablishCommunicationsHostAck\n"
     "  Condition ({COMMACK} == '0')\n"
     "  Report True\n"
     "  Direction 2\n"
     "EndTRMessage\n"
     "## [TR MESSAGE] LinkDenied\n"
     "  SECSMessage EstablishCommunicationsHostAck\n",
     "## [TR MESSAGE] LinkAccepted\n"
     "  SECSMessage EstablishCommunicationsHostAck\n"
     "  Report True\n"
     "  Direction 2\n"
     "EndTRMessage\n"
     "## [TR MESSAGE] LinkDenied\n"
     "  SECSMessage EstablishCommunicationsHostAck\n"
     "  Condition ({COMMACK} == '1')\n",
     {"tr.default.first: LinkAccepted"}},
    {"  Condition ({COMMACK} == '0')\n", "", {"tr.default.twice: LinkDenied"}},
    {"SeqItem\u00FF"
     "1\u00FF"
     "ToEquip\u00FF"
     "SelectLot\n"
     "SeqItem\u00FF"
     "2\u00FF"
     "ToHost\u00FF"
     "CommandDone\n",
     "SeqItem\u00FF"
     "1\u00FF"
     "ToHost\u00FF"
     "CommandDone\n"
     "SeqItem\u00FF"
     "2\u00FF"
     "ToEquip\u00FF"
     "SelectLot\n",
     {"seq.reply.order: ProcessLot: 1"}},
    {"SeqItem\u00FF"
     "1\u00FF"
     "ToHost\u00FF"
     "RfAlarm\n",
     "",
     {"seq.reply.order: RfFault: 1"}},
    {"    Item 1 L 3\n"
     "    Item 2 B 1 ALCD 132\n"
     "    Item 2 U4 1 ALID 3011 [K]",
     "    Item 1 L 3\n"
     "    Item 2 B 1 ALCD 132\n"
     "    Item 2 U2 1 ALID 3011 [K]",
     {"tr.block.changed: RfAlarm: 1/2"}},
    {"    Item 2 B 1 HCACK 0\n"
     "    Item 2 L 0 CPCOUNT",
     "    Item 2 B 1 HCACK 0",
     {"tr.block.changed: CommandDone: 1"}},
    {"    StatementText if ({ECID[1]} == 2004):\n"
     "    StatementText  LIMIT=1\n",
     "    StatementText if ({ECID[1]} == 2004):\n",
     {"tr.statement.result: LimitPressure: LIMIT"}},
    {"    StatementText if ({CEED} == TRUE):",
     "    StatementText if:",
     {"tr.statement.condition: WatchEvents: MODE"}},
    {"## [TR MESSAGE] GoOnLine\n"
     "  SECSMessage RequestOnLine\n",
     "## [TR MESSAGE] GoOnLine\n"
     "  SECSMessage RequestOffLine\n",
     {"tr.secs.unknown: GoOnLine"}},
    {"    Value CPVAL2", "    Value CPVAL9", {"tr.item.unknown: SelectLot: LOT"}},
    {"## [TR MESSAGE] StartLot\n",
     "## [TR MESSAGE] Start<Lot\n",
     {"tmd.name: Start<Lot", "seq.message.unknown: ProcessLot: 3"}},
    {"    StatementText elif ({ECID[1]} == 2002):",
     "    StatementText elif ({ECID[1]} == 'a:b'):",
     {"tr.statement.colon: SetConstants: GROUP"}},
    {"    StatementText  if ({CEID[1]} == 4001):\n"
     "    StatementText   MODE='Steps'\n",
     "    StatementText  if ({CEID[1]} == 4001):\n",
     {"tr.statement.result: WatchEvents: MODE"}},
    {"    Item 5 U1 1 SLOT 12", "    Item 5 U1 1 SLOT 99999", {"tr.block.range: StepDone: 1/3/1/2/2"}},
    {"    Item 2 U4 1 CEID 4001 [K]", "    Item 2 U4 1 CEID -1 [K]", {"tr.block.range: StepDone: 1/2"}},
    {"    Item 5 A 16 WAFERID 'L260321A07-12   '",
     "    Item 5 A 16 WAFERID '한국어한국어한국어한국어한국어한국어한국'",
     {"tr.block.length: StepDone: 1/3/1/2/3"}},
    {"    Item 5 U2 2 RFPOWER 1800 450",
     "    Item 5 U2 2 RFPOWER 1800 450 3",
     {"tr.block.length: StepDone: 1/3/2/2/2"}},
    {"SeqName\u00FF"
     "RfFault\u00FF"
     "\u00FF"
     "",
     "SeqName\u00FF"
     "StartUp\u00FF"
     "\u00FF"
     "",
     {"seq.name.twice: StartUp"}},
    {"SeqName\u00FF"
     "RfFault\u00FF"
     "\u00FF"
     "",
     "SeqName\u00FF"
     "RfAlarm\u00FF"
     "\u00FF"
     "",
     {"seq.name.taken: RfAlarm"}},
    {"    Item 2 U4 1 CEID 4010 [K]", "    Item 2 U4 1 CEID 4010", {"tr.block.key: LotDone: 1/2"}},
    {"    L 2\n"
     "        B 1 COMMACK 0\n"
     "        L 0.",
     "    L 3\n"
     "        B 1 COMMACK 0\n"
     "        L 0.",
     {"smd.item.count: EstablishCommunicationsHostAck: 1"}},
    {"        U4 1 TOTSMP 3600\n"
     "        U4 1 REPGSZ 10",
     "        U4 1 TOTSMP 3600\n"
     "        U4 1 TOTSMP 10",
     {"smd.item.twice: TraceInitialize: 1/4"}},
    {"        U4 1 REPGSZ 10", "        U4 1 REPGSZ ten", {"smd.item.value: TraceInitialize: 1/4"}},
    {"I1 1 CHUCKOFFSET -3", "I1 1 CHUCKOFFSET -300", {"smd.value.range: EquipmentConstantData: 1/4"}},
    {"        A 6 DSPER '000001'", "        A 6 DSPER '0000001'", {"smd.value.length: TraceInitialize: 1/2"}},
    {"SeqItem\u00FF"
     "1\u00FF"
     "ToHost\u00FF"
     "RfAlarm\n"
     "SeqItem\u00FF"
     "2\u00FF"
     "ToEquip\u00FF"
     "AlarmTaken\n"
     "SeqItem\u00FF"
     "3\u00FF"
     "ToHost\u00FF"
     "RfAlarmCleared\n"
     "SeqItem\u00FF"
     "4\u00FF"
     "ToEquip\u00FF"
     "AlarmTaken\n",
     "",
     {"seq.empty: RfFault"}},
    {"SeqItem\u00FF"
     "3\u00FF"
     "ToHost\u00FF"
     "RfAlarmCleared",
     "SeqItem\u00FF"
     "3\u00FF"
     "ToHost\u00FF"
     "RfAlarmGone",
     {"seq.message.unknown: RfFault: 3"}},
    {"SeqItem\u00FF"
     "3\u00FF"
     "ToHost\u00FF"
     "RfAlarmCleared",
     "SeqItem\u00FF"
     "3\u00FF"
     "ToEquip\u00FF"
     "RfAlarmCleared",
     {"seq.direction: RfFault: 3"}},
    {"AlarmReport: S5 F1 W H<-E\n"
     "    L 3\n",
     "AlarmReport: S5 F1 W H<->E\n"
     "    L 3\n",
     {"std.direction: AlarmReport"}},
    {"        U4 1 CEID 4010 [K]\n"
     "        L 1\n",
     "        F4 1 CEID 4010 [K]\n"
     "        L 1\n",
     {"std.item.format: LotCompleted: 1/2", "tr.block.changed: LotDone: 1/2"}},
    {"        U4 1 CEID 4010 [K]\n"
     "        L 1\n",
     "        U4 1 CEID 4001 [K]\n"
     "        L 1\n",
     {"key.equal: LotCompleted: 1/2"}},
    {"        U4 1 CEID 4010 [K]\n"
     "        L 1\n",
     "        U4 1 CEID 4010\n"
     "        L 1\n",
     {"key.lost: LotCompleted: 1/2"}},
    {"        L 3\n"
     "            B 1 ALCD 5\n"
     "            U4 1 ALID 3012\n"
     "            A 80V ALTX 'PM1 helium backside pressure low'.",
     "        L 4\n"
     "            B 1 ALCD 5\n"
     "            U4 1 ALID 3012\n"
     "            A 80V ALTX 'PM1 helium backside pressure low'\n"
     "            U1 1 EXTRA 0.",
     {"std.structure: ListAlarmsData: 1/1"}},
    {"EnableEventsAck: S2 F38 H<-E\n"
     "    B 1 ERACK",
     "DefineReportAck: S2 F38 H<-E\n"
     "    B 1 ERACK",
     {"smd.name.twice: DefineReportAck", "tr.secs.unknown: EventsEnabled"}},
    {"B 1 ONLACK 0.\n"
     "* The host reads",
     "B 1 ONLACK 5.\n"
     "* The host reads",
     {"std.item.code: RequestOnLineAck: 1"}},
    {"    L 64V SVCOUNT\n"
     "        X 64V SV ''.",
     "    U4 1 SV 1.",
     {"std.structure: SelectedStatusData: 1"}},
    {"A 16 TIME '2026032108301500'", "A 33V TIME '2026032108301500'", {"std.item.length: DateTimeData: 1"}},
    {"LoopbackData: S2 F26 <NL>", "LoopbackData: S2 F26 W <NL>", {"std.wait.forbidden: LoopbackData"}},
    {"    StatementText  LIMIT=2\n", "", {"tr.statement.result: LimitPressure: LIMIT"}},
    {"    B 1 EAC 0.\n",
     "    B 1 EAC 0\n"
     "        U1 1 SUB 0.\n",
     {"smd.item.children: NewEquipmentConstantAck: 1"}},
    {"RequestOnLine: S1 F17 W",
     "RequestOnLine: S129 F17 W",
     {"smd.stream: RequestOnLine", "seq.reply.order: StartUp: 4"}},
    {"    Value COMMACK\n", "", {"tr.item.source: LinkDenied: REASON"}},
    {"  DataBlock EnableEventsAck: S2 F38 H<-E",
     "  DataBlock EnableEventsAck: S2 F36 H<-E",
     {"tr.block.moved: EventsEnabled"}},
    {"## [TR MESSAGE] AlarmTaken\n"
     "  SECSMessage AlarmReportAck\n",
     "## [TR MESSAGE] AlarmTaken\n",
     {"tr.secs.none: AlarmTaken"}},
    {"    Item 2 B 1 HCACK 3", "    Item 2 B 1 HCACK 9", {"tr.block.code: PortRefused: 1/1"}},
};

INSTANTIATE_TEST_SUITE_P(All, PlantedInTheEtcher, testing::ValuesIn(kPlants));

} // namespace
} // namespace zb::test
