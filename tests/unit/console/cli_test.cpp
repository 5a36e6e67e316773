#include "platform/file_layer.h"
#include "platform/user_folders.h"
#include "project/project_history.h"
#include "support/ordinary_user.h"
#include "unit/console/cli.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb {
namespace {

namespace fs = std::filesystem;

TEST_F(Cli, FindsNothingInASoundProject) {
    const Outcome run = runZbc({"check", project_});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.err, "");
}

TEST_F(Cli, ReportsEveryFaultOnALine) {
    const std::string file = faulty();
    const std::string before = *readBytes(file);
    expectFault({"check", file}, 1,
                file + ": Bad: You must insert a positive number less than 128 in the stream\n" + file +
                    ": Worse: 1/1: Bad item type\n");
    EXPECT_EQ(*readBytes(file), before);
}

TEST_F(Cli, ReportsFaultsAsJson) {
    const Outcome run = runZbc({"check", faulty(), "--json"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    EXPECT_NE(run.out.find(R"("message":"Worse","item":"1/1","severity":"error","text":"Bad item type"})"
                           "\n"),
              std::string::npos)
        << run.out;
}

TEST_F(Cli, ReportsWarningsWhenAskedFor) {
    const std::string file =
        write("Odd.zbp", encodeUtf16("## [EDIT SMD]\r\n* a\r\nOdd: S1 F1\r\n    L 1V 5.\r\n"));
    const std::string faults = file + ": Odd: 1: Insert item name\n";
    expectFault({"check", file}, 1, faults);
    expectFault({"check", file, "--warnings"}, 1,
                file + ": Odd: warning: The head has no direction\n" + faults + file +
                    ": Odd: 1: warning: A list has no value\n");
}

TEST_F(Cli, ReportsADamagedNameOnItsLine) {
    const std::string file =
        write("Odd.zbp", encodeUtf16("## [EDIT SMD]  \r\n* a\r\nO\rd\x1B: S129 F1 H->E.\r\n"));
    expectFault({"check", file}, 1,
                file + ": O d?: You must insert a positive number less than 128 in the stream\n");
    EXPECT_EQ(runZbc({"list", file}).out, "O d?  S129F1  -  H->E  0  a\n");
}

TEST_F(Cli, ScriptsKeepTheVersionThatTheyReplace) {
    setenv("ZELTOBENCH_STATE", path("state").c_str(), 1);
    const std::string before = *readBytes(project_);
    const std::string script =
        write("save.zbs", "start " + project_ + "\nclick frmMain.mnuSave\nexpectnobox\n" + "copy " +
                              project_ + " ${WORK}/Scratch/Scratch.zbp\n" +
                              "pick ${WORK}/Scratch/Scratch.zbp\nanswer No\nclick frmMain.mnuOpen\n" +
                              "click frmMain.mnuSave\nexpectbox ...\n");
    const Outcome run = runZbc({"script", script});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    SystemFileLayer files;
    const auto kept = ProjectHistory(files, path("state")).versions(project_);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(*readBytes(kept.front().path), before);
    // What goes with the script has no versions.
    EXPECT_EQ(std::distance(fs::directory_iterator(path("state/history")), fs::directory_iterator()), 1);
    unsetenv("ZELTOBENCH_STATE");
}

TEST_F(Cli, AddKeepsTheVersionThatItReplaces) {
    setenv("ZELTOBENCH_STATE", path("state").c_str(), 1);
    const std::string before = *readBytes(project_);
    EXPECT_EQ(runZbc({"add", project_, "semi", "S10F9"}).status, 0);
    SystemFileLayer files;
    const auto kept = ProjectHistory(files, path("state")).versions(project_);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(*readBytes(kept.front().path), before);
    unsetenv("ZELTOBENCH_STATE");
}

TEST_F(Cli, AddReportsThatNoVersionCanBeKept) {
    setenv("ZELTOBENCH_STATE", write("state", "no folder").c_str(), 1);
    const Outcome run = runZbc({"add", project_, "semi", "S10F9"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err.find(project_ + ": the previous version could not be kept: "), 0U);
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    unsetenv("ZELTOBENCH_STATE");
}

TEST_F(Cli, BuildsNoFileOfNoMessages) {
    const std::string file = write("Empty.zbp", encodeUtf16("## [EDIT SMD]\r\n"));
    const Outcome run = runZbc({"build", file});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, file + ": no messages, so no file is built\n");
    EXPECT_FALSE(fs::exists(path("ZeltoInfo/Empty.smd")));
}

TEST_F(Cli, BuildsBesideTheProject) {
    const Outcome run = runZbc({"build", project_});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, path("ZeltoInfo/Demo.smd") + ": 2 messages\n");
    EXPECT_NE(readBytes(path("ZeltoInfo/Demo.smd"))->find("<A 6 MDLN 'ETCHER'>"), std::string::npos);
    EXPECT_FALSE(fs::exists(path("ZeltoInfo/Demo.mdf")));
}

TEST_F(Cli, PrintsPathsAsTheProjectWasNamed) {
    const fs::path before = fs::current_path();
    fs::current_path(folder_.path());
    const Outcome here = runZbc({"build", "Demo.zbp"});
    fs::create_directory("sub");
    fs::current_path("sub");
    const Outcome above = runZbc({"build", "../Demo.zbp"});
    fs::current_path(before);
    EXPECT_EQ(here.out, "ZeltoInfo/Demo.smd: 2 messages\n");
    EXPECT_EQ(above.out, "../ZeltoInfo/Demo.smd: 2 messages\n");
    EXPECT_TRUE(fs::exists(path("ZeltoInfo/Demo.smd")));
}

TEST_F(Cli, BuildsWhereAndWhatIsAskedFor) {
    const Outcome run = runZbc({"build", project_, "--mdf", "--out", path("a/b")});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, path("a/b/Demo.mdf") + ": 2 messages\n");
    EXPECT_TRUE(fs::exists(path("a/b/Demo.mdf")));
    EXPECT_FALSE(fs::exists(path("ZeltoInfo")));
}

