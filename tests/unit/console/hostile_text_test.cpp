#include "console/printable_stream.h"
#include "platform/file_layer.h"
#include "platform/printable.h"
#include "platform/text_file.h"
#include "project/project_history.h"
#include "support/temporary_folder.h"
#include "unit/console/all_verbs.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace zb::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

// Colours, a title, a forged line, a C1 control, a turn of direction, line ends of Unicode, no UTF-8.
const std::string kHostile = "N\x1B[31m\x1B]0;t\x07\r\nforged: \xC2\x9B"
                             "31m\xE2\x80\xAE\xE2\x80\xA8\xFF\x7F";
// The same for a text of a project, which is valid and has no line end.
const std::string kHostileText = "N\x1B[31m\rx\xC2\x9B"
                                 "31m\xE2\x80\xAEy\x7F";

class HostileText : public testing::Test {
protected:
    HostileText() {
        setenv("ZELTOBENCH_CONFIG", (folder_ / "config").c_str(), 1);
        setenv("ZELTOBENCH_STATE", (folder_ / "state").c_str(), 1);
    }
    ~HostileText() override {
        unsetenv("ZELTOBENCH_CONFIG");
        unsetenv("ZELTOBENCH_STATE");
    }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }

    std::string write(const std::string& name, const std::string& bytes) const {
        writeFile(path(name), bytes);
        return path(name);
    }

    // A project whose file is named so, with texts of the same kind.
    std::string project(const std::string& items = "    L 1\r\n        A 6 MDLN 'ETCHER'") const {
        return write(kHostile + ".zbp",
                     encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n* " +
                                 kHostileText + "\r\n" + kHostileText + ": S1 F2 H<-E\r\n" + items +
                                 ".\r\n"));
    }

    // Runs a verb; gives what it printed, and reports what a terminal must not get.
    std::string run(const std::vector<std::string>& arguments) {
        std::ostringstream out;
        std::ostringstream err;
        status_ = runConsole(allVerbs(), arguments, {out, err});
        std::string printed = out.str() + err.str();
        EXPECT_EQ(printed, printableLines(printed)) << arguments.front();
        std::istringstream lines(printed);
        for (std::string line; std::getline(lines, line);)
            EXPECT_THAT(line, Not(StartsWith("forged"))) << arguments.front();
        EXPECT_THAT(printed, Not(IsEmpty())) << arguments.front();
        return printed;
    }

    TemporaryFolder folder_;
    int status_ = 0;
};

TEST_F(HostileText, NoVerbPrintsTheNameOfAMissingFileRaw) {
    const std::string missing = path(kHostile);
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"build", missing + ".zbp"},
          {"check", missing + ".zbp"},
          {"list", missing + ".zbp"},
          {"list", missing + ".sml"},
          {"list", "--transactions", missing + ".zbp"},
          {"convert", missing + ".sml", path("out.smd")},
          {"convert", "semi", missing + ".txt"},
          {"convert", "semi", missing + "/out.smd"},
          {"convert", "semi", path("out.smd"), "--messages", kHostile},
          {"add", missing + ".zbp", "semi", "S1F1"},
          {"history", missing + ".zbp", "--restore", "3"},
          {"script", missing + ".zbs"},
          {kHostile},
          {"list", "--" + kHostile, "gem"},
          {"history", "--restore", kHostile, missing + ".zbp"}}) {
        EXPECT_THAT(run(arguments), HasSubstr("?")) << arguments.front();
        EXPECT_NE(status_, kExitDone) << arguments.front();
    }
}

