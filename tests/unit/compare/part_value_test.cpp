#include "compare/part_value.h"

#include "compare/conflict_file.h"
#include "compare/place_following.h"
#include "compare/project_merge.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "unit/compare/compared_texts.h"
#include "unit/compare/random_project.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

using test::projectOf;
using test::RandomProject;

constexpr const char* kMessages = "* one\nA: S1 F1 W H->E\n    L 2\n        U2 1 x 1\n        U2 1 y 2.\n"
                                  "* two\nB: S1 F3 H->E.\n";

std::string messagesOf(const Result<Project, std::string>& project) {
    if (!project)
        return "cannot: " + project.error();
    std::string text;
    for (const char character : project->messages.text())
        text.append(character == '\r' ? 0 : 1, character);
    return text;
}

ValuePlace item(const std::string& path, const std::string& field = {}) {
    return {PartKind::Item, {"A", path}, field};
}

TEST(PartValue, OfAFieldIsReadAndSet) {
    const Project project = projectOf(kMessages);
    const ValuePlace stream{PartKind::Message, {"B", {}}, "stream"};
    EXPECT_EQ(valueAt(project, stream), "1");
    EXPECT_NE(messagesOf(withValue(project, stream, "6")).find("B: S6 F3 H->E."), std::string::npos);
    const ValuePlace description{PartKind::Message, {"A", {}}, "description"};
    EXPECT_EQ(messagesOf(withValue(project, description, "other")).find("* other\nA: S1"), 0U);
}

TEST(PartValue, OfAnItemFollowsWithTheCountOfItsList) {
    const Project project = projectOf(kMessages);
    EXPECT_EQ(valueAt(project, item("1/2")), "U2 1 y 2");
    EXPECT_EQ(valueAt(project, item("1/2", "text")), "U2 1 y 2");
    EXPECT_EQ(valueAt(project, item("1/3")), std::nullopt);
    EXPECT_NE(messagesOf(withValue(project, item("1/1"), std::nullopt)).find("    L 1\n        U2 1 y 2."),
              std::string::npos);
    EXPECT_NE(messagesOf(withValue(project, item("1/2"), "L 1 sub\n    U1 1 z 3"))
                  .find("    L 2\n        U2 1 x 1\n        L 1 sub\n            U1 1 z 3."),
              std::string::npos);
    EXPECT_NE(messagesOf(withValue(project, item("1/3"), "U1 1 z 3"))
                  .find("    L 3\n        U2 1 x 1\n        U2 1 y 2\n        U1 1 z 3."),
              std::string::npos);
    EXPECT_EQ(messagesOf(withValue(project, item("4/1"), "U1 1 z 3")),
              "cannot: the list that it belongs to is missing");
}

TEST(PartValue, OfAWholeMessageIsRemovedReplacedOrAdded) {
    const Project project = projectOf(kMessages);
    const ValuePlace whole{PartKind::Message, {"B", {}}, {}};
    EXPECT_EQ(valueAt(project, whole), "* two\nB: S1 F3 H->E.");
    EXPECT_EQ(messagesOf(withValue(project, whole, std::nullopt)).find("B: S1"), std::string::npos);
    const ValuePlace added{PartKind::Message, {"C", {}}, {}};
    EXPECT_EQ(messagesOf(withValue(project, added, "* three\nC: S1 F5 H->E.")),
              std::string(kMessages) + "* three\nC: S1 F5 H->E.\n");
}

TEST(PartValue, OfAPositionMovesThePart) {
    const Project project = projectOf(kMessages);
    const ValuePlace message{PartKind::Message, {"A", {}}, "position"};
    EXPECT_EQ(valueAt(project, message), "1");
    EXPECT_EQ(messagesOf(withValue(project, message, "2")).find("* two\nB:"), 0U);
    EXPECT_EQ(messagesOf(withValue(project, message, "first")), "cannot: a position is a number");
    EXPECT_EQ(valueAt(project, item("1/2", "position")), "1/2");
    EXPECT_NE(messagesOf(withValue(project, item("1/2", "position"), "7/1"))
                  .find("    L 2\n        U2 1 y 2\n        U2 1 x 1."),
              std::string::npos);
    EXPECT_NE(messagesOf(withValue(project, item("1/1", "position"), "9"))
                  .find("    L 2\n        U2 1 y 2\n        U2 1 x 1."),
              std::string::npos);
}