TEST_F(Cli, BuildsTheSameBytesEachTime) {
    runZbc({"build", project_});
    const std::string first = *readBytes(path("ZeltoInfo/Demo.smd"));
    runZbc({"build", project_, "--smd"});
    EXPECT_EQ(*readBytes(path("ZeltoInfo/Demo.smd")), first);
}

TEST_F(Cli, ReportsAllFaultsOfABuildThatStops) {
    const std::string file = faulty();
    const Outcome run = runZbc({"build", file});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, runZbc({"check", file}).err);
}

TEST_F(Cli, ReportsFoldersThatCannotBeMade) {
    const std::string file = write("file", "");
    expectFault({"build", project_, "--out", file + "/x"}, 3, file + "/x: cannot be made: Not a directory\n");
}

TEST_F(Cli, ReportsATargetThatCannotBeWritten) {
    fs::create_directories(path("ZeltoInfo/Demo.smd"));
    const Outcome run = runZbc({"build", project_});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err.find(path("ZeltoInfo/Demo.smd") + ": cannot be written: "), 0U) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
}

TEST_F(Cli, ReportsFilesThatAreNoProjects) {
    const std::string whole = *readBytes(project_);
    const std::vector<std::pair<std::string, std::string>> broken{
        {std::string("\x80\x81\xFE\x00\x00\xC3", 6), "the file is no UTF-16 text"},
        {"## [EDIT SMD]\r\n", "the file is UTF-8 text, and a project file is UTF-16 text"},
        {"", "the file is empty"},
        {whole.substr(0, whole.size() - 1), "the file ends in the middle of a character"},
        {encodeUtf16("hello\r\n"), "it has neither a project header nor a section of messages"}};
    for (const auto& [bytes, why] : broken) {
        const std::string file = write("Broken.zbp", bytes);
        std::string reason = file + ": not a project file: ";
        reason += why + "\n";
        for (const char* verb : {"list", "check", "build"})
            expectFault({verb, file}, 1, reason);
    }
}

