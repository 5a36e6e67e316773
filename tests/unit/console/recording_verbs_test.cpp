#include "unit/console/cli.h"

#include <nlohmann/json.hpp>

namespace zb {
namespace {

/// The project of `Cli` is an equipment's: it receives H->E.
class RecordingVerbs : public Cli {
protected:
    std::string good_ = write(
        "good.log", "2026-03-21 08:00:00.1 RECV [0x00000007] S1F1 W.\n"
                    "2026-03-21 08:00:00.2 SEND [0x00000007] S1F2\n<L\n<A 'ETCHER'>\n<A 'V01R01'>\n>.\n");
    std::string bad_ = write("bad.log", "RECV [0x00000007] S1F1 W.\nSEND [0x00000007] S1F2 <L <A 'X'>>.\n"
                                        "RECV [0x00000009] Linktest.req\n");
    static constexpr const char* kFirst =
        R"({"time":"2026-03-21T08:00:00.100","direction":"H->E","stream":1,"function":1,"wait":true,"system":7,)"
        R"("message":"AreYouThere","transaction":null,"items":{},"sequence":null,"findings":[]})"
        "\n";
    static constexpr const char* kSecond =
        R"({"time":"2026-03-21T08:00:00.200","direction":"H<-E","stream":1,"function":2,"wait":false,"system":7,)"
        R"("message":"OnLineData","transaction":null,"items":{},"sequence":null,"findings":[]})"
        "\n";
};

TEST_F(RecordingVerbs, RehearsePrintsATable) {
    const Outcome run = runZbc({"rehearse", project_, good_});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out,
              "2026-03-21T08:00:00.100   H->E  S1F1 W    AreYouThere               -                   -\n"
              "2026-03-21T08:00:00.200   H<-E  S1F2      OnLineData                -                   -\n"
              "2 messages, 0 not as modelled\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(RecordingVerbs, RehearsePrintsAnObjectPerMessage) {
    const Outcome run = runZbc({"rehearse", project_, good_, "--json"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, std::string(kFirst) + kSecond);
}

TEST_F(RecordingVerbs, WhatIsNotAsModelledMakesTheStatusOne) {
    const Outcome run = runZbc({"rehearse", project_, bad_, "--json", "--control"});
    EXPECT_EQ(run.status, 1);
    std::istringstream lines(run.out);
    std::vector<nlohmann::json> objects;
    for (std::string line; std::getline(lines, line);)
        objects.push_back(nlohmann::json::parse(line));
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_TRUE(objects[0]["time"].is_null());
    EXPECT_EQ(objects[1]["findings"][0]["id"], "structure");
    EXPECT_EQ(objects[1]["findings"][0]["text"],
              "no definition fits; OnLineData is the nearest: 1: expected a list of 2 items, found 1");
    EXPECT_EQ(objects[2]["control"], "Linktest.req");
}

TEST_F(RecordingVerbs, TheSideTurnsTheDirections) {
    EXPECT_EQ(runZbc({"rehearse", project_, good_, "--side", "equipment"}).status, 0);
    const Outcome run = runZbc({"rehearse", project_, good_, "--side", "host", "--json"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("wrong-direction"), std::string::npos);
}

TEST_F(RecordingVerbs, AnEqualResultIsExpected) {
    const std::string expected = write("expected.json", std::string(kFirst) + kSecond);
    const Outcome run = runZbc({"rehearse", project_, good_, "--expect", expected});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.err, "");
}

TEST_F(RecordingVerbs, ADeviationThatIsExpectedIsNoDifference) {
    const std::string expected = write("expected.json", runZbc({"rehearse", project_, bad_, "--json"}).out);
    EXPECT_EQ(runZbc({"rehearse", project_, bad_, "--expect", expected}).status, 0);
}

TEST_F(RecordingVerbs, DifferencesFromTheExpectedResultAreNamed) {
    std::string changed = std::string(kFirst) + kSecond + kSecond;
    changed.replace(changed.find("OnLineData"), 10, "SomeData");
    const std::string expected = write("expected.json", changed);
    const Outcome run = runZbc({"rehearse", project_, good_, "--expect", expected});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, good_ + ": message 2: message: expected \"SomeData\", found \"OnLineData\"\n" + good_ +
                           ": after message 2: 1 more expected, none found\n");
}

TEST_F(RecordingVerbs, FilesThatCannotBeReadMakeTheStatusThree) {
    expectFault({"rehearse", project_, path("none.log")}, 3,
                path("none.log") + ": cannot be read: No such file or directory\n");
    expectFault({"rehearse", path("none.zbp"), good_}, 3,
                path("none.zbp") + ": cannot be read: No such file or directory\n");
    expectFault({"decode", path("none.log")}, 3,
                path("none.log") + ": cannot be read: No such file or directory\n");
    expectFault({"rehearse", project_, good_, "--expect", path("none.json")}, 3,
                path("none.json") + ": cannot be read: No such file or directory\n");
}

TEST_F(RecordingVerbs, WrongOptionsMakeTheStatusTwo) {
    EXPECT_EQ(runZbc({"rehearse", project_, good_, "--side", "both"}).status, 2);
    EXPECT_EQ(runZbc({"rehearse", project_, good_, "--port", "0"}).status, 2);
    EXPECT_EQ(runZbc({"rehearse", project_}).status, 2);
    EXPECT_EQ(runZbc({"learn", good_, path("x.txt")}).status, 2);
}

TEST_F(RecordingVerbs, AFileWithoutMessagesIsAFault) {
    const std::string empty = write("empty.log", "nothing here\n");
    EXPECT_EQ(runZbc({"rehearse", project_, empty}).status, 1);
    expectFault({"decode", empty}, 1, empty + ": no message was found\n");
    expectFault({"learn", empty, path("x.sml")}, 1, empty + ": no message was found\n");
}

TEST_F(RecordingVerbs, DecodePrintsSml) {
    const Outcome run = runZbc({"decode", good_, "--side", "equipment"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out,
              "// 2026-03-21T08:00:00.100 H->E 0x00000007\nS1F1 W // H->E\n.\n\n"
              "// 2026-03-21T08:00:00.200 H<-E 0x00000007\nS1F2 // H<-E\n<L [2]\n  <A [6] \"ETCHER\">\n"
              "  <A [6] \"V01R01\">\n>\n.\n\n");
    const Outcome file = runZbc({"decode", good_, "--side", "equipment", "-o", path("x.sml")});
    EXPECT_EQ(file.out, path("x.sml") + ": 2 messages\n");
    EXPECT_EQ(readBytes(path("x.sml")).value(), run.out);
    EXPECT_EQ(runZbc({"list", path("x.sml")}).status, 0);
}

TEST_F(RecordingVerbs, WhatCannotBeReadIsReportedWithItsOffset) {
    const std::string hex = write("bad.hex", "RX 00 00 00 0C 00 01 01 02 00 00 00 00 00 07 41 09\n");
    const Outcome run = runZbc({"decode", hex});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              hex + ": line 1: S1F2: offset 0 of the data: an item of format A claims 9 bytes, 0 are left\n");
}

TEST_F(RecordingVerbs, LearnWritesLibrariesAndProjects) {
    for (const std::string name : {"learned.sml", "learned.smd", "learned.zbp"}) {
        const Outcome run = runZbc({"learn", good_, path(name), "--side", "equipment"});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, path(name) + ": 2 messages\n");
        const Outcome list = runZbc({"list", path(name)});
        EXPECT_EQ(list.status, 0);
        EXPECT_NE(list.out.find("OnLineData"), std::string::npos) << list.out;
    }
    EXPECT_EQ(runZbc({"check", path("learned.zbp")}).status, 0);
    EXPECT_EQ(runZbc({"learn", good_, path("learned.zbp")}).status, 1);
    const std::string alarm = write("alarm.log", "SEND S5F1 W <L <B 1> <U4 1> <A 'hot'>>.\n");
    EXPECT_EQ(runZbc({"learn", alarm, path("alarm.sml"), "--side", "equipment"}).status, 0);
    const Outcome added = runZbc({"add", project_, path("alarm.sml"), "AlarmReportSend"});
    EXPECT_EQ(added.status, 0) << added.err;
}

TEST_F(RecordingVerbs, NeitherProjectsNorTheRecordingAreReplaced) {
    const std::string recording = test::readFile(good_);
    const std::string project = test::readFile(project_);
    expectFault({"decode", good_, "-o", project_}, 2,
                "zbc: --output: " + project_ + " is a project (see zbc --help)\n");
    expectFault({"decode", good_, "-o", good_}, 2,
                "zbc: --output: " + good_ + " is what is read (see zbc --help)\n");
    const std::string sml = write("log.sml", recording);
    expectFault({"learn", sml, sml}, 2, "zbc: " + sml + " is what is read (see zbc --help)\n");
    EXPECT_EQ(test::readFile(good_), recording);
    EXPECT_EQ(test::readFile(sml), recording);
    EXPECT_EQ(test::readFile(project_), project);
}

TEST_F(RecordingVerbs, ARecordingThatCannotBeReadOnIsReported) {
    // Reading this regular file fails.
    const Outcome run = runZbc({"decode", "/proc/self/mem"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("the file cannot be read on from here"), std::string::npos) << run.err;
    const Outcome expected = runZbc({"rehearse", project_, good_, "--expect", "/proc/self/mem"});
    EXPECT_EQ(expected.status, 1);
    EXPECT_NE(expected.err.find("the expected result cannot be read on"), std::string::npos) << expected.err;
}

} // namespace
} // namespace zb
