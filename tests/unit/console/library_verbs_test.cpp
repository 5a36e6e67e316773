#include "platform/code_page.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"
#include "unit/console/all_verbs.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace zb {
namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

/// A folder with a project, a library of each format, and separate settings.
class LibraryVerbs : public testing::Test {
protected:
    LibraryVerbs() {
        setenv("ZELTOBENCH_CONFIG", (folder_.path() / "config").c_str(), 1);
        write("demo.sml", "// Are you there\nAlive: S1F1 W.\nS1F2 <L <A[6] MDLN> <A 'V1'> // SOFTREV\n>.\n");
        write("faulty.sml", "S1F1 W.\nS1F3 <U1 2.5>.\nS6F12 W <B 0>.\n");
        write("P.zbp",
              encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n* Mine\r\n"
                          "IAmHere: S1 F2 H->E.\r\n## [EDIT MDL]\r\nkept as it is\r\n"));
    }
    ~LibraryVerbs() override { unsetenv("ZELTOBENCH_CONFIG"); }

    std::string path(const std::string& name) const { return (folder_.path() / name).string(); }
    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const {
        return decodeText(readBytes(path(name)).value(), CodePage(1252));
    }

    static Outcome run(const std::vector<std::string>& arguments) {
        std::ostringstream out;
        std::ostringstream err;
        const int status = runConsole(test::allVerbs(), arguments, {out, err});
        return {status, out.str(), err.str()};
    }
    static void expect(const std::vector<std::string>& arguments, int status, const std::string& out,
                       const std::string& err) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_EQ(outcome.out, out);
        EXPECT_EQ(outcome.err, err);
    }

    test::TemporaryFolder folder_;
};

TEST_F(LibraryVerbs, ListsBuiltInLibraries) {
    const Outcome gem = run({"list", "gem"});
    EXPECT_EQ(gem.status, 0);
    EXPECT_EQ(gem.err, "");
    EXPECT_EQ(std::count(gem.out.begin(), gem.out.end(), '\n'), 93);
    EXPECT_EQ(gem.out.substr(0, gem.out.find('\n')),
              "AreYouThere      S1F1    W  H<->E  0  Are You There Request");
    const Outcome semi = run({"list", "semi"});
    EXPECT_EQ(std::count(semi.out.begin(), semi.out.end(), '\n'), 357);
}

