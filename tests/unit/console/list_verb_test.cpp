#include "unit/console/cli.h"

namespace zb {
namespace {

TEST_F(Cli, ListsMessagesInColumns) {
    const Outcome run = runZbc({"list", project_});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "AreYouThere  S1F1  W  H<->E  0  Are you there\n"
                       "OnLineData   S1F2  -  H<-E   3  On line\n");
}

TEST_F(Cli, ListsMessagesAsJson) {
    EXPECT_EQ(runZbc({"list", "--json", project_}).out,
              R"({"name":"AreYouThere","stream":1,"function":1,"wait":true,"reply":false,"nologging":false,)"
              R"("direction":"H<->E","items":0,"description":"Are you there"})"
              "\n"
              R"({"name":"OnLineData","stream":1,"function":2,"wait":false,"reply":false,"nologging":false,)"
              R"("direction":"H<-E","items":3,"description":"On line"})"
              "\n");
}

constexpr const char* kModelled =
    "\r\n###[PROJECT INFORMATION]\r\nProjectType=%\r\n###[TRANSACTION MODEL] 1\r\n"
    "## [TR MESSAGE] LotStarted\r\n  SECSMessage EventReport\r\n  Condition CEID = 100\r\n  Report True\r\n"
    "  Direction 1\r\n  TRItem LOT\r\n    Type STRING\r\n    Value LOTID[1]\r\n"
    "    StatementText IF PORT = 1\r\n    StatementText   LOT = 'A'\r\n  EndTRItem\r\n"
    "  TRItem RESULT\r\n    Type NUMERIC\r\n    ABSValue 0\r\n    StatementText NONE\r\n  EndTRItem\r\n"
    "EndTRMessage\r\n"
    "## [TR MESSAGE] Start\r\n  SECSMessage Command\r\n  Condition NONE\r\n  Direction 2\r\n"
    "  DataBlock Command: S2 F41 W H->E\r\n    Item 1 L 2\r\n    Item 2 A 5 RCMD 'START'\r\n    Item 2 L "
    "0\r\n"
    "EndTRMessage\r\n"
    "## [TR MESSAGE] Alarm\r\n  Direction 1\r\nEndTRMessage\r\n"
    "## [TR MESSAGE] Odd\r\n  Direction 7\r\nEndTRMessage\r\n"
    "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\nSeqName\u00FFMain\u00FF\u00FF\r\n"
    "SeqItem\u00FF1\u00FFToEquip\u00FFStart\r\nSeqItem\u00FF2\u00FFToHost\u00FFLotStarted\r\n"
    "SeqName\u00FFEmpty\u00FF\u00FF\r\n";

std::string modelled(char projectType) {
    std::string text = kModelled;
    text[text.find('%')] = projectType;
    return encodeUtf16(text);
}

TEST_F(Cli, ListsTransactions) {
    const Outcome run = runZbc({"list", "--transactions", write("Model.zbp", modelled('1'))});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Received messages\n"
                       "  LotStarted  EventReport  report  CEID = 100\n"
                       "    LOT     STRING   LOTID[1]  -\n"
                       "        IF PORT = 1\n"
                       "          LOT = 'A'\n"
                       "    RESULT  NUMERIC  -         0\n"
                       "  Alarm       -            -       -\n"
                       "Sent messages\n"
                       "  Start  Command  -  -\n"
                       "    L 2\n"
                       "      A 5 RCMD 'START'\n"
                       "      L 0\n"
                       "Messages of no direction\n"
                       "  Odd  -  -  -\n"
                       "Sequences\n"
                       "  Main\n"
                       "    1  ToEquip  Start\n"
                       "    2  ToHost  LotStarted\n"
                       "  Empty\n");
}

TEST_F(Cli, ListsTheTransactionsOfTheOtherSideTheOtherWayRound) {
    const Outcome run = runZbc({"list", "--transactions", write("Model.zbp", modelled('2'))});
    EXPECT_EQ(run.out.substr(0, run.out.find("Messages of no")),
              "Received messages\n"
              "  Start  Command  -  -\n"
              "    L 2\n"
              "      A 5 RCMD 'START'\n"
              "      L 0\n"
              "Sent messages\n"
              "  LotStarted  EventReport  report  CEID = 100\n"
              "    LOT     STRING   LOTID[1]  -\n"
              "        IF PORT = 1\n"
              "          LOT = 'A'\n"
              "    RESULT  NUMERIC  -         0\n"
              "  Alarm       -            -       -\n");
}

TEST_F(Cli, ListsTransactionsAsJson) {
    const Outcome run = runZbc({"list", "--transactions", "--json", write("Model.zbp", modelled('1'))});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.out,
        R"({"kind":"received","name":"LotStarted","secsmessage":"EventReport","direction":1,"report":true,)"
        R"("condition":"CEID = 100","items":[{"name":"LOT","type":"STRING","value":"LOTID[1]",)"
        R"("absvalue":"","statements":["IF PORT = 1","  LOT = 'A'"]},{"name":"RESULT","type":"NUMERIC",)"
        R"("value":"","absvalue":"0","statements":[]}],"data":[]})"
        "\n"
        R"({"kind":"sent","name":"Start","secsmessage":"Command","direction":2,"report":false,)"
        R"("condition":"NONE","items":[],"data":["1 L 2","2 A 5 RCMD 'START'","2 L 0"]})"
        "\n"
        R"({"kind":"received","name":"Alarm","secsmessage":"","direction":1,"report":false,)"
        R"("condition":"","items":[],"data":[]})"
        "\n"
        R"({"kind":"other","name":"Odd","secsmessage":"","direction":7,"report":false,)"
        R"("condition":"","items":[],"data":[]})"
        "\n"
        R"({"kind":"sequence","name":"Main","messages":[{"direction":"ToEquip","name":"Start"},)"
        R"({"direction":"ToHost","name":"LotStarted"}]})"
        "\n"
        R"({"kind":"sequence","name":"Empty","messages":[]})"
        "\n");
}

TEST_F(Cli, ListsNoTransactionsWhereThereAreNone) {
    const Outcome run = runZbc({"list", "--transactions", project_});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.err, "");
    expectFault({"list", "--transactions", "semi"}, 2,
                "zbc: --transactions needs a project (see zbc --help)\n");
    EXPECT_EQ(runZbc({"list", "--transactions", path("none.zbp")}).status, 3);
}

TEST_F(Cli, ListsTransactionsOfADamagedTableUpToTheDamage) {
    const std::string file =
        write("Model.zbp", encodeUtf16("###[PROJECT INFORMATION]\r\nProjectType=1\r\n###[SEQUENCE TABLE]\r\n"
                                       "SeqItem\u00FF1\u00FF\u00FFLost\r\nSeqName\u00FFA\u00FF\u00FF\r\n"
                                       "SeqItem\u00FF1\r\nSeqName\u00FFB\u00FF\u00FF\r\n"));
    EXPECT_EQ(runZbc({"list", "--transactions", file}).out, "Sequences\n    1  -  Lost\n  A\n    1  -  -\n");
}

} // namespace
} // namespace zb
