#include "lint/cures.h"

#include "lint/project_check.h"
#include "messages/definition_check.h"
#include "messages/smd/smd_reader.h"
#include "unit/lint/checked_project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb {
namespace {

using test::placesOf;

Findings findingsOf(const NodeTree& tree) {
    Findings findings = checkDefinitions(tree, CodePage(1252));
    for (Finding& finding : StandardCheck(CodePage(1252)).checkMessages(tree))
        findings.push_back(std::move(finding));
    return findings;
}

/// The title of the cure of the only finding; afterwards there is none.
std::string curedBy(const std::string& messages, const std::string& finding) {
    NodeTree tree;
    readSmdSection(tree, messages);
    const Findings before = findingsOf(tree);
    EXPECT_THAT(placesOf(before), testing::ElementsAre(finding));
    const auto cure = cureOf(before.at(0), tree);
    if (!cure)
        return "none";
    apply(*cure, tree);
    EXPECT_THAT(placesOf(findingsOf(tree)), testing::ElementsAre()) << cure->title;
    return cure->title;
}

constexpr const char* kOnLine =
    "* d\nRequestOnLine: S1 F17 W H->E.\n* d\nOnLine: S1 F18 H<-E\n    B 1 ONLACK 0.\n";

TEST(Cures, SetTheCountOfAList) {
    EXPECT_EQ(curedBy("* d\nOwn: S64 F1 H->E\n    L 3 NAME [K]\n        U1 1 A 0\n        U1 1 B 0.\n",
                      "smd.item.count: Own: 1"),
              "Set the count to 2");
}

TEST(Cures, RenameASecondItem) {
    EXPECT_EQ(curedBy("* d\nOwn: S64 F1 H->E\n    L 2\n        U1 1 A 0\n        U1 1 a 0.\n",
                      "smd.item.twice: Own: 1/2"),
              "Rename the item to a1");
}

TEST(Cures, RenameASecondMessage) {
    EXPECT_EQ(curedBy("* d\nOwn: S64 F1 H->E.\n* d\nown: S64 F3 <NL> H->E.\n", "smd.name.twice: own"),
              "Rename the message to own1");
}

TEST(Cures, SetAndRemoveW) {
    EXPECT_EQ(curedBy("* d\nRequestOnLine: S1 F17 H->E.\n* d\nOnLine: S1 F18 H<-E\n    B 1 ONLACK 0.\n",
                      "std.wait.missing: RequestOnLine"),
              "Set W");
    EXPECT_EQ(
        curedBy("* d\nRequestOnLine: S1 F17 W H->E.\n* d\nOnLine: S1 F18 W <NL> H<-E\n    B 1 ONLACK 0.\n",
                "std.wait.forbidden: OnLine"),
        "Remove W");
}

TEST(Cures, AddAMissingReply) {
    EXPECT_EQ(
        curedBy("* d\nS2F42: S64 F1 H->E.\n* d\nStart: S2 F41 W H->E\n    L 2\n        A 5 RCMD 'START'\n"
                "        L 0.\n",
                "std.reply.missing: Start"),
        "Add the reply S2F421");
    EXPECT_EQ(curedBy("* d\nOwn: S64 F1 W H->E.\n", "std.reply.missing: Own"), "Add the reply S64F2");
    EXPECT_EQ(curedBy("* d\nOwn: S64 F1 W H<->E.\n* d\nDone: S64 F2 H<-E.\n", "std.reply.missing: Own"),
              "Add the reply S64F2");
}

TEST(Cures, AreNotMadeForWhatIsCuredOrHasNoSingleCure) {
    NodeTree tree;
    readSmdSection(tree, kOnLine);
    const auto at = [](const std::string& id, int node) {
        return Finding{Severity::Warning, FindingPlace::inMessage("M", "", node), "", id};
    };
    EXPECT_FALSE(cureOf(at("std.structure", 3), tree));
    EXPECT_FALSE(cureOf(at("smd.item.count", 7), tree)) << "no list";
    EXPECT_FALSE(cureOf(at("std.wait.missing", 100), tree));
    EXPECT_FALSE(cureOf(at("", 3), tree));
}

} // namespace
} // namespace zb