TEST(PartValue, OfAMissingItemIsInsertedAndOverwritesNothing) {
    const Project project = projectOf(kMessages);
    const ValuePlace missing{PartKind::Item, {"A", "1/1"}, {}, true};
    EXPECT_EQ(valueAt(project, missing), std::nullopt);
    EXPECT_EQ(messagesOf(withValue(project, missing, std::nullopt)), kMessages);
    EXPECT_NE(messagesOf(withValue(project, missing, "U1 1 z 3"))
                  .find("    L 3\n        U1 1 z 3\n        U2 1 x 1\n        U2 1 y 2."),
              std::string::npos);
}

TEST(PartValue, OfAListKeepsTheCountOfItsItems) {
    const Project project = projectOf(kMessages);
    EXPECT_NE(messagesOf(withValue(project, item("1", "text"), "L 5 list")).find("    L 2 list\n"),
              std::string::npos);
}

TEST(PartValue, ThatWouldBeSomethingElseWhenItIsReadIsRefused) {
    const Project project = projectOf(kMessages);
    const auto field = [](const char* name) { return ValuePlace{PartKind::Message, {"B", {}}, name}; };
    EXPECT_EQ(messagesOf(withValue(project, field("name"), "A")), "cannot: another one has this name");
    EXPECT_EQ(messagesOf(withValue(project, field("name"), "a")), "cannot: another one has this name");
    for (const char* name : {"stream", "direction", "wait"})
        EXPECT_EQ(messagesOf(withValue(project, field(name), "x y")), "cannot: this value has another form");
    EXPECT_EQ(messagesOf(withValue(project, field("description"), "one\nC: S1 F1 H->E.")),
              "cannot: this value has another form");
    EXPECT_EQ(messagesOf(withValue(project, item("1/1", "text"), "U1 1 x 1.\n* d\nC: S1 F1 H->E")),
              "cannot: this value has another form");
}

TEST(PartValue, OfATrMessageIsReadAgainWithNothingLeftOut) {
    const std::string model =
        "###[TRANSACTION MODEL] 1\n## [TR MESSAGE] Say\n  SECSMessage B\n  Report False\n  Direction 2\n"
        "  DataBlock B: S1 F3 H->E\n    Item 1 U1 1 A 0\n  TRItem GROUP\n    Type STRING\n    Value A[1]\n"
        "    StatementText if ({A[1]} == 1):\n    StatementText  GROUP='V'\n    Element 1 Condition\n"
        "    Element 2 Statement Type=\"if\" Condition=\"({A[1]} == 1)\" \"V\"\n  EndTRItem\n"
        "  TRItem OTHER\n    Type STRING\n    Value A[2]\n  EndTRItem\nEndTRMessage\n";
    const Project project = projectOf(kMessages, model);
    const ValuePlace whole{PartKind::TrItem, {"Say", "GROUP"}, {}};
    const ValuePlace statements{PartKind::TrItem, {"Say", "GROUP"}, "statements"};
    const ValuePlace block{PartKind::TrMessage, {"Say", {}}, "block"};
    for (const ValuePlace& place : {whole, statements, block}) {
        const auto value = valueAt(project, place);
        ASSERT_TRUE(value.has_value());
        const auto without = withValue(project, place, std::nullopt);
        ASSERT_TRUE(without.ok()) << without.error();
        EXPECT_NE(valueAt(*without, place), value);
        const auto again = withValue(*without, place, value);
        ASSERT_TRUE(again.ok()) << again.error();
        EXPECT_EQ(valueAt(*again, place), value);
    }
    const ValuePlace position{PartKind::TrItem, {"Say", "OTHER"}, "position"};
    EXPECT_EQ(valueAt(project, position), "2");
    EXPECT_EQ(valueAt(*withValue(project, position, "1"), position), "1");
}

/// A base and two sides with many edits of it.
struct Sides {
    explicit Sides(unsigned seed) : edited(seed, 6), base(edited.project()), other(edited) {
        edited.edit(seed * 2 + 1, 12, "x");
        other.edit(seed * 2 + 2, 12, "y");
    }
    ProjectMerge merged(Preferred preferred) const {
        return mergeProjects(base, edited.project(), other.project(), preferred);
    }

    RandomProject edited;
    Project base;
    RandomProject other;
};

std::string describe(unsigned seed, const MergeConflict& conflict) {
    return "seed " + std::to_string(seed) + ": " + std::string(wordOf(conflict.kind)) + " " +
           conflict.place.name + " " + conflict.place.path + " " + conflict.field;
}

/// Without the names of messages, which follow what the other side renamed.
std::optional<std::string> withoutReferences(const std::optional<std::string>& value) {
    if (!value)
        return value;
    std::string text;
    LineReader lines(*value);
    while (const auto line = lines.next()) {
        if (!line->starts_with("  SECSMessage ") && !line->starts_with("  DataBlock "))
            text.append(*line).append("\n");
    }
    return text;
}

