#include "script_fixture.h"

#include <filesystem>
#include <fstream>

namespace zb {
namespace {

TEST(ScriptRunner, ReplacesVariables) {
    expectPasses("start \"${DIR}/x ${DIR}\"\nexpect app ProjectName \"/scripts/x /scripts\"\n"
                 "expect app Folder ${APP}\nexpectfolder ${WORK}\nexpectfolder ${APP}\n");
    expectFails("start\nstart ${NO_SUCH_VARIABLE}\n",
                "2: expected the environment variable NO_SUCH_VARIABLE, found none of that name");
    expectPasses("start ${DIR\nexpect app ProjectName ${DIR\n");
}

TEST(ScriptRunner, RemovesItsWorkFolder) {
    const ScriptOutcome outcome =
        runScript("start ${WORK}\nmkdir ${WORK}/a/b\nwritefile ${WORK}/a/b/c\n  x\nend\nshow app\n");
    ASSERT_TRUE(outcome.passed) << outcome.err;
    const auto from = outcome.out.find("\"ProjectName\":\"") + 15;
    const std::string folder = outcome.out.substr(from, outcome.out.find('"', from) - from);
    EXPECT_TRUE(folder.starts_with("/")) << folder;
    EXPECT_FALSE(std::filesystem::exists(folder)) << folder;
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(folder).parent_path())) << folder;
}

TEST(ScriptRunner, StartsEachScriptFresh) {
    expectPasses("setting SRCGen 73\nstart\ntype frmTest.txtName a\n");
    expectPasses("expectsetting SRCGen \"\"\nexpect frmTest.txtName text \"\"\n");
}

TEST(ScriptRunner, FailsOnUnknownCommandsAndWrongCounts) {
    expectFails("start\njump\n", "2: expected a command, found jump");
    expectFails("start a b\n", "1: expected 0 to 1 words after start, found 2");
    expectFails("click\n", "1: expected 1 words after click, found 0");
    expectFails("end\n", "1: expected a command, found end");
}

TEST(ScriptRunner, PrintsNoControlCharacters) {
    expectFails("\x1B[2J\n", "1: expected a command, found ?[2J");
    EXPECT_EQ(runScript("\xFF\xFE\n").err, "test.zbs:1: expected text in UTF-8, found other bytes\n");
}

TEST(ScriptRunner, CarriesOutWhatIsAboveABrokenLine) {
    const ScriptOutcome outcome = runScript("start\nclick frmTest.cmdTell\ntype \"\n");
    EXPECT_FALSE(outcome.passed);
    EXPECT_NE(outcome.out.find("Told you"), std::string::npos);
    EXPECT_EQ(outcome.err, "test.zbs:3: expected a JSON string, found \"\n");
}

TEST(ScriptRunner, ReportsFilesThatCannotBeRead) {
    std::ostringstream out;
    std::ostringstream err;
    ScriptRunner runner({}, out, err);
    EXPECT_EQ(runner.run("/no/such.zbs"), ScriptRunner::Outcome::Unreadable);
    EXPECT_EQ(err.str(), "/no/such.zbs: cannot be read: No such file or directory\n");
}

} // namespace
} // namespace zb
