#include "compare/part_value.h"

#include "compare/conflict_file.h"
#include "compare/project_merge.h"
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

/// A conflict of a merge in which theirs is set holds theirs afterwards.
TEST(PartValue, OfAConflictBecomesTheOtherSide) {
    int set = 0;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        RandomProject edited(seed, 6);
        const Project base = edited.project();
        RandomProject other = edited;
        edited.edit(seed * 2 + 1, 12, "x");
        other.edit(seed * 2 + 2, 12, "y");
        const ProjectMerge merge = mergeProjects(base, edited.project(), other.project());
        for (const MergeConflict& conflict : merge.conflicts) {
            const ValuePlace place{conflict.kind, conflict.place, conflict.field};
            const auto solved = withValue(merge.project, place, conflict.theirs);
            if (!solved)
                continue; // its fault says where it is changed instead
            ++set;
            if (conflict.field == "name" || !conflict.place.path.empty())
                continue;
            EXPECT_EQ(valueAt(*solved, place), conflict.theirs)
                << "seed " << seed << " " << wordOf(conflict.kind) << " " << conflict.place.name << " "
                << conflict.field;
        }
    }
    EXPECT_GT(set, 20);
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

} // namespace
} // namespace zb
