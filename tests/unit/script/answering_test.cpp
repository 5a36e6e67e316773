#include "script_fixture.h"

namespace zb {
namespace {

TEST(Answering, AnswersBoxesInTheOrderSaidAndReportsThem) {
    const ScriptOutcome outcome =
        runScript("start\nanswer Yes\nanswer Cancel\nclick frmTest.cmdAsk\nclick frmTest.cmdAsk\n"
                  "expect frmTest.lblLog text \"yes cancel\"\nclick frmTest.cmdTell\n");
    EXPECT_TRUE(outcome.passed) << outcome.err;
    const std::string ask = R"({"box":"Save \"it\"?\r\nNow","title":"Question","icon":"question",)"
                            R"("buttons":["Yes","No","Cancel"],"answer":")";
    EXPECT_EQ(outcome.out, ask + "Yes\"}\n" + ask + "Cancel\"}\n" +
                               R"({"box":"Told you, twice","title":"Zeltobench","icon":"critical",)"
                               R"("buttons":["OK"],"answer":"OK"})"
                               "\n");
}

TEST(Answering, PicksFiles) {
    const ScriptOutcome outcome =
        runScript("start\npick /a/b.zbp\npick \"\"\nclick frmTest.cmdPick\n"
                  "click frmTest.cmdPick\nexpect frmTest.lblLog text \"/a/b.zbp \"\n"
                  "expectdialog \"Open Project\"\n"
                  "expectdialog \"Open Project\" \"Project File(*.zbp)|*.zbp\" zbp somewhere\n");
    EXPECT_TRUE(outcome.passed) << outcome.err;
    const std::string dialog =
        R"({"dialog":"Open Project","filter":"Project File(*.zbp)|*.zbp","extension":"zbp",)"
        R"("folder":"somewhere","answer":")";
    EXPECT_EQ(outcome.out, dialog + "/a/b.zbp\"}\n" + dialog + "\"}\n");
}

TEST(Answering, FailsOnQuestionsThatNobodyForesaw) {
    expectFails(
        "start\nclick frmTest.cmdAsk\n",
        "2: expected an answer said beforehand, found the box \"Save \\\"it\\\"?\\r\\nNow\" with the buttons "
        "Yes,No,Cancel");
    expectFails("start\nclick frmTest.cmdPick\n",
                "2: expected a file picked beforehand, found the file dialog \"Open Project\"");
    expectFails("start\nclick frmTest.cmdDialog\n",
                "2: expected \"during frmDialog\" said beforehand, found frmDialog shown modally");
    expectFails("start\nanswer OK\n", "2: expected Yes, No or Cancel, found OK");
}

TEST(Answering, FailsOnWhatWasSaidAndNotUsed) {
    expectFails("start\npick x\nanswer Yes\n",
                "2: expected \"pick x\" to be used before the script ends, found nothing that asked for it");
    expectFails("answer No\nexpectnobox\n",
                "2: expected all that was said to be used, found \"answer No\" of line 1");
    expectFails("during frmDialog\nend\n", "1: expected \"during frmDialog\" to be used before the script "
                                           "ends, found nothing that asked for it");
}

TEST(Answering, WantsTheDialogHiddenAtTheEndOfItsBlock) {
    expectFails("start\nduring frmDialog\n  type frmDialog.txtValue 1\nend\nclick frmTest.cmdDialog\n",
                "4: expected frmDialog to be hidden at the end of its block, found it is visible");
    expectFails(
        "start\nduring frmDialog\n  click frmDialog.cmdOK\n  expectnobox\nend\nclick frmTest.cmdDialog\n",
        "4: expected no command after the hiding of frmDialog, found expectnobox");
}

TEST(Answering, TakesBlocksForTheSameDialogInTurn) {
    expectPasses(
        "start\nduring frmDialog\n  paste frmDialog.txtValue 1\n  click frmDialog.cmdOK\nend\n"
        "during frmDialog\n  key frmDialog.txtValue 27\nend\n"
        "click frmTest.cmdDialog\nclick frmTest.cmdDialog\nexpect frmTest.lblLog text \"value:1 value:\"\n"
        "expectnobox\n");
}

TEST(Answering, LooksAtBoxesInTheirOrder) {
    expectPasses("start\nanswer No\nclick frmTest.cmdTell\nclick frmTest.cmdAsk\n"
                 "expectbox \"Told you, twice\" Zeltobench critical OK\n"
                 "expectbox \"Save...Now\" Q...n question Yes,No,Cancel\nexpectnobox\n");
    expectFails("start\nclick frmTest.cmdTell\nexpectbox Other\n",
                "3: expected a box \"Other\", found \"Told you, twice\" \"Zeltobench\" critical OK");
    expectFails(
        "start\nclick frmTest.cmdTell\nexpectbox \"...\" \"...\" none\n",
        "3: expected a box \"...\" \"...\" none, found \"Told you, twice\" \"Zeltobench\" critical OK");
    expectFails("start\nclick frmTest.cmdTell\nexpectnobox\n",
                "3: expected no box, found \"Told you, twice\" \"Zeltobench\" critical OK");
    expectFails("expectbox a\n", "1: expected a box \"a\", found no box that was not looked at yet");
    expectFails("expectdialog a\n",
                "1: expected a file dialog \"a\", found no file dialog that was not looked at yet");
    expectFails(
        "start\npick x\nclick frmTest.cmdPick\nexpectdialog \"Open Project\" no\n",
        "4: expected a file dialog with \"no\", found \"Project File(*.zbp)|*.zbp\" in \"Open Project\"");
}

TEST(Answering, FailsAlsoWhereTheProgramKeepsFaultsToItself) {
    expectFails("start\nclick frmTest.cmdHush\n",
                "2: expected an answer said beforehand, found the box \"Save \\\"it\\\"?\\r\\nNow\" with the "
                "buttons Yes,No,Cancel");
}

TEST(Answering, SurvivesFaultsOfTheProgram) {
    expectFails("start\nclick frmTest.cmdThrow\n",
                "2: expected the program to carry on, found a fault in it: out of paper");
    const ScriptOutcome outcome = runScript("start\nclick frmTest.cmdLoop\n");
    EXPECT_FALSE(outcome.passed);
    EXPECT_EQ(outcome.err,
              "test.zbs:2: expected at most 2000 boxes and dialogs after one command, found more of "
              "them\n");
}

} // namespace
} // namespace zb