TEST(Conflicts, HaveTheirPlacesInTheMergedProject) {
    std::size_t seen = 0;
    for (unsigned seed = 1; seed <= 300; ++seed) {
        const Sides sides(seed);
        for (const Preferred preferred : {Preferred::Ours, Preferred::Theirs}) {
            const ProjectMerge merge = sides.merged(preferred);
            for (const MergeConflict& conflict : merge.conflicts) {
                MergeConflict counted = conflict;
                if (preferred == Preferred::Theirs)
                    std::swap(counted.ours, counted.theirs);
                // The place among other parts is another number, and a part that lost its name has a new one.
                if (conflict.field == "position" || (conflict.field == "name" && !counted.ours))
                    continue;
                ++seen;
                EXPECT_EQ(withoutReferences(valueAt(merge.project, placeOfConflict(counted))),
                          withoutReferences(counted.ours))
                    << describe(seed, conflict);
            }
        }
    }
    EXPECT_GT(seen, 500U);
}

TEST(Conflicts, AreSolvedOneAfterTheOtherForTheOtherSide) {
    std::size_t solved = 0;
    for (unsigned seed = 1; seed <= 300; ++seed) {
        const ProjectMerge merge = Sides(seed).merged(Preferred::Ours);
        Project project = parseProject(composeProject(merge.project));
        for (const MergeConflict& conflict : merge.conflicts) {
            const ValuePlace place =
                followPlaces(merge.project, project, {placeOfConflict(conflict)}).front();
            auto changed = withValue(project, place, conflict.theirs);
            if (!changed) {
                EXPECT_EQ(changed.error(), "another one has this name") << describe(seed, conflict);
                continue;
            }
            project = std::move(changed).value();
            if (conflict.field == "name" || conflict.field == "position")
                continue;
            ++solved;
            const ValuePlace now = followPlaces(merge.project, project, {placeOfConflict(conflict)}).front();
            EXPECT_EQ(valueAt(project, now), conflict.theirs) << describe(seed, conflict);
        }
        EXPECT_EQ(composeProject(parseProject(composeProject(project))), composeProject(project));
    }
    EXPECT_GT(solved, 300U);
}

TEST(Places, AreFollowedToWherePartsAreNow) {
    const Project before = projectOf(kMessages);
    const Project after = projectOf("* two\nB: S1 F3 H->E.\n* one\nNew: S1 F1 W H->E\n    L 3\n"
                                    "        U1 1 z 0\n        U2 1 y 2\n        U2 1 x 1.\n");
    const auto pathOf = [&](const char* path, bool isMissing = false) {
        const auto now = followPlaces(before, after, {{PartKind::Item, {"A", path}, {}, isMissing}}).front();
        return now.place.name + " " + now.place.path + (now.isMissing ? " missing" : "");
    };
    EXPECT_EQ(pathOf("1"), "New 1");
    EXPECT_EQ(pathOf("1/1"), "New 1/3");
    EXPECT_EQ(pathOf("1/2"), "New 1/2");
    EXPECT_EQ(pathOf("1/1", true), "New 1/1"); // it is there now
    EXPECT_EQ(pathOf("1/2", true), "New 1/4 missing");
    EXPECT_EQ(pathOf("99999999999999999999/1"), "New 99999999999999999999/1");
}

TEST(ConflictFile, IsReadAsItWasWritten) {
    const std::vector<MergeConflict> conflicts{
        {PartKind::Item, {"A", "1/2"}, "text", "U2 1 y 2", "U2 1 y 3", "\"quoted\" \u00e4"},
        {PartKind::TrMessage, {"Go", {}}, {}, "whole", std::nullopt, "other"}};
    const auto read = readConflicts(composeConflicts(conflicts));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(*read, conflicts);
    EXPECT_EQ(readConflicts("[]"), std::vector<MergeConflict>());
    for (const char* text : {"", "{}", "[1]", "[{\"kind\":\"unknown\"}]", "[{\"name\":\"A\"}]"})
        EXPECT_EQ(readConflicts(text), std::nullopt) << text;
}

TEST(ConflictFile, ShowsTheTextOfStatements) {
    const MergeConflict conflict{PartKind::TrItem, {"Go", "A"}, "statements", {}, {}, {}};
    EXPECT_EQ(shownConflictValue(conflict, "StatementText if x:\nStatementText  A=1\nElement 1 Condition"),
              "if x:\n A=1");
    EXPECT_EQ(shownConflictValue(conflict, std::nullopt), std::nullopt);
}

} // namespace
} // namespace zb
