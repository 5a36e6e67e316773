#include "platform/settings.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"
#include "unit/console/all_verbs.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace zb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMessages = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                                  "* Are you there\r\nAreYouThere: S1 F1 W H<->E.\r\n"
                                  "* On line\r\nOnLineData: S1 F2 H<-E\r\n    A 6 MDLN 'ETCHER'.\r\n";
constexpr const char* kModel =
    "###[TRANSACTION MODEL] 1\r\n"
    "## [TR MESSAGE] GoOnline\r\n  SECSMessage AreYouThere\r\n  Report True\r\n  Direction "
    "2\r\nEndTRMessage\r\n"
    "## [TR MESSAGE] SayHello\r\n  SECSMessage OnLineData\r\n  Report False\r\n  Direction 1\r\n"
    "  DataBlock OnLineData: S1 F2 H<-E\r\n    Item 1 A 6 MDLN 'ETCHER'\r\nEndTRMessage\r\n";
constexpr const char* kSequences = "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n"
                                   "SeqName\u00FFStartup\u00FF\u00FF\r\n"
                                   "SeqItem\u00FF1\u00FFToEquip\u00FFGoOnline\r\n"
                                   "SeqItem\u00FF2\u00FFToHost\u00FFSayHello\r\n";

/// A folder with a project that has a transaction model, and separate settings.
class TransactionVerbs : public testing::Test {
protected:
    TransactionVerbs() {
        setenv("ZELTOBENCH_CONFIG", path("config").c_str(), 1);
        setenv("ZELTOBENCH_STATE", path("state").c_str(), 1);
        project_ = write("Line.zbp", std::string(kMessages) + kModel + kSequences);
    }
    ~TransactionVerbs() override {
        unsetenv("ZELTOBENCH_CONFIG");
        unsetenv("ZELTOBENCH_STATE");
    }

    std::string path(const std::string& name) const { return (folder_.path() / name).string(); }

    std::string write(const std::string& name, const std::string& text) const {
        test::writeFile(path(name), encodeUtf16(text));
        return path(name);
    }

    /// A project whose model has this line instead of the other.
    std::string writeChanged(const std::string& from, const std::string& to) const {
        std::string text = std::string(kMessages) + kModel + kSequences;
        const auto at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return write("Line.zbp", text.replace(at, from.size(), to));
    }

    void expect(const std::vector<std::string>& arguments, int status, const std::string& out,
                const std::string& err) const {
        std::ostringstream outStream;
        std::ostringstream errStream;
        EXPECT_EQ(runConsole(test::allVerbs(), arguments, {outStream, errStream}), status);
        EXPECT_EQ(outStream.str(), out);
        EXPECT_EQ(errStream.str(), err);
    }

    void useGenerator(const std::string& body) const {
        const fs::path program = folder_.path() / "generator";
        test::writeFile(program, "#!/bin/sh\n" + body + "\n");
        fs::permissions(program, fs::perms::owner_all);
        SettingsStore(path("config")).writeRegValue(kSettingsKey, "GeneratorCommand", program.string());
    }

    std::string smdLine() const { return path("ZeltoInfo/Line.smd") + ": 2 messages\n"; }
    std::string tmdLine() const {
        return path("ZeltoInfo/Line.tmd") + ": 2 transaction messages, 1 sequence\n";
    }

    test::TemporaryFolder folder_;
    std::string project_;
};

