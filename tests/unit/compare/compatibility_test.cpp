#include "compare/compatibility.h"

#include "compare/project_comparison.h"
#include "unit/compare/compared_texts.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::projectOf;

/// Each difference with a rule: the rule and the class.
std::string judged(const std::string& before, const std::string& after) {
    const Project left = projectOf(before);
    const Project right = projectOf(after);
    std::string lines;
    for (const CompatibilityFinding& finding :
         judgeCompatibility(left, right, compareProjects(left, right))) {
        EXPECT_EQ(finding.rule.empty(), finding.reason.empty());
        lines.append(finding.rule).append(finding.rule.empty() ? "" : ": ");
        lines.append(wordOf(finding.effect)).append("\n");
    }
    return lines;
}

std::string message(const std::string& head, const std::string& item = "U4 1 A 0") {
    return "* d\nM: " + head + "\n    " + item + ".\n";
}

TEST(Compatibility, OfNamesDescriptionsAndLoggingIsNone) {
    EXPECT_EQ(
        judged("* d\nM: S1 F1 W H->E\n    U4 1 A 5.\n", "* e\nN: S1 F1 W <R> <NL> H->E\n    U4 1 B 6.\n"),
        "none\nnone\nnone\nnone\nnone\nnone\n");
}

TEST(Compatibility, OfANewMessageIsAnExtension) {
    EXPECT_EQ(judged("", message("S1 F1 H->E")), "compat.message.added: extension\n");
}

TEST(Compatibility, OfARemovedMessageBreaksBoth) {
    EXPECT_EQ(judged(message("S1 F1 H->E"), ""), "compat.message.removed: breaking for both\n");
}

TEST(Compatibility, OfAnotherNumberBreaksBoth) {
    EXPECT_EQ(judged(message("S1 F1 H->E"), message("S1 F3 H->E")), "compat.number: breaking for both\n");
}

TEST(Compatibility, OfAMessageThatIsKeptUnderAnotherNameIsNone) {
    const std::string twice = "* d\nM: S1 F1 H->E.\n* d\nN: S1 F3 H->E.\n";
    EXPECT_EQ(judged(twice, "* d\nM: S1 F3 H->E.\n* d\nN: S1 F1 H->E.\n"),
              "compat.number: none\ncompat.number: none\n");
    EXPECT_EQ(judged("* d\nM: S1 F1 H->E.\n* d\nN: S1 F1 H->E.\n", "* d\nN: S1 F1 H->E.\n"),
              "compat.message.removed: none\n");
}

TEST(Compatibility, OfADirectionThatIsLostBreaksBoth) {
    EXPECT_EQ(judged(message("S1 F1 H<->E"), message("S1 F1 H->E")), "compat.direction: breaking for both\n");
    EXPECT_EQ(judged(message("S1 F1 H<-E"), message("S1 F1 H->E")), "compat.direction: breaking for both\n");
    EXPECT_EQ(judged(message("S1 F1 H->E"), message("S1 F1 H<->E")), "compat.direction.wider: extension\n");
}

TEST(Compatibility, OfANewWaitBreaksTheReceiver) {
    EXPECT_EQ(judged(message("S6 F11 H<-E"), message("S6 F11 W H<-E")),
              "compat.wait.added: breaking for the host\n");
    EXPECT_EQ(judged(message("S2 F41 H->E"), message("S2 F41 W H->E")),
              "compat.wait.added: breaking for the equipment\n");
    EXPECT_EQ(judged(message("S1 F1 H<->E"), message("S1 F1 W H<->E")),
              "compat.wait.added: breaking for both\n");
}

TEST(Compatibility, OfALostWaitBreaksTheSender) {
    EXPECT_EQ(judged(message("S6 F11 W H<-E"), message("S6 F11 H<-E")),
              "compat.wait.removed: breaking for the equipment\n");
    EXPECT_EQ(judged(message("S2 F41 W H->E"), message("S2 F41 H->E")),
              "compat.wait.removed: breaking for the host\n");
}

TEST(Compatibility, OfAWaitOnAReplyIsNone) {
    EXPECT_EQ(judged(message("S6 F12 W H->E"), message("S6 F12 H->E")), "none\n");
}