TEST_F(Cli, ReportsFilesThatCannotBeRead) {
    for (const char* verb : {"list", "check", "build", "script"}) {
        expectFault({verb, path("none")}, 3, path("none") + ": cannot be read: No such file or directory\n");
        expectFault({verb, path(".")}, 3, path(".") + ": cannot be read: Is a directory\n");
    }
    fs::create_symlink(path("loop"), path("loop"));
    expectFault({"list", path("loop")}, 3,
                path("loop") + ": cannot be read: Too many levels of symbolic links\n");
}

TEST_F(Cli, ReportsFilesThatTheUserMayNotRead) {
    fs::permissions(project_, fs::perms(0));
    const test::OrdinaryUser user(folder_.path());
    for (const char* verb : {"list", "check", "build", "script"})
        expectFault({verb, project_}, 3, project_ + ": cannot be read: Permission denied\n");
}

TEST_F(Cli, TakesOddNamesAndLongPaths) {
    const std::string bytes = *readBytes(project_);
    const std::string deep = "d/" + std::string(120, 'a') + "/" + std::string(150, 'b');
    fs::create_directories(path(deep));
    for (const std::string& name :
         {std::string("two words"), std::string("a[1]{x}"), std::string("라인"), deep + "/Long"}) {
        const std::string file = write(name + ".zbp", bytes);
        const std::string stem = fs::path(file).stem().string();
        const Outcome run = runZbc({"build", file});
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out,
                  (fs::path(file).parent_path() / "ZeltoInfo" / stem).string() + ".smd: 2 messages\n");
        EXPECT_EQ(runZbc({"check", file}).status, 0);
    }
}

TEST_F(Cli, RefusesWrongUsageOnOneLine) {
    expectFault({}, 2, "zbc: a verb is missing (see zbc --help)\n");
    expectFault({"list"}, 2, "zbc: FILE is required (see zbc --help)\n");
    expectFault({"script"}, 2, "zbc: FILE is required (see zbc --help)\n");
    expectFault({"jump"}, 2, "zbc: unknown verb \"jump\" (see zbc --help)\n");
    expectFault({"bild", "x"}, 2, "zbc: unknown verb \"bild\"; did you mean \"build\"? (see zbc --help)\n");
    expectFault({"--versoin"}, 2,
                "zbc: unknown option \"--versoin\"; did you mean \"--version\"? (see zbc --help)\n");
    expectFault({"check", "--warnigs", "a"}, 2,
                "zbc: unknown option \"--warnigs\"; did you mean \"--warnings\"? (see zbc --help)\n");
    expectFault({"build", "a", "--otu=b"}, 2,
                "zbc: unknown option \"--otu\"; did you mean \"--out\"? (see zbc --help)\n");
    expectFault({"list", "--fast", "a"}, 2, "zbc: unknown option \"--fast\" (see zbc --help)\n");
    expectFault({"list", "a", "b"}, 2, "zbc: The following argument was not expected: b (see zbc --help)\n");
    expectFault({"build", "--smd", "--mdf", "a"}, 2, "zbc: --smd excludes --mdf (see zbc --help)\n");
    expectFault({"build", "a", "--out"}, 2, "zbc: --out: 1 required FOLDER missing (see zbc --help)\n");
}

