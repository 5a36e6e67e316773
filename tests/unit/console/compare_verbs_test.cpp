#include "platform/file_layer.h"
#include "project/project_history.h"
#include "unit/console/verb_runs.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;

Outcome runZbc(const std::vector<std::string>& arguments) {
    return runVerbs(makeVerbs(), arguments);
}

const std::string kStart = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n";
const std::string kHello = "* Are you there\r\nAreYouThere: S1 F1 W H<->E.\r\n";
const std::string kData = "* On line\r\nOnLineData: S1 F2 H<-E\r\n    L 2\r\n"
                          "        A 6 MDLN 'ETCHER'\r\n        A 6 SOFTREV 'V01R01'.\r\n";
const std::string kNew = "* New\r\nNew: S9 F1 H<-E.\r\n";
const std::string kOther = "* Other\r\nOther: S9 F3 H<-E.\r\n";

std::string changed(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

class CompareVerbs : public Cli {
protected:
    CompareVerbs() { setenv("ZELTOBENCH_STATE", path("state").c_str(), 1); }
    ~CompareVerbs() override { unsetenv("ZELTOBENCH_STATE"); }

    std::string writeProject(const std::string& name, const std::string& messages) const {
        return write(name, encodeUtf16(kStart + messages));
    }
    std::string textOf(const std::string& name) const {
        return decodeProject(test::readFile(path(name))).text;
    }
};

void expectRun(const std::vector<std::string>& arguments, int status, const std::string& out,
               const std::string& err = {}) {
    const Outcome run = runZbc(arguments);
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.out, out);
    EXPECT_EQ(run.err, err);
}

TEST_F(CompareVerbs, DiffOfEqualProjectsPrintsNothing) {
    expectRun({"diff", project_, writeProject("B.zbp", kHello + kData)}, 0, "");
}

TEST_F(CompareVerbs, DiffPrintsABlockForEachMessage) {
    const std::string b =
        writeProject("B.zbp", changed(kHello, " W", "") +
                                  changed(changed(kData, "V01R01", "V02"), "On line", "On") + kNew);
    expectRun({"diff", project_, b}, 1,
              "~ AreYouThere: S1 F1 H<->E\n"
              "- AreYouThere: S1 F1 W H<->E\n"
              "+ AreYouThere: S1 F1 H<->E\n"
              "\n"
              "~ OnLineData: S1 F2 H<-E\n"
              "- * On line\n"
              "+ * On\n"
              "- 1/2: A 6 SOFTREV 'V01R01'\n"
              "+ 1/2: A 6 SOFTREV 'V02'\n"
              "\n"
              "+ * New\n"
              "+ New: S9 F1 H<-E.\n");
}

TEST_F(CompareVerbs, DiffPrintsOneJsonObjectPerDifference) {
    const std::string b = writeProject("B.zbp", changed(kData, "V01R01", "V02") + kNew);
    expectRun({"diff", "--json", project_, b}, 1,
              R"({"kind":"message","change":"removed","name":"AreYouThere","path":"","field":"",)"
              R"("before":"* Are you there\nAreYouThere: S1 F1 W H<->E.","after":null})"
              "\n"
              R"({"kind":"item","change":"changed","name":"OnLineData","path":"1/2","field":"value",)"
              R"("before":"V01R01","after":"V02"})"
              "\n"
              R"({"kind":"message","change":"added","name":"New","path":"","field":"",)"
              R"("before":null,"after":"* New\nNew: S9 F1 H<-E."})"
              "\n");
}

TEST_F(CompareVerbs, DiffCountsDifferences) {
    const std::string b = writeProject("B.zbp", changed(kData, "V01R01", "V02") + kNew + kOther);
    expectRun({"diff", "--stat", project_, b}, 1, "message: 2 added, 1 removed\nitem: 1 changed\n");
}

TEST_F(CompareVerbs, DiffWritesAPage) {
    const std::string b = writeProject("B.zbp", changed(kData, "V01R01", "<b>&"));
    expectRun({"diff", "--html", path("d.html"), project_, b}, 1, path("d.html") + ": 2 differences\n");
    const std::string page = test::readFile(path("d.html"));
    EXPECT_NE(page.find("<td class=\"after\">+ 1/2: A 6 SOFTREV '&lt;b&gt;&amp;'</td>"), std::string::npos)
        << page;
    EXPECT_EQ(page.find("<b>"), std::string::npos);
    EXPECT_NE(page.find("<details open><summary>~ OnLineData: S1 F2"), std::string::npos) << page;
    EXPECT_NE(page.find("<td class=\"after\">~     A 6 SOFTREV '&lt;b&gt;&amp;'</td>"), std::string::npos)
        << page;
    // What is equal is closed, and written once.
    EXPECT_NE(page.find("<details><summary>  side: equipment"), std::string::npos) << page;
    EXPECT_NE(page.find("<td colspan=\"2\">  side: equipment"), std::string::npos) << page;
}