TEST_F(TransactionVerbs, BuildMakesBothFiles) {
    expect({"build", project_}, 0, smdLine() + tmdLine(), "");
    EXPECT_EQ(
        test::readFile(path("ZeltoInfo/Line.tmd")),
        R"x(<?xml version="1.0"?><Zelto-ModelingInformaion><SECSMessages Count="1"><AreYouThere>)x"
        R"x(<Statement Type="if" Condition="NONE">GoOnline</Statement></AreYouThere></SECSMessages>)x"
        R"x(<TransactionMessages Type="R" Count="1">)x"
        R"x(<GoOnline SECSMessage="AreYouThere" Report="Y" Condition=""><TRItems Count="0"/></GoOnline>)x"
        R"x(</TransactionMessages><TransactionMessages Type="S" Count="1">)x"
        R"x(<SayHello SECSMessage="OnLineData"><DataBlock Name="OnLineData" Stream="1" Function="2" )x"
        R"x(Wait="N" Reply="N" NoLogging="N" Direction="H&lt;-E" Count="1">)x"
        R"x(<Item Format="A" Name="MDLN" Count="6" Fixed="Y" Key="N" Value="ETCHER"/>)x"
        R"x(</DataBlock></SayHello></TransactionMessages>)x"
        R"x(<Sequences Count="1"><Startup Count="2"><SEQ TransactionMessage="GoOnline" Owner="HOST"/>)x"
        R"x(<SEQ TransactionMessage="SayHello" Owner="TOOL"/></Startup></Sequences>)x"
        R"x(</Zelto-ModelingInformaion>)x");
    EXPECT_FALSE(fs::exists(path("config")));
    EXPECT_FALSE(fs::exists(path("ZeltoPlugIn")));
}

TEST_F(TransactionVerbs, BuildPutsBothFilesWhereAskedFor) {
    expect({"build", project_, "--mdf", "--out", path("o")}, 0,
           path("o/Line.mdf") + ": 2 messages\n" + path("o/Line.tmd") +
               ": 2 transaction messages, 1 sequence\n",
           "");
    EXPECT_FALSE(fs::exists(path("ZeltoInfo")));
}

TEST_F(TransactionVerbs, BuildTakesTheSideFromTheProject) {
    writeChanged("ProjectType=2", "ProjectType=1");
    expect({"build", project_}, 0, smdLine() + tmdLine(), "");
    const std::string tmd = test::readFile(path("ZeltoInfo/Line.tmd"));
    EXPECT_NE(tmd.find("<OnLineData><Statement"), std::string::npos) << tmd;
}

TEST_F(TransactionVerbs, BuildTakesAFileOfAnotherName) {
    fs::rename(project_, path("Copy.bak"));
    expect({"build", path("Copy.bak"), "--out", path("o")}, 0,
           path("o/Copy.smd") + ": 2 messages\n" + path("o/Copy.tmd") +
               ": 2 transaction messages, 1 sequence\n",
           "");
    expect({"build", path("Copy.bak"), "--plugin"}, 1, "",
           path("Copy.bak") + ": not a project file: its name does not end in .zbp\n");
}

TEST_F(TransactionVerbs, BuildOfAFaultyModelReportsAllFaults) {
    writeChanged("  SECSMessage AreYouThere\r\n", "  SECSMessage Gone\r\n");
    expect({"build", project_}, 1, smdLine(),
           project_ + ": GoOnline: Select a valid SECSMessage! There is no \"Gone\"\n");
    EXPECT_EQ(test::readFile(path("ZeltoInfo/Line.tmd")), "");
    writeChanged("SeqItem\u00FF1\u00FFToEquip\u00FFGoOnline\r\nSeqItem\u00FF2\u00FFToHost\u00FFSayHello\r\n",
                 "");
    expect({"build", project_}, 1, smdLine(), project_ + ": Startup: Not defined SequenceItem!\n");
}

TEST_F(TransactionVerbs, BuildReportsWhatTheTmdFileLeavesOut) {
    writeChanged("SeqName\u00FFStartup", "SeqName\u00FFno name");
    const std::string tmd = path("ZeltoInfo/Line.tmd");
    expect({"build", project_}, 1, smdLine() + tmd + ": 2 transaction messages, 0 sequences\n",
           tmd + ": incomplete: holds 0 of 1 sequences\n" + tmd +
               ": incomplete: holds 0 of 2 rows of sequences\n");
    EXPECT_TRUE(fs::exists(tmd));
}