TEST_F(HostileText, NoVerbPrintsTheTextsOfAProjectRaw) {
    EXPECT_THAT(run({"list", project()}), StartsWith("N?[31m x?31m?y?"));
    EXPECT_THAT(run({"build", project()}), HasSubstr("1 message"));
    EXPECT_THAT(run({"check", "--warnings", project("    XX 1 " + kHostileText + " 0")}),
                HasSubstr("N?[31m"));
    EXPECT_EQ(status_, kExitFault);
    EXPECT_THAT(run({"convert", project(), path(kHostile + ".sml")}), HasSubstr("1 message"));
    EXPECT_THAT(run({"convert", project(), path(kHostile + "2.zbp")}), HasSubstr("1 message"));
    EXPECT_THAT(run({"convert", project(), path(kHostile + "2.zbp")}), HasSubstr("is there already"));
    EXPECT_THAT(run({"add", project(), "semi", "S1F13"}), HasSubstr("ConnectHost"));
    EXPECT_THAT(run({"add", project(), "semi", kHostile}), HasSubstr("no such message"));
    EXPECT_THAT(run({"add", path(kHostile + "2.zbp"), project(), "S1F2"}), HasSubstr("already exists"));
    EXPECT_THAT(run({"list", write(kHostile + ".sml", kHostile)}), HasSubstr("N?[31m"));
    EXPECT_THAT(run({"list", write("empty" + kHostile + ".zbp", "")}), HasSubstr("not a project file"));
}

TEST_F(HostileText, NoVersionOfTheHistoryIsPrintedRaw) {
    SystemFileLayer files;
    ASSERT_TRUE(ProjectHistory(files, folder_ / "state").keep(project()));
    EXPECT_THAT(run({"history", project()}), StartsWith("1  "));
    EXPECT_THAT(run({"history", project(), "--restore", "1"}), HasSubstr("_version1.zbp"));
}

TEST_F(HostileText, NoTransactionIsPrintedRaw) {
    const std::string file =
        write("Model.zbp", encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n"
                                       "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] " +
                                       kHostileText + "\r\n  SECSMessage " + kHostileText +
                                       "\r\n  Condition " + kHostileText + "\r\n  Direction 1\r\n  TRItem " +
                                       kHostileText + "\r\n    Value " + kHostileText +
                                       "\r\n  EndTRItem\r\nEndTRMessage\r\n###[SEQUENCE TABLE]\r\n"
                                       "SeqName\u00FF" +
                                       kHostileText + "\u00FF\u00FF\r\n"));
    EXPECT_THAT(run({"list", "--transactions", file}), HasSubstr("N?[31m"));
    EXPECT_THAT(run({"check", file}), HasSubstr("N?[31m"));
}

TEST_F(HostileText, NoScriptPrintsRaw) {
    const std::string script =
        write(kHostile + ".zbs", "writefile ${WORK}/a.txt\n  " + kHostileText +
                                     "\nend\ncat ${WORK}/a.txt\nstart \"${WORK}/\xC2\x9B\xE2\x80\xAE.zbq\"\n"
                                     "show frmMain\nexpect frmMain caption \"" +
                                     "\xC2\x9B\xE2\x80\xAE\"\n");
    const std::string printed = run({"script", script});
    EXPECT_THAT(printed, HasSubstr("N?[31m x?31m?y?\n"));
    EXPECT_THAT(printed, HasSubstr(R"(\u009b\u202e)"));
    EXPECT_EQ(status_, kExitFault);
    run({"script", write("2.zbs", kHostileText)});
}

TEST_F(HostileText, JsonHoldsTheTextItself) {
    const std::string printed = run({"list", "--json", project()});
    EXPECT_EQ(nlohmann::json::parse(printed)["name"], kHostileText);
    const std::string findings = run({"check", "--json", project("    XX 1 " + kHostileText + " 0")});
    EXPECT_EQ(nlohmann::json::parse(findings.substr(0, findings.find('\n')))["message"], kHostileText);
}

// Whatever a verb forgets.
TEST_F(HostileText, TheStreamsOfTheConsoleAreALastGuard) {
    std::ostringstream sink;
    {
        PrintableStream stream(sink);
        stream << "a\x1B[31m\t\xED\x95";
        stream << "\x9C\n" << std::flush << "half";
        EXPECT_EQ(sink.str(), "a?[31m\t\xED\x95\x9C\n");
    }
    EXPECT_EQ(sink.str(), "a?[31m\t\xED\x95\x9C\nhalf");
}

TEST_F(HostileText, AFullDiskBehindTheStreamIsNoticed) {
    std::ostringstream sink;
    sink.setstate(std::ios::badbit);
    PrintableStream stream(sink);
    stream << "line\n";
    EXPECT_FALSE(stream);
}

} // namespace
} // namespace zb::test
