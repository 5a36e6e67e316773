#include "unit/console/cli.h"
#include "unit/console/sarif_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zb {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// A project with a fault, a doubt and a finding of the standards check.
class CheckVerbTest : public Cli {
protected:
    CheckVerbTest()
        : file_(write(
              "Check.zbp",
              encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                          "* a\r\nAsk: S1 F17 H->E.\r\n* b\r\nAnswer: S1 F18 H<-E\r\n    B 1 ONLACK 0.\r\n"
                          "* c\r\nOwn: S64 F1 H->E\r\n    L 2\r\n        U1 1 SLOT 0.\r\n"
                          "* d\r\nown: S64 F3 H->E.\r\n"
                          "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] Gone\r\n  SECSMessage None\r\n"
                          "  Direction 2\r\nEndTRMessage\r\n\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n"
                          "SeqName\u00FFEmpty\u00FF\u00FF\r\n"))) {}

    std::string line(const std::string& rest) const { return file_ + ": " + rest + "\n"; }

    const std::string count_ = "Own: 1: The count of sub items is not correct. Change the item count";
    const std::string unknown_ = "Gone: Select a valid SECSMessage! There is no \"None\"";
    const std::string empty_ = "Empty: Not defined SequenceItem!";
    const std::string wait_ = "Ask: warning: S1F17 needs a reply, and has no W";
    const std::string twice_ = "own: warning: The name of this message is used twice";
    std::string file_;
};

TEST_F(CheckVerbTest, ReportsStandardsWhenAskedFor) {
    const std::string faults = line(count_) + line(unknown_) + line(empty_);
    expectFault({"check", file_}, 1, faults);
    expectFault({"check", file_, "--warnings"}, 1,
                line(count_) + line(twice_) + line(unknown_) + line(empty_));
    const std::string all = line(count_) + line(twice_) + line(wait_) + line(unknown_) + line(empty_);
    expectFault({"check", file_, "--standard"}, 1, all);
    expectFault({"check", file_, "--standard", "--warnings"}, 1, all);
    expectFault({"check", file_, "--standard", "--except", "definition,model"}, 1, line(wait_));
    expectFault({"check", file_, "--except", "definition", "--except", "tr,seq"}, 0, "");
}

TEST_F(CheckVerbTest, ReportsOnlyTheRulesThatAreNamed) {
    expectFault({"check", file_, "--only", "smd.name"}, 0, line(twice_));
    expectFault({"check", file_, "--only", "std,seq.empty"}, 1, line(wait_) + line(empty_));
    expectFault({"check", file_, "--only", "style"}, 0, "");
    expectFault({"check", file_, "--only", "nothing"}, 2,
                "zbc: no rule is named \"nothing\" (see zbc --help)\n");
    expectFault({"check"}, 2, "zbc: PROJECT is required (see zbc --help)\n");
}

TEST_F(CheckVerbTest, ListsTheRules) {
    const Outcome run = runZbc({"check", "--rules"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("\nsmd.item.count "));
    EXPECT_THAT(run.out, StartsWith("key.equal "));
}

TEST_F(CheckVerbTest, IsSilencedByAFileBesideTheProject) {
    write("Check.zbcheck", "# meant\nsmd.item.count Own 1\nseq\nno rule\n");
    expectFault({"check", file_}, 1, line(unknown_));
    write("Check.zbcheck", "definition\nmodel\n");
    expectFault({"check", file_}, 0, "");
    std::filesystem::remove(path("Check.zbcheck"));
    std::filesystem::create_directory(path("Check.zbcheck"));
    const Outcome run = runZbc({"check", file_});
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.err, StartsWith(path("Check.zbcheck") + ": cannot be read: "));
}

TEST_F(CheckVerbTest, GivesLinesInJson) {
    const Outcome run = runZbc({"check", file_, "--standard", "--warnings", "--format", "json"});
    EXPECT_EQ(run.status, 1);
    std::vector<std::string> places;
    std::istringstream lines(run.out);
    for (std::string text; std::getline(lines, text);) {
        const auto json = nlohmann::json::parse(text);
        places.push_back(json["id"].get<std::string>() + " " + std::to_string(json["line"].get<int>()) + ":" +
                         std::to_string(json["column"].get<int>()));
    }
    EXPECT_THAT(places,
                testing::ElementsAre("smd.item.count 12:5", "smd.name.twice 15:1", "std.wait.missing 6:1",
                                     "tr.secs.unknown 17:1", "seq.empty 25:1"));
}

TEST_F(CheckVerbTest, GivesASarifLogThatItsSchemaAllows) {
    const Outcome run = runZbc({"check", file_, "--standard", "--format", "sarif"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const auto log = nlohmann::json::parse(run.out);
    EXPECT_EQ(test::sarifFault(log), "");
    const auto& result = log["runs"][0]["results"][0];
    EXPECT_EQ(result["ruleId"], "smd.item.count");
    EXPECT_EQ(log["runs"][0]["tool"]["driver"]["rules"][result["ruleIndex"].get<std::size_t>()]["id"],
              "smd.item.count");
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["region"]["startLine"], 12);
    EXPECT_EQ(result["locations"][0]["logicalLocations"][0]["fullyQualifiedName"], "Own/1");
    EXPECT_EQ(log["runs"][0]["results"].size(), 5U);
}

TEST_F(CheckVerbTest, EscapesTheNameOfTheFileInSarif) {
    const std::string odd = write("a b%\u00E4.zbp", *readBytes(file_));
    const auto log = nlohmann::json::parse(runZbc({"check", odd, "--format", "sarif"}).out);
    EXPECT_EQ(test::sarifFault(log), "");
    EXPECT_THAT(log["runs"][0]["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"]
                    .get<std::string>(),
                testing::EndsWith("/a%20b%25%C3%A4.zbp"));
}

TEST(SarifCheck, FindsWhatTheFormatForbids) {
    const auto good = nlohmann::json::parse(
        R"({"version":"2.1.0","runs":[{"tool":{"driver":{"name":"zbc"}},"results":[{"message":{"text":"x"}}]}]})");
    EXPECT_EQ(test::sarifFault(good), "");
    const auto without = [&](const std::string& pointer) {
        auto log = good;
        const nlohmann::json::json_pointer place(pointer);
        log[place.parent_pointer()].erase(place.back());
        return test::sarifFault(log);
    };
    EXPECT_NE(without("/version"), "");
    EXPECT_NE(without("/runs"), "");
    EXPECT_NE(without("/runs/0/tool"), "");
    EXPECT_NE(without("/runs/0/results/0/message"), "");
    auto log = good;
    log["runs"][0]["results"][0]["level"] = "fatal";
    EXPECT_NE(test::sarifFault(log), "");
    log = good;
    log["runs"][0]["results"][0]["line"] = 3;
    EXPECT_NE(test::sarifFault(log), "");
}

} // namespace
} // namespace zb
