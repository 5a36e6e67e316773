#include "compare/project_comparison.h"
#include "compare/project_merge.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "unit/compare/random_project.h"
#include "unit/compare/written_again.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace zb {
namespace {

using test::RandomProject;

constexpr unsigned kCases = 300;

/// A base and two versions of it.
struct Versions {
    explicit Versions(unsigned seed, std::size_t messages = 8)
        : base(seed, messages), ours(base), theirs(base) {
        ours.edit(seed * 2 + 1, 1 + seed % 12, "x");
        theirs.edit(seed * 2 + 2, 1 + seed % 7, "y");
    }

    RandomProject base;
    RandomProject ours;
    RandomProject theirs;
};

ProjectMerge merged(const RandomProject& base, const RandomProject& ours, const RandomProject& theirs,
                    Preferred preferred = Preferred::Ours) {
    return mergeProjects(base.project(), ours.project(), theirs.project(), preferred);
}

/// How often each line is there, whatever its depth, its ordinal or the count of its list.
std::map<std::string, int> linesOf(const std::string& text) {
    std::map<std::string, int> lines;
    LineReader reader(text);
    while (const auto line = reader.next()) {
        std::string content = trim(*line);
        if (content.ends_with('.'))
            content.pop_back();
        if (content.starts_with("L ") || content.find("SeqItem") == 0)
            content = content.substr(content.find_last_of(" \xBF") + 1);
        // The fields of a head are merged one by one: its name says that it is there.
        ++lines[std::string(before(content, ": S"))];
    }
    return lines;
}

TEST(RandomProjects, AreWrittenAsTheProgramWritesThem) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        for (const RandomProject* project : {&versions.base, &versions.ours, &versions.theirs}) {
            ASSERT_EQ(composeProject(project->project()), project->text()) << seed;
            ASSERT_EQ(test::savedAgain(project->project()), project->text()) << seed;
        }
    }
}

TEST(Merge, OfAnUnchangedSideIsTheOtherSide) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const ProjectMerge theirs = merged(versions.base, versions.base, versions.theirs);
        ASSERT_EQ(composeProject(theirs.project), versions.theirs.text()) << seed;
        ASSERT_TRUE(theirs.conflicts.empty()) << seed;
        const ProjectMerge ours = merged(versions.base, versions.ours, versions.base);
        ASSERT_EQ(composeProject(ours.project), versions.ours.text()) << seed;
        ASSERT_TRUE(ours.conflicts.empty()) << seed;
    }
}

TEST(Merge, OfEqualSidesIsThatSide) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const ProjectMerge merge = merged(versions.base, versions.ours, versions.ours);
        ASSERT_EQ(composeProject(merge.project), versions.ours.text()) << seed;
        ASSERT_TRUE(merge.conflicts.empty()) << seed;
    }
}

TEST(Merge, WithoutConflictsDoesNotDependOnTheSide) {
    unsigned clean = 0;
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed, 20);
        const ProjectMerge one = merged(versions.base, versions.ours, versions.theirs);
        const ProjectMerge other = merged(versions.base, versions.theirs, versions.ours);
        ASSERT_EQ(one.conflicts.empty(), other.conflicts.empty()) << seed;
        if (!one.conflicts.empty())
            continue;
        ++clean;
        ASSERT_EQ(composeProject(one.project), composeProject(other.project)) << seed;
    }
    EXPECT_GT(clean, kCases / 4);
}

TEST(Merge, PrefersTheOtherSideWhenAskedTo) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const ProjectMerge theirs = merged(versions.base, versions.ours, versions.theirs, Preferred::Theirs);
        const ProjectMerge exchanged = merged(versions.base, versions.theirs, versions.ours);
        ASSERT_EQ(theirs.conflicts.size(), exchanged.conflicts.size()) << seed;
    }
}

TEST(Merge, IsReadAndSavedAsTheSameBytes) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        for (const Preferred preferred : {Preferred::Ours, Preferred::Theirs}) {
            const ProjectMerge merge = merged(versions.base, versions.ours, versions.theirs, preferred);
            const std::string text = composeProject(merge.project);
            ASSERT_EQ(composeProject(parseProject(text)), text) << seed;
            ASSERT_EQ(test::savedAgain(merge.project), text) << seed;
        }
    }
}

/// A line with the name of a message that the other side renamed, which has the new name now.
bool isFollowed(const std::string& line, std::map<std::string, int>& result) {
    for (const std::string_view keyword : {"SECSMessage ", "DataBlock "}) {
        if (line.starts_with(keyword))
            return result[line.substr(keyword.size())] == 0;
    }
    return false;
}