TEST_F(TransactionVerbs, BuildReportsATmdFileThatCannotBeWritten) {
    fs::create_directories(path("ZeltoInfo/Line.tmd"));
    expect({"build", project_}, 3, smdLine(),
           path("ZeltoInfo/Line.tmd") + ": cannot be written: Is a directory(21)\n");
}

TEST_F(TransactionVerbs, PlugInGoesTheWholeRoad) {
    useGenerator("echo \"made from $1\"; grep -c GoOnline \"$(dirname \"$1\")/ZeltoInfo/Line.tmd\"; ls -d "
                 "ZeltoPlugIn");
    writeChanged("ProjectType=2", "ProjectType=2\r\n");
    expect({"build", project_, "--plugin"}, 1,
           smdLine() + tmdLine() + "made from " + project_ +
               "\n1\nls: cannot access 'ZeltoPlugIn': No such file or directory\n"
               "The generator failed with exit status 2.\n",
           "");
    // the save has written the header in its usual form, and kept the previous version
    EXPECT_EQ(*readBytes(project_), encodeUtf16(std::string(kMessages) + kModel + kSequences));
    EXPECT_FALSE(fs::is_empty(path("state")));
    EXPECT_TRUE(fs::is_directory(path("ZeltoPlugIn")));
    EXPECT_EQ(SettingsStore(path("config")).readRegValue(kSettingsKey, "RecentProject"), "");
    useGenerator("echo fine");
    expect({"build", project_, "--plugin", "--mdf"}, 0,
           path("ZeltoInfo/Line.mdf") + ": 2 messages\n" + tmdLine() + "fine\n", "");
}

TEST_F(TransactionVerbs, PlugInReportsThatThereIsNoGenerator) {
    useGenerator("");
    fs::remove(path("generator"));
    expect({"build", project_, "--plugin"}, 3,
           smdLine() + tmdLine() + "The generator " + path("generator") +
               " cannot be started: No such file or directory\n",
           "");
}

TEST_F(TransactionVerbs, PlugInEndsAtAFaultBeforeTheSave) {
    useGenerator("echo never");
    writeChanged("  SECSMessage AreYouThere\r\n", "  SECSMessage Gone\r\n");
    const std::string before = *readBytes(project_);
    expect({"build", project_, "--plugin"}, 1, smdLine(),
           project_ + ": GoOnline: Select a valid SECSMessage! There is no \"Gone\"\n");
    EXPECT_EQ(*readBytes(project_), before);
}

TEST_F(TransactionVerbs, PlugInHasNoOtherFolder) {
    expect({"build", project_, "--plugin", "--out", path("o")}, 2, "",
           "zbc: --plugin excludes --out (see zbc --help)\n");
}

TEST_F(TransactionVerbs, CheckReportsFaultsOfMessagesAndModel) {
    expect({"check", project_}, 0, "", "");
    std::string text = std::string(kMessages) + "* d\r\nBad: S200 F1 H->E.\r\n" + kModel + kSequences;
    text += "SeqItem\u00FF3\u00FFToHost\u00FFDeleted\r\nSeqItem\u00FF4\u00FFToHost\u00FFGoOnline\r\n";
    write("Line.zbp", text);
    const std::string faults = project_ +
                               ": Bad: You must insert a positive number less than 128 in the stream\n" +
                               project_ + ": Startup: 3: There is no TR message \"Deleted\"\n";
    expect({"check", project_}, 1, "", faults);
    expect({"check", project_, "--warnings"}, 1, "",
           faults + project_ + ": Startup: 4: warning: \"GoOnline\" goes ToEquip now, and not ToHost\n");
    expect(
        {"check", project_, "--json"}, 1,
        R"({"file":")" + project_ +
            R"(","message":"Bad","item":"","severity":"error",)"
            R"("text":"You must insert a positive number less than 128 in the stream"})"
            "\n"
            R"({"file":")" +
            project_ +
            R"(","message":"Startup","item":"3","severity":"error","text":"There is no TR message \"Deleted\""})"
            "\n",
        "");
    EXPECT_FALSE(fs::exists(path("ZeltoInfo")));
}

} // namespace
} // namespace zb