TEST_F(CompareVerbs, DiffComparesTheMessagesOfLibraries) {
    ASSERT_EQ(runZbc({"convert", project_, path("A.smd")}).status, 0);
    ASSERT_EQ(runZbc({"convert", project_, path("A.mdf")}).status, 0);
    ASSERT_EQ(runZbc({"convert", project_, path("A.sml")}).status, 0);
    for (const char* library : {"A.smd", "A.mdf", "A.sml"})
        expectRun({"diff", project_, path(library)}, 0, "");
    expectRun({"diff", "--stat", writeProject("B.zbp", kHello), path("A.smd")}, 1, "message: 1 added\n");
}

TEST_F(CompareVerbs, DiffReadsKeptVersions) {
    SystemFileLayer files;
    ASSERT_TRUE(ProjectHistory(files, path("state")).keep(project_));
    writeProject("Demo.zbp", kHello + kData + kNew);
    expectRun({"diff", "--stat", project_ + "@1", project_}, 1, "message: 1 added\n");
    expectRun({"diff", project_ + "@7", project_}, 3, "",
              project_ + "@7: cannot be read: there is no version 7\n");
}

TEST_F(CompareVerbs, DiffOfWhatCannotBeReadIsNoDifference) {
    expectRun({"diff", project_, path("None.zbp")}, 3, "",
              path("None.zbp") + ": cannot be read: No such file or directory\n");
    const Outcome noProject = runZbc({"diff", project_, write("Text.zbp", "hello")});
    EXPECT_EQ(noProject.status, 3);
    EXPECT_NE(noProject.err.find("not a project file"), std::string::npos);
    EXPECT_EQ(runZbc({"diff", project_}).status, 2);
    EXPECT_EQ(runZbc({"diff", "--json", "--stat", project_, project_}).status, 2);
}

TEST_F(CompareVerbs, DiffPrintsAProjectAsText) {
    const Outcome run = runZbc({"diff", "--textconv", project_});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.find("\n###[PROJECT INFORMATION]\nProjectType=2\n## [EDIT SMD]\n* Are you there\n"), 0U)
        << run.out;
}

TEST_F(CompareVerbs, DiffColoursItsLinesOnATerminalAlone) {
    const std::string b = writeProject("B.zbp", kHello + changed(kData, "V01R01", "\x1B[31mred"));
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runConsole(makeVerbs(), {"diff", project_, b}, {out, err, true}), 1);
    EXPECT_EQ(out.str(), "\x1B[33m~ OnLineData: S1 F2 H<-E\x1B[0m\n"
                         "\x1B[31m- 1/2: A 6 SOFTREV 'V01R01'\x1B[0m\n"
                         "\x1B[32m+ 1/2: A 6 SOFTREV '?[31mred'\x1B[0m\n");
}

TEST_F(CompareVerbs, MergeTakesTheChangesOfBothSides) {
    const std::string ours = writeProject("O.zbp", kHello + kData + kNew);
    const std::string theirs = writeProject("T.zbp", changed(kHello, " W", "") + kData);
    expectRun({"merge", project_, ours, theirs, "-o", path("M.zbp")}, 0, path("M.zbp") + ": 0 conflicts\n");
    EXPECT_NE(textOf("M.zbp").find(changed(kHello, " W", "") + kData + kNew), std::string::npos);
    EXPECT_FALSE(fs::exists(path("M.zbp.conflicts")));
}

TEST_F(CompareVerbs, MergeListsConflicts) {
    const std::string ours = writeProject("O.zbp", kHello + changed(kData, "V01R01", "V02"));
    const std::string theirs = writeProject("T.zbp", kHello + changed(kData, "V01R01", "V03"));
    expectRun({"merge", project_, ours, theirs, "-o", path("M.zbp")}, 1, path("M.zbp") + ": 1 conflict\n",
              path("M.zbp") + ": item OnLineData: 1/2: text: both sides changed it: ours "
                              "\"A 6 SOFTREV 'V02'\", theirs \"A 6 SOFTREV 'V03'\"\n");
    EXPECT_EQ(textOf("M.zbp"), textOf("O.zbp") + "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n");
    const auto conflicts = nlohmann::json::parse(test::readFile(path("M.zbp.conflicts")));
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0], nlohmann::json({{"kind", "item"},
                                            {"name", "OnLineData"},
                                            {"path", "1/2"},
                                            {"field", "text"},
                                            {"base", "A 6 SOFTREV 'V01R01'"},
                                            {"ours", "A 6 SOFTREV 'V02'"},
                                            {"theirs", "A 6 SOFTREV 'V03'"}}));
}