TEST(Merge, LosesNothingThatNoSideRemoved) {
    unsigned seen = 0;
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const ProjectMerge merge = merged(versions.base, versions.ours, versions.theirs);
        auto base = linesOf(versions.base.text());
        auto ours = linesOf(versions.ours.text());
        auto theirs = linesOf(versions.theirs.text());
        auto result = linesOf(composeProject(merge.project));
        for (const auto& [line, times] : base) {
            if (times == 1 && ours[line] == 1 && theirs[line] == 1) {
                ASSERT_EQ(result[line], 1) << seed << ": " << line;
            }
        }
        if (!merge.conflicts.empty())
            continue;
        ++seen;
        for (const auto* side : {&ours, &theirs}) {
            for (const auto& [line, times] : *side) {
                if (times == 1 && base[line] == 0 && !isFollowed(line, result)) {
                    ASSERT_GE(result[line], 1) << seed << ": " << line;
                }
            }
        }
    }
    EXPECT_GT(seen, kCases / 5);
}

/// The text with some lines lost, doubled or exchanged, and some characters replaced.
std::string damaged(const std::string& text, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    std::vector<std::string> lines = split(text, "\r\n");
    for (int damage = 0; damage < 6; ++damage) {
        const std::size_t at = below(lines.size());
        switch (below(4)) {
        case 0:
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        case 1:
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), lines[below(lines.size())]);
            break;
        case 2:
            std::swap(lines[at], lines[below(lines.size())]);
            break;
        default:
            if (!lines[at].empty())
                lines[at][below(lines[at].size())] = ".:'* #\t9["[below(9)];
            break;
        }
    }
    return join(lines, "\r\n");
}

TEST(Merge, OfDamagedProjectsKeepsWhatEachSideHas) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const Project base = parseProject(damaged(versions.base.text(), seed));
        const Project ours = parseProject(damaged(versions.ours.text(), seed + 1));
        const Project theirs = parseProject(damaged(versions.base.text(), seed + 2));
        const std::string text = composeProject(ours);
        ASSERT_EQ(composeProject(mergeProjects(base, base, ours).project), text) << seed;
        ASSERT_EQ(composeProject(mergeProjects(base, ours, base).project), text) << seed;
        ASSERT_EQ(composeProject(mergeProjects(base, ours, ours).project), text) << seed;
        const std::string merge = composeProject(mergeProjects(base, ours, theirs).project);
        ASSERT_EQ(composeProject(parseProject(merge)), merge) << seed;
        ASSERT_TRUE(compareProjects(ours, ours).empty()) << seed;
        static_cast<void>(compareProjects(base, ours));
        static_cast<void>(takeDifferences(base, ours, compareProjects(base, ours)));
    }
}

TEST(Comparison, IsEmptyForEqualProjectsAlone) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        ASSERT_TRUE(compareProjects(versions.base.project(), versions.base.project()).empty()) << seed;
        const bool same = versions.base.text() == versions.ours.text();
        ASSERT_EQ(compareProjects(versions.base.project(), versions.ours.project()).empty(), same) << seed;
    }
}

TEST(TakingDifferences, AllTogetherGivesTheOtherProject) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const Project base = versions.base.project();
        const Project ours = versions.ours.project();
        const Project taken = takeDifferences(base, ours, compareProjects(base, ours));
        ASSERT_EQ(composeProject(taken), versions.ours.text()) << seed;
    }
}

TEST(TakingDifferences, OneAfterTheOtherLeavesFewerEachTime) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        Project project = versions.base.project();
        const Project ours = versions.ours.project();
        Differences left = compareProjects(project, ours);
        while (!left.empty()) {
            const Difference first = left.front();
            project = takeDifferences(project, ours, {first});
            Differences now = compareProjects(project, ours);
            ASSERT_LT(now.size(), left.size())
                << seed << ": " << wordOf(first.kind) << ' ' << wordOf(first.change) << ' '
                << first.place.name << ' ' << first.place.path << ' ' << first.field;
            left = std::move(now);
        }
        ASSERT_EQ(composeProject(project), versions.ours.text()) << seed;
    }
}

TEST(TakingDifferences, NoneChangesNothing) {
    for (unsigned seed = 0; seed < kCases; ++seed) {
        const Versions versions(seed);
        const Project taken = takeDifferences(versions.base.project(), versions.ours.project(), {});
        ASSERT_EQ(composeProject(taken), versions.base.text()) << seed;
    }
}

} // namespace
} // namespace zb
