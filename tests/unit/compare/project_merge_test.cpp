#include "compare/project_merge.h"

#include "project/project_text.h"
#include "unit/compare/compared_texts.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::projectOf;

const std::string kHello = "* Are you there\nHello: S1 F1 W H<->E.\n";
const std::string kData = "* Data\nData: S1 F2 H<-E\n    L 2\n        A 6 MDLN 'ETCHER'\n"
                          "        A 6 SOFTREV 'V01R01'.\n";

std::string withLf(const std::string& text) {
    std::string lines;
    for (const char character : text)
        lines.append(character == '\r' ? 0 : 1, character);
    return lines;
}

std::string changed(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

std::string linesOf(const std::vector<MergeConflict>& conflicts) {
    std::string lines;
    const auto value = [](const std::optional<std::string>& text) { return text ? "'" + *text + "'" : "-"; };
    for (const MergeConflict& conflict : conflicts)
        lines.append(wordOf(conflict.kind))
            .append(" ")
            .append(conflict.place.name)
            .append("@")
            .append(conflict.place.path + " " + conflict.field + ": " + value(conflict.base) + " " +
                    value(conflict.ours) + " " + value(conflict.theirs) + "\n");
    return lines;
}

struct Merged {
    std::string messages;
    std::string conflicts;
};

Merged merged(const std::string& base, const std::string& ours, const std::string& theirs,
              Preferred preferred = Preferred::Ours) {
    const ProjectMerge merge = mergeProjects(projectOf(base), projectOf(ours), projectOf(theirs), preferred);
    return {withLf(merge.project.messages.text()), linesOf(merge.conflicts)};
}

TEST(ProjectMerge, TakesTheMessagesThatBothSidesAdded) {
    const std::string ours = "* o\nOurs: S2 F1 H->E.\n";
    const std::string theirs = "* t\nTheirs: S2 F3 H->E.\n";
    const Merged merge = merged(kHello, kHello + theirs, kHello + ours);
    EXPECT_EQ(merge.messages, kHello + ours + theirs);
    EXPECT_EQ(merge.conflicts, "");
}

TEST(ProjectMerge, TakesOnceWhatBothSidesAddedAlike) {
    EXPECT_EQ(merged(kHello, kHello + kData, kHello + kData).messages, kHello + kData);
}

TEST(ProjectMerge, ReportsMessagesOfOneNameThatDiffer) {
    const Merged merge = merged("", kHello, changed(kHello, " W", ""));
    EXPECT_EQ(merge.messages, kHello);
    EXPECT_EQ(merge.conflicts, "message Hello@ : - '* Are you there\nHello: S1 F1 W H<->E.' "
                               "'* Are you there\nHello: S1 F1 H<->E.'\n");
}

TEST(ProjectMerge, MergesFieldsOfAHeadOneByOne) {
    const Merged merge = merged(kHello, changed(kHello, "Hello:", "Hi:"),
                                changed(changed(kHello, " W", ""), "Are you there", "There?"));
    EXPECT_EQ(merge.messages, "* There?\nHi: S1 F1 H<->E.\n");
    EXPECT_EQ(merge.conflicts, "");
}

TEST(ProjectMerge, ReportsAFieldThatBothSidesChangedDifferently) {
    const std::string ours = changed(kHello, "S1", "S2");
    const std::string theirs = changed(changed(kHello, "S1", "S3"), " W", "");
    const Merged forUs = merged(kHello, ours, theirs);
    EXPECT_EQ(forUs.messages, changed(ours, " W", ""));
    EXPECT_EQ(forUs.conflicts, "message Hello@ stream: '1' '2' '3'\n");
    EXPECT_EQ(merged(kHello, ours, theirs, Preferred::Theirs).messages, theirs);
}

TEST(ProjectMerge, CountsTheItemsThatBothSidesAddedToAList) {
    const Merged merge = merged(
        kData,
        changed(changed(kData, "L 2", "L 3"), "        A 6 MDLN", "        U1 1 OURS 0\n        A 6 MDLN"),
        changed(changed(kData, "L 2", "L 3"), "'V01R01'", "'V01R01'\n        U1 1 THEIRS 0"));
    EXPECT_EQ(merge.messages,
              "* Data\nData: S1 F2 H<-E\n    L 4\n        U1 1 OURS 0\n        A 6 MDLN 'ETCHER'\n"
              "        A 6 SOFTREV 'V01R01'\n        U1 1 THEIRS 0.\n");
    EXPECT_EQ(merge.conflicts, "");
}

TEST(ProjectMerge, ReportsAnItemThatBothSidesChangedDifferently) {
    const Merged merge = merged(kData, changed(kData, "V01R01", "V02"),
                                changed(kData, "SOFTREV 'V01R01'", "REVISION 'V01R01'"));
    EXPECT_EQ(merge.messages, changed(kData, "V01R01", "V02"));
    EXPECT_EQ(merge.conflicts, "item Data@1/2 text: 'A 6 SOFTREV 'V01R01'' 'A 6 SOFTREV 'V02'' "
                               "'A 6 REVISION 'V01R01''\n");
}

TEST(ProjectMerge, ReportsAChangeOfWhatTheOtherSideRemoved) {
    const std::string changedData = changed(kData, "V01R01", "V02");
    const Merged kept = merged(kHello + kData, kHello + changedData, kHello);
    EXPECT_EQ(kept.messages, kHello + changedData);
    EXPECT_NE(kept.conflicts.find("message Data@ :"), std::string::npos) << kept.conflicts;
    const Merged removed = merged(kHello + kData, kHello, kHello + changedData);
    EXPECT_EQ(removed.messages, kHello);
    EXPECT_NE(removed.conflicts.find(" - '* Data\nData:"), std::string::npos) << removed.conflicts;
    EXPECT_EQ(merged(kHello + kData, kHello, kHello + changedData, Preferred::Theirs).messages,
              kHello + changedData);
}

TEST(ProjectMerge, GivesANameOnce) {
    const std::string other = "* o\nOther: S2 F1 H->E.\n";
    const Merged merge = merged(kHello + other, changed(kHello, "Hello:", "New:") + other,
                                kHello + changed(other, "Other:", "new:"));
    EXPECT_EQ(merge.messages, changed(kHello, "Hello:", "New:") + other);
    EXPECT_NE(merge.conflicts.find("message Other@ name:"), std::string::npos) << merge.conflicts;
    const Merged added =
        merged(kHello, changed(kHello, "Hello:", "New:"), kHello + "* n\nNEW: S9 F1 H->E.\n");
    EXPECT_EQ(added.messages, changed(kHello, "Hello:", "New:") + "* n\nNEW_theirs: S9 F1 H->E.\n");
    EXPECT_EQ(added.conflicts, "message NEW_theirs@ name: - - 'NEW'\n");
}

TEST(ProjectMerge, GivesAMessageOneKeyAndItsItemsDifferentNames) {
    const std::string base = "* d\nM: S6 F11 H<-E\n    U4 1 A 0\n    U4 1 B 0.\n";
    const Merged keys = merged(base, changed(base, "A 0", "A 0 [K]"), changed(base, "B 0", "B 0 [K]"));
    EXPECT_EQ(keys.messages, changed(base, "A 0", "A 0 [K]"));
    EXPECT_NE(keys.conflicts.find("message M@ items:"), std::string::npos) << keys.conflicts;
    const Merged names = merged(base, changed(base, "1 A", "1 X"), changed(base, "1 B", "1 X"));
    EXPECT_EQ(names.messages, changed(base, "1 A", "1 X"));
    EXPECT_NE(names.conflicts.find("message M@ items:"), std::string::npos) << names.conflicts;
}

TEST(ProjectMerge, ReportsAMessageThatBothSidesMovedDifferently) {
    const std::string a = "* a\nA: S1 F1 H->E.\n";
    const std::string b = "* b\nB: S1 F3 H->E.\n";
    const std::string c = "* c\nC: S1 F5 H->E.\n";
    const std::string d = "* d\nD: S1 F7 H->E.\n";
    const Merged merge = merged(a + b + c + d, b + c + d + a, b + c + a + d);
    EXPECT_EQ(merge.messages, b + c + d + a);
    EXPECT_EQ(merge.conflicts, "message A@ position: '1' '4' '3'\n");
}

TEST(ProjectMerge, KeepsLinesThatNobodyTouchedAsTheyAre) {
    const std::string odd = "* odd\nOdd: S1 F9 H->E\n     L 1   \n            U1 1 x 0.\n\n\n";
    EXPECT_EQ(merged(odd + kHello, odd + changed(kHello, " W", ""), odd + kHello + kData).messages,
              odd + changed(kHello, " W", "") + kData);
}

TEST(ProjectMerge, KeepsBlankLinesBeforeTheFirstMessage) {
    EXPECT_EQ(merged(kHello, "\n\n" + kHello, kHello).messages, "\n\n" + kHello);
    EXPECT_EQ(merged(kHello, kHello, " \n" + kHello + kData).messages, " \n" + kHello + kData);
    EXPECT_EQ(merged("\n" + kHello, "\n" + kHello, kHello).messages, kHello);
    EXPECT_EQ(merged("", "\n" + kHello, "").messages, "\n" + kHello);
}

TEST(ProjectMerge, MergesTheModelAndTheSequences) {
    const std::string rest =
        "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Go\n  SECSMessage Hello\n  Condition ({A} == 1)\n"
        "  Report True\n  Direction 1\nEndTRMessage\n\n\n\n###[SEQUENCE TABLE]\nSeqName\u00FFMain\u00FF\u00FF\n"
        "SeqItem\u00FF1\u00FFToEquip\u00FFGo\n";
    const std::string ours = changed(rest, "== 1", "== 2");
    const std::string theirs =
        changed(changed(rest, "Report True", "Report False"), "SeqItem\u00FF1\u00FFToEquip\u00FFGo\n",
                "SeqItem\u00FF1\u00FFToHost\u00FFSay\nSeqItem\u00FF2\u00FFToEquip\u00FFGo\n");
    const ProjectMerge merge =
        mergeProjects(projectOf(kHello, rest), projectOf(kHello, ours), projectOf(kHello, theirs));
    EXPECT_EQ(linesOf(merge.conflicts), "");
    EXPECT_EQ(composeProject(merge.project),
              composeProject(projectOf(kHello, changed(theirs, "== 1", "== 2"))));
}

TEST(ProjectMerge, RenamesAMessageInTheTrMessagesThatTheOtherSideAdded) {
    const std::string start = "###[TRANSACTION MODEL] 1\n";
    const std::string added = "## [TR MESSAGE] Say\n  SECSMessage Data\n  Report False\n  Direction 2\n"
                              "  DataBlock Data: S1 F2 H<-E\n    Item 1 U1 1 A 0\nEndTRMessage\n";
    const Project base = projectOf(kHello + kData, start);
    const Project renamed = projectOf(kHello + changed(kData, "Data: S1", "OnLineData: S1"), start);
    const Project adding = projectOf(kHello + kData, start + added);
    for (const bool renamesOurs : {true, false}) {
        const ProjectMerge merge =
            renamesOurs ? mergeProjects(base, renamed, adding) : mergeProjects(base, adding, renamed);
        EXPECT_EQ(linesOf(merge.conflicts), "");
        const TRMessageRecord* say = merge.project.model->getTRMessage("Say");
        ASSERT_NE(say, nullptr);
        EXPECT_EQ(say->SECSMessage(), "OnLineData");
        ASSERT_TRUE(say->DataBlock().has_value());
        EXPECT_EQ(say->DataBlock()->getNodeText(), "OnLineData: S1 F2 H<-E");
    }
}

TEST(ProjectMerge, LeavesTrMessagesThatTheRenamingSideLeft) {
    const std::string rest = "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Say\n  SECSMessage Data\n"
                             "  Report False\n  Direction 2\nEndTRMessage\n";
    const Project base = projectOf(kData, rest);
    const Project renamed = projectOf(changed(kData, "Data: S1", "OnLineData: S1"), rest);
    const ProjectMerge merge = mergeProjects(base, renamed, projectOf(kData + kHello, rest));
    EXPECT_EQ(merge.project.model->getTRMessage("Say")->SECSMessage(), "Data");
}

TEST(ProjectMerge, ReportsItemsOfADataBlockThatTheOtherSideRemoved) {
    const std::string with = "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Say\n  SECSMessage Data\n"
                             "  Report False\n  Direction 2\n  DataBlock Data: S1 F2 H<-E\n"
                             "    Item 1 U1 1 A 0\nEndTRMessage\n";
    const std::string without = "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Say\n  SECSMessage Data\n"
                                "  Report False\n  Direction 2\nEndTRMessage\n";
    const ProjectMerge merge = mergeProjects(projectOf("", with), projectOf("", without),
                                             projectOf("", changed(with, "A 0", "A 5")));
    const std::string block = "DataBlock Data: S1 F2 H<-E\n  Item 1 U1 1 A ";
    EXPECT_EQ(linesOf(merge.conflicts), "tr-message Say@ block: '" + block + "0' - '" + block + "5'\n");
    const ProjectMerge theirs = mergeProjects(projectOf("", with), projectOf("", without),
                                              projectOf("", changed(with, "A 0", "A 5")), Preferred::Theirs);
    EXPECT_EQ(composeProject(theirs.project), composeProject(projectOf("", changed(with, "A 0", "A 5"))));
}

TEST(ProjectMerge, PlacesAConflictAmongTheItemsThatOnlyOneSideAdded) {
    const std::string theirs =
        changed(changed(kData, "L 2", "L 3"), "        A 6 MDLN", "        U1 1 NEW 0\n        A 6 MDLN");
    const Merged text = merged(kData, changed(kData, "V01R01", "V02"), changed(theirs, "V01R01", "V03"));
    EXPECT_EQ(text.messages, changed(theirs, "V01R01", "V02"));
    EXPECT_EQ(text.conflicts.find("item Data@1/3 text:"), 0U) << text.conflicts;
    // An item that ours removed would be after the one that it follows.
    const std::string ours = changed(changed(kData, "L 2", "L 1"), "        A 6 MDLN 'ETCHER'\n", "");
    const Merged gone = merged(kData, ours, changed(theirs, "ETCHER", "E2"));
    EXPECT_EQ(gone.conflicts.find("item Data@1/2 : 'A 6 MDLN 'ETCHER'' - "), 0U) << gone.conflicts;
}

TEST(ProjectMerge, PlacesAConflictInTheMessageThatTheOtherSideRenamed) {
    const Merged merge = merged(kData, changed(kData, "V01R01", "V02"),
                                changed(changed(kData, "V01R01", "V03"), "Data: S1", "New: S1"));
    EXPECT_EQ(merge.conflicts.find("item New@1/2 text:"), 0U) << merge.conflicts;
}

TEST(ProjectMerge, ReportsATrItemThatBothSidesMovedDifferently) {
    const auto model = [](const std::string& order) {
        std::string text = "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Say\n  SECSMessage Data\n";
        for (const char name : order)
            text.append("  TRItem ")
                .append(1, name)
                .append("\n    Type STRING\n    Value ")
                .append(1, name)
                .append("\n  EndTRItem\n");
        return text + "EndTRMessage\n";
    };
    const ProjectMerge merge = mergeProjects(projectOf(kData, model("ABCD")), projectOf(kData, model("BCDA")),
                                             projectOf(kData, model("BCAD")));
    EXPECT_EQ(linesOf(merge.conflicts), "tr-item Say@A position: '1' '4' '3'\n");
}

} // namespace
} // namespace zb