TEST_F(LibraryVerbs, FindingsOfBinaryFilesLeaveTheTerminalAlone) {
    const std::string ringing = std::string("S1F1 W.\n\x1b[31m\a") + "bell\n";
    write("ringing.sml", ringing);
    const Outcome outcome = run({"list", path("ringing.sml")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err.find('\x1b'), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.err.find('\a'), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("expected a message, found \""), std::string::npos) << outcome.err;
}

TEST_F(LibraryVerbs, ReportsItemsThatAProjectTakesForHeads) {
    write("colon.sml", "S2F2 <L <A 'PJ:1'> <U1 1>>.\n");
    const std::string warning =
        ": S2F2: a project reads an item with \":\" as the head of a message: A 4 'PJ:1'\n";
    expect({"convert", path("colon.sml"), path("c.smd")}, 0, path("c.smd") + ": 1 message\n", "");
    expect({"convert", path("colon.sml"), path("c.zbp")}, 1, path("c.zbp") + ": 1 message\n",
           path("c.zbp") + warning);
    expect({"add", path("P.zbp"), path("colon.sml"), "S2F2"}, 1, "S2F2\n", path("P.zbp") + warning);
}

TEST_F(LibraryVerbs, CountsOneMessageAsOne) {
    expect({"convert", "gem", path("one.smd"), "--messages", "IAmHere"}, 0, path("one.smd") + ": 1 message\n",
           "");
}

TEST_F(LibraryVerbs, ListsLibraryFiles) {
    const std::string listed = "Alive  S1F1  W  H<->E  0  Are you there\nS1F2   S1F2  -  H<->E  3\n";
    expect({"list", path("demo.sml")}, 0, listed, "");
    run({"convert", path("demo.sml"), path("demo.smd")});
    expect({"list", path("demo.smd")}, 0, listed, "");
    run({"convert", path("demo.sml"), path("demo.mdf")});
    expect({"list", path("demo.mdf")}, 0, listed, "");
}

TEST_F(LibraryVerbs, ReportsWhatIsWrongWithALibrary) {
    const std::string file = path("faulty.sml");
    expect({"list", file}, 1, "S1F1   S1F1   W  H<->E  0\nS6F12  S6F12  W  H<->E  1\n",
           file + ":2:10: expected a whole number from 0 to 255, found \"2.5\"\n" + file +
               ":3:1: warning: W is set on an even function, which is a reply\n");
    write("empty.sml", "");
    expect({"list", path("empty.sml")}, 1, "",
           path("empty.sml") + ": not a message library: no message could be read\n");
    EXPECT_EQ(run({"list", path("none.smd")}).status, 3);
}

TEST_F(LibraryVerbs, ConvertsBetweenAllFormats) {
    expect({"convert", path("demo.sml"), path("a.smd")}, 0, path("a.smd") + ": 2 messages\n", "");
    const std::string banner = std::string(70, '*') + "\r\n";
    const std::string smd =
        banner + "* Are you there\r\n" + banner + "Alive: S1 F1 W H<->E.\r\n" + banner + "* \r\n" + banner +
        "S1F2: S1 F2 H<->E\r\n    <L 2\r\n        <A 6 MDLN ''>\r\n        <A 2 SOFTREV 'V1'>\r\n"
        "    >.\r\n";
    EXPECT_EQ(read("a.smd"), smd);
    std::string last = "a.smd";
    for (const std::string next : {"b.mdf", "c.zbp", "d.sml", "e.mdf", "f.smd"}) {
        expect({"convert", path(last), path(next)}, 0, path(next) + ": 2 messages\n", "");
        last = next;
    }
    EXPECT_EQ(read("f.smd"), smd);
    EXPECT_EQ(decodeProject(readBytes(path("c.zbp")).value()).text,
              "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n* Are you there\r\nAlive: "
              "S1 F1 W H<->E.\r\n"
              "* \r\nS1F2: S1 F2 H<->E\r\n    L 2\r\n        A 6 MDLN ''\r\n        A 2 SOFTREV 'V1'.\r\n");
}

TEST_F(LibraryVerbs, ConvertsASelection) {
    expect({"convert", "semi", path("a.smd"), "--messages", "s1f13,S6F11,OnLineData"}, 0,
           path("a.smd") + ": 4 messages\n", "");
    EXPECT_EQ(run({"list", path("a.smd")}).out.substr(0, 10), "OnLineData");
    expect({"convert", "gem", path("b.smd"), "--messages", "S99F1"}, 1, "",
           "gem: S99F1: there is no such message\n");
    EXPECT_FALSE(fs::exists(path("b.smd")));
}

TEST_F(LibraryVerbs, ConvertWritesWhatCouldBeReadAndReportsTheRest) {
    const std::string file = path("faulty.sml");
    expect({"convert", file, path("a.smd")}, 1, path("a.smd") + ": 2 messages\n",
           file + ":2:10: expected a whole number from 0 to 255, found \"2.5\"\n" + file +
               ":3:1: warning: W is set on an even function, which is a reply\n");
}

TEST_F(LibraryVerbs, ConvertRefusesWhatItCannotWrite) {
    expect({"convert", "gem", path("a.txt")}, 2, "",
           "zbc: " + path("a.txt") + " does not end in .zbp, .smd, .mdf or .sml (see zbc --help)\n");
    expect({"convert", "gem", path("P.zbp")}, 1, "",
           path("P.zbp") + ": is there already: zbc add puts messages into a project\n");
    EXPECT_EQ(run({"convert", "gem", path("none/a.smd")}).status, 3);
}

TEST_F(LibraryVerbs, ConvertWritesBareSmlForStrictReaders) {
    write("set.sml",
          "// Set\nSet: S2F41 W // H->E <R>\n<L[2] <A[4] 'STOP'> // RCMD\n<V[1] '1'> // CPVAL\n>.\n");
    expect({"convert", path("set.sml"), path("bare.sml"), "--sml", "bare"}, 0,
           path("bare.sml") + ": 1 message\n",
           path("bare.sml") + ": Set: 1 item of any type written as text\n");
    EXPECT_EQ(read("bare.sml"), "S2F41 W\r\n  <L\r\n    <A \"STOP\">\r\n    <A \"1\">\r\n  >\r\n.\r\n\r\n");
    expect({"convert", path("set.sml"), path("full.sml"), "--sml", "full"}, 0,
           path("full.sml") + ": 1 message\n", "");
    EXPECT_NE(read("full.sml").find("Set: S2F41 W // H->E <R>"), std::string::npos);
}

TEST_F(LibraryVerbs, ConvertSplitsMessagesIntoFilesOfTheirOwn) {
    write("three.sml", "Up/Down: S1F1 W.\nup_down: S1F3 W.\n..: S1F5 W.\ncon: S1F7 W.\n");
    const std::string folder = path("new/split");
    expect({"convert", path("three.sml"), "--split", folder, "--sml", "bare"}, 0, folder + ": 4 messages\n",
           "");
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Up_Down.sml", "_...sml", "_con.sml", "up_down_2.sml"}));
    EXPECT_EQ(read("new/split/up_down_2.sml"), "S1F3 W\r\n.\r\n\r\n");
    expect({"convert", "semi", "--split", folder, "--messages", "S1F3"}, 0, folder + ": 1 message\n", "");
    EXPECT_EQ(read("new/split/S1F3.sml").substr(0, 3), "// ");
    expect({"convert", "gem", "--split", path("demo.sml"), "--messages", "S1F3"}, 3, "",
           path("demo.sml") + ": cannot be made: Not a directory\n");
}

TEST_F(LibraryVerbs, ConvertTakesOneTargetAndFormsOfSmlForSmlAlone) {
    const std::string hint = " (see zbc --help)\n";
    expect({"convert", "gem"}, 2, "", "zbc: one of OUT and --split is needed" + hint);
    expect({"convert", "gem", path("a.sml"), "--split", path("a")}, 2, "",
           "zbc: one of OUT and --split is needed" + hint);
    expect({"convert", "gem", path("a.smd"), "--sml", "bare"}, 2, "",
           "zbc: --sml is for files that end in .sml" + hint);
    EXPECT_EQ(run({"convert", "gem", path("a.sml"), "--sml", "short"}).status, 2);
    EXPECT_FALSE(fs::exists(path("a.sml")));
}

TEST_F(LibraryVerbs, AddPutsMessagesWithTheirRepliesIntoAProject) {
    expect({"add", path("P.zbp"), path("demo.sml"), "Alive"}, 0, "Alive\nS1F2\n", "");
    EXPECT_EQ(
        decodeProject(readBytes(path("P.zbp")).value()).text,
        "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n* Mine\r\nIAmHere: S1 F2 H->E.\r\n"
        "* Are you there\r\nAlive: S1 F1 W H<->E.\r\n* \r\nS1F2: S1 F2 H<->E\r\n    L 2\r\n        A 6 MDLN "
        "''\r\n"
        "        A 2 SOFTREV 'V1'.\r\n## [EDIT MDL]\r\nkept as it is\r\n");
}

TEST_F(LibraryVerbs, AddReportsADuplicateOnlyOfWhatWasNamed) {
    expect({"add", path("P.zbp"), "semi", "S1F1"}, 0, "AreYouThere\nOnLineData\n", "");
    expect({"add", path("P.zbp"), "semi", "areyouthere", "S1F3"}, 1, "S1F3\nS1F4\n",
           path("P.zbp") + ": AreYouThere already exists.\n");
}

TEST_F(LibraryVerbs, AddTakesNothingWhenANameIsUnknown) {
    const std::string before = readBytes(path("P.zbp")).value();
    expect({"add", path("P.zbp"), "gem", "S1F3", "Nobody"}, 1, "", "gem: Nobody: there is no such message\n");
    EXPECT_EQ(readBytes(path("P.zbp")).value(), before);
}

TEST_F(LibraryVerbs, AddsMessagesBeforeTheModelOfAProjectWithoutAny) {
    const std::string header = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n";
    const std::string sequences = "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\nSeqName\u00FFMain\u00FF\u00FF\r\n";
    const std::string model = "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] A\r\nEndTRMessage\r\n";
    for (const std::string& rest : {model + sequences, sequences, model}) {
        write("Bare.zbp", encodeUtf16(header + rest));
        expect({"add", path("Bare.zbp"), "semi", "S1F16"}, 0, "S1F16\n", "");
        const std::string text = decodeProject(*readBytes(path("Bare.zbp"))).text;
        EXPECT_EQ(text.substr(0, header.size() + 14), header + "## [EDIT SMD]\r");
        EXPECT_EQ(text.substr(text.size() - rest.size()), rest);
    }
}

TEST_F(LibraryVerbs, AProjectWithoutMessagesGetsTheirSection) {
    write("New.zbp", encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n"));
    expect({"add", path("New.zbp"), "semi", "S1F16"}, 0, "S1F16\n", "");
    EXPECT_EQ(
        decodeProject(readBytes(path("New.zbp")).value()).text,
        "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n* Request OFF-LINE Acknowledge\r\n"
        "S1F16: S1 F16 H<-E\r\n    B 1 OFLACK 0.\r\n");
}

} // namespace
} // namespace zb