TEST_F(Cli, HelpsWithAnExampleForEachVerb) {
    const Outcome general = runZbc({"--help"});
    EXPECT_EQ(general.status, 0);
    EXPECT_EQ(general.err, "");
    for (const auto& verb : test::allVerbs()) {
        EXPECT_NE(general.out.find("  " + verb->name() + " "), std::string::npos);
        const Outcome help = runZbc({verb->name(), "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_NE(help.out.find("Usage: zbc " + verb->name() + " [OPTIONS]"), std::string::npos) << help.out;
        const std::size_t example = help.out.find("Example:\n  zbc " + verb->name());
        ASSERT_NE(example, std::string::npos) << help.out;
        const char next = help.out[example + ("Example:\n  zbc " + verb->name()).size()];
        EXPECT_TRUE(next == ' ' || next == '\n') << help.out; // a verb may take no argument
    }
    EXPECT_EQ(runZbc({"--version"}).out.find("zbc "), 0U);
}

TEST_F(Cli, ListsKeptVersionsAndBringsThemBack) {
    setenv("ZELTOBENCH_STATE", path("state").c_str(), 1);
    EXPECT_EQ(runZbc({"history", project_}).out, "");
    SystemFileLayer files;
    ASSERT_TRUE(ProjectHistory(files, stateFolder()).keep(project_).ok());
    const std::string kept = *readBytes(project_);
    const Outcome list = runZbc({"history", project_});
    EXPECT_EQ(list.status, 0);
    EXPECT_THAT(list.out, testing::MatchesRegex("1  [0-9]+-[0-9]+-[0-9]+ [0-9]+:[0-9]+:[0-9]+ UTC  " +
                                                std::to_string(kept.size()) + "\n"));
    write("Demo.zbp", "changed");
    const Outcome restored = runZbc({"history", project_, "--restore", "1"});
    EXPECT_EQ(restored.err, "");
    ASSERT_TRUE(restored.out.ends_with("\n"));
    EXPECT_EQ(*readBytes(restored.out.substr(0, restored.out.size() - 1)), kept);
    EXPECT_EQ(*readBytes(project_), "changed");
    const Outcome missing = runZbc({"history", project_, "--restore", "7"});
    EXPECT_EQ(missing.status, 3);
    EXPECT_EQ(missing.err.find(project_ + ": version 7 cannot be brought back: "), 0U) << missing.err;
    unsetenv("ZELTOBENCH_STATE");
}

TEST_F(Cli, RunsScriptsOverTheWholeProgram) {
    const std::string good = write("good.zbs", "start\nexpect frmMain visible true\nexpectnobox\n"
                                               "expect app GeneratorRuns 0\nexpect app ProjectType 1\n");
    const std::string bad = write("bad.zbs", "start\nexpect frmMain visible false\n");
    EXPECT_EQ(runZbc({"script", good}).status, 0);
    const Outcome run = runZbc({"script", bad, good, bad});
    EXPECT_EQ(run.status, 1);
    const std::string line = bad + ":2: expected frmMain visible \"false\", found \"true\"\n";
    EXPECT_EQ(run.err, line + line);
}

TEST_F(Cli, GivesScriptsSettingsOfTheirOwn) {
    const std::string script =
        write("s.zbs", "setting SRCGen 73\nstart\nexpectsetting SRCGen 73\nclose frmMain\n"
                       "start\nexpectsetting SRCGen 73\nexpectsetting PlugInType 1\n"
                       "setting MessageFormat mdf\nexpectsetting MessageFormat mdf\n");
    const Outcome run = runZbc({"script", script});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_FALSE(fs::exists(path("config")));
}

TEST_F(Cli, SettingsThatCannotBeReadAreReported) {
    const std::string settings = path("config/settings.json");
    EXPECT_EQ(runZbc({"list", project_}).err, "");
    std::filesystem::create_directory(path("config"));
    test::writeFile(settings, "{");
    const Outcome damaged = runZbc({"list", project_});
    EXPECT_EQ(damaged.status, 0);
    EXPECT_EQ(damaged.err, settings + ": cannot be read, and the usual settings are taken: It is damaged\n");
    test::writeFile(settings, "{}");
    EXPECT_EQ(runZbc({"list", project_}).err, "");
    std::filesystem::remove(settings);
    std::filesystem::create_directory(settings);
    EXPECT_EQ(runZbc({"list", project_}).err,
              settings + ": cannot be read, and the usual settings are taken: Is a directory\n");
}

} // namespace
} // namespace zb