TEST_F(CompareVerbs, MergeDecidesForASideAndRemovesOldConflicts) {
    const std::string ours = writeProject("O.zbp", kHello + changed(kData, "V01R01", "V02"));
    const std::string theirs = writeProject("T.zbp", kHello + changed(kData, "V01R01", "V03"));
    ASSERT_EQ(runZbc({"merge", project_, ours, theirs, "-o", path("M.zbp")}).status, 1);
    expectRun({"merge", "--theirs", project_, ours, theirs, "-o", path("M.zbp")}, 0,
              path("M.zbp") + ": 0 conflicts\n");
    EXPECT_NE(textOf("M.zbp").find("V03"), std::string::npos);
    EXPECT_FALSE(fs::exists(path("M.zbp.conflicts")));
    EXPECT_EQ(runZbc({"merge", "--ours", project_, ours, theirs, "-o", path("M.zbp")}).status, 0);
    EXPECT_NE(textOf("M.zbp").find("V02"), std::string::npos);
}

TEST_F(CompareVerbs, MergeKeepsTheVersionThatItReplaces) {
    const std::string theirs = writeProject("T.zbp", kHello + kData + kNew);
    const std::string old = test::readFile(project_);
    EXPECT_EQ(runZbc({"merge", project_, project_, theirs, "-o", project_}).status, 0);
    SystemFileLayer files;
    const auto versions = ProjectHistory(files, path("state")).versions(project_);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(test::readFile(versions[0].path), old);
}

TEST_F(CompareVerbs, MergeWritesNothingWhenASideCannotBeRead) {
    EXPECT_EQ(runZbc({"merge", project_, project_, path("None.zbp"), "-o", path("M.zbp")}).status, 3);
    EXPECT_EQ(runZbc({"merge", project_, write("Bad.zbp", ""), project_, "-o", path("M.zbp")}).status, 3);
    EXPECT_FALSE(fs::exists(path("M.zbp")));
    EXPECT_EQ(runZbc({"merge", "--ours", "--theirs", project_, project_, project_, "-o", "x"}).status, 2);
}

TEST_F(CompareVerbs, CompatReportsWhatBreaksASide) {
    const std::string b =
        writeProject("B.zbp", kHello + changed(kData, "A 6 SOFTREV", "A 20V SOFTREV") + kNew);
    expectRun(
        {"compat", project_, b}, 1,
        "OnLineData: 1/2: count: 6 -> 20V: One side sends a number of values that the other does not take: "
        "breaking for the host [compat.count]\n");
    expectRun({"compat", "--against", "equipment", project_, b}, 0, "");
    expectRun({"compat", "--against", "host", "--json", project_, b}, 1,
              R"({"kind":"item","change":"changed","name":"OnLineData","path":"1/2","field":"count",)"
              R"("before":"6","after":"20V","class":"breaking for the host","rule":"compat.count",)"
              R"("reason":"One side sends a number of values that the other does not take"})"
              "\n");
}

TEST_F(CompareVerbs, CompatAcceptsExtensionsAndNames) {
    const std::string b = writeProject("B.zbp", kHello + changed(kData, "OnLineData", "Data") + kNew);
    expectRun({"compat", project_, b}, 0, "");
    EXPECT_EQ(runZbc({"compat", project_, path("None.zbp")}).status, 3);
    EXPECT_EQ(runZbc({"compat", "--against", "nobody", project_, b}).status, 2);
}

TEST_F(CompareVerbs, APageReplacesNoProjectAndNothingThatIsCompared) {
    const std::string before = test::readFile(project_);
    expectRun({"diff", project_, project_, "--html", path("Other.ZBP")}, 2, "",
              "zbc: --html: " + path("Other.ZBP") + " is a project (see zbc --help)\n");
    ASSERT_EQ(runZbc({"convert", project_, path("a.sml")}).status, 0);
    const std::string library = test::readFile(path("a.sml"));
    expectRun({"diff", project_, path("a.sml"), "--html", path("a.sml")}, 2, "",
              "zbc: --html: " + path("a.sml") + " is what is read (see zbc --help)\n");
    EXPECT_EQ(test::readFile(path("a.sml")), library);
    EXPECT_EQ(test::readFile(project_), before);
}

} // namespace
} // namespace zb