TEST(Compatibility, OfAnotherFormatOrderOrNumberOfItemsBreaksBoth) {
    const std::string head = "* d\nM: S1 F3 H->E\n";
    EXPECT_EQ(judged(head + "    U2 1 A 0.\n", head + "    U4 1 A 0.\n"), "compat.type: breaking for both\n");
    EXPECT_EQ(judged(head + "    U2 1 A 0\n    U2 1 B 0.\n", head + "    U2 1 B 0\n    U2 1 A 0.\n"),
              "compat.item.order: breaking for both\n");
    EXPECT_EQ(judged(head + "    U2 1 A 0.\n", head + "    U2 1 A 0\n    A 1V B ''.\n"),
              "compat.item.added: breaking for both\n");
    EXPECT_EQ(judged(head + "    U2 1 A 0\n    A 1V B ''.\n", head + "    U2 1 A 0.\n"),
              "compat.item.removed: breaking for both\n");
}

TEST(Compatibility, OfAnyFormatDependsOnWhoSends) {
    const auto types = [](const std::string& direction, const std::string& before, const std::string& after) {
        return judged(message("S1 F4 " + direction, before + " 8V T ''"),
                      message("S1 F4 " + direction, after + " 8V T ''"));
    };
    EXPECT_EQ(types("H<-E", "X", "A"), "compat.type: breaking for the equipment\n");
    EXPECT_EQ(types("H<-E", "A", "X"), "compat.type: breaking for the host\n");
    EXPECT_EQ(types("H->E", "X", "A"), "compat.type: breaking for the host\n");
    EXPECT_EQ(types("H<->E", "A", "X"), "compat.type: breaking for both\n");
}

TEST(Compatibility, OfAKeyValueInOtherDigitsIsNone) {
    const auto keys = [](const std::string& type, const std::string& before, const std::string& after) {
        return judged(message("S6 F11 H<-E", type + " CEID " + before + " [K]"),
                      message("S6 F11 H<-E", type + " CEID " + after + " [K]"));
    };
    EXPECT_EQ(keys("U4 1", "7", "007"), "none\n");
    EXPECT_EQ(keys("I2 2", "0 -5", "00 -05"), "none\n");
    EXPECT_EQ(keys("I2 1", "5", "-5"), "compat.key.value: breaking for both\n");
    EXPECT_EQ(keys("U4 2", "7 1", "7 10"), "compat.key.value: breaking for both\n");
    EXPECT_EQ(keys("A 2", "'7'", "'07'"), "compat.key.value: breaking for both\n");
}

TEST(Compatibility, OfACountDependsOnWhoSends) {
    const auto counts = [](const std::string& direction, const std::string& before,
                           const std::string& after) {
        return judged(message("S1 F3 " + direction, "A " + before + " T ''"),
                      message("S1 F3 " + direction, "A " + after + " T ''"));
    };
    EXPECT_EQ(counts("H->E", "16V", "32V"), "compat.count.larger: extension\n");
    EXPECT_EQ(counts("H->E", "32V", "16V"), "compat.count: breaking for the host\n");
    EXPECT_EQ(counts("H<-E", "32V", "16V"), "compat.count: breaking for the equipment\n");
    EXPECT_EQ(counts("H->E", "6", "16V"), "compat.count: breaking for the equipment\n");
    EXPECT_EQ(counts("H->E", "16V", "6"), "compat.count: breaking for the host\n");
    EXPECT_EQ(counts("H->E", "6", "4V"), "compat.count: breaking for both\n");
    EXPECT_EQ(counts("H->E", "6", "7"), "compat.count: breaking for both\n");
    EXPECT_EQ(counts("H<->E", "6", "16V"), "compat.count: breaking for both\n");
}

TEST(Compatibility, OfAVariableListCountsItsItems) {
    const std::string head = "* d\nM: S1 F3 H<-E\n";
    EXPECT_EQ(judged(head + "    L 5V\n        U2 1 A 0.\n", head + "    L 9V\n        U2 1 A 0.\n"),
              "compat.count.larger: extension\n");
}

TEST(Compatibility, OfAKeyDependsOnWhoRecognisesIt) {
    const std::string head = "S6 F11 H<-E";
    EXPECT_EQ(judged(message(head, "U4 1 CEID 7 [K]"), message(head, "U4 1 CEID 8 [K]")),
              "compat.key.value: breaking for both\n");
    EXPECT_EQ(judged(message(head, "U4 1 CEID 7"), message(head, "U4 1 CEID 7 [K]")),
              "compat.key.added: breaking for the equipment\n");
    EXPECT_EQ(judged(message(head, "U4 1 CEID 7 [K]"), message(head, "U4 1 CEID 7")),
              "compat.key.removed: breaking for the host\n");
}

} // namespace
} // namespace zb
