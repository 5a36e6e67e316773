#include "compare/aligned_rows.h"

#include "compare/project_merge.h"
#include "unit/compare/compared_texts.h"
#include "unit/compare/random_project.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zb::test {
namespace {

/// One line a row: its texts, and how many differences it has.
std::string linesOf(const AlignedProjects& aligned, std::size_t others = 1) {
    std::ostringstream out;
    for (const AlignedRow& row : aligned.rows) {
        out << std::string(row.level * 2, ' ');
        for (std::size_t version = 0; version <= others; ++version)
            out << (version > 0 ? " | " : "") << row.texts[version].value_or("-");
        for (std::size_t other = 0; other < others; ++other)
            out << (other > 0 ? "," : " (") << row.differences[other].size();
        out << ")\n";
    }
    return out.str();
}

constexpr const char* kTwoMessages =
    "* first\nA: S1 F1 W H->E\n    L 2\n        U2 1 x 1\n        U2 1 y 2.\n"
    "* second\nB: S1 F3 H->E.\n";

TEST(AlignedRows, EqualProjectsHaveNoRowsThatDiffer) {
    const Project one = projectOf(kTwoMessages);
    const Project other = projectOf(kTwoMessages);
    EXPECT_EQ(linesOf(alignProjects(one, {&other})), "");
    const AlignedProjects all = alignProjects(one, {&other}, CompareScope::Messages, AlignedExtent::All);
    EXPECT_EQ(linesOf(all), "SECS messages | SECS messages (0)\n"
                            "  A: S1 F1 W H->E | A: S1 F1 W H->E (0)\n"
                            "    * first | * first (0)\n"
                            "    L 2 | L 2 (0)\n"
                            "      U2 1 x 1 | U2 1 x 1 (0)\n"
                            "      U2 1 y 2 | U2 1 y 2 (0)\n"
                            "  B: S1 F3 H->E | B: S1 F3 H->E (0)\n"
                            "    * second | * second (0)\n");
}

TEST(AlignedRows, WhatDiffersIsInOneRowWithWhatIsAboveIt) {
    const Project one = projectOf(kTwoMessages);
    const Project other = projectOf("* first\nA: S1 F1 H->E\n    L 3\n        U2 1 x 1\n        U2 1 y 7\n"
                                    "        U4 1 z 3.\n* third\nC: S1 F5 H->E.\n");
    EXPECT_EQ(linesOf(alignProjects(one, {&other})), "SECS messages | SECS messages (0)\n"
                                                     "  A: S1 F1 W H->E | A: S1 F1 H->E (0)\n"
                                                     "    wait: true | wait: false (1)\n"
                                                     "    L 2 | L 3 (0)\n"
                                                     "      U2 1 y 2 | U2 1 y 7 (1)\n"
                                                     "      - | U4 1 z 3 (1)\n"
                                                     "  - | C: S1 F5 H->E (1)\n"
                                                     "    - | * third (0)\n"
                                                     "  B: S1 F3 H->E | - (1)\n"
                                                     "    * second | - (0)\n");
}

/// Each difference is in exactly one row, whatever the projects are.
TEST(AlignedRows, EveryDifferenceHasARow) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomProject edited(seed, 12);
        const Project base = edited.project();
        edited.edit(seed + 1000, 1 + seed % 7, "o");
        const Project other = edited.project();
        const AlignedProjects aligned = alignProjects(base, {&other});
        std::vector<int> seen(aligned.differences[0].size(), 0);
        for (const AlignedRow& row : aligned.rows) {
            for (const std::size_t difference : row.differences[0])
                ++seen[difference];
        }
        EXPECT_EQ(seen, std::vector<int>(seen.size(), 1)) << "seed " << seed;
        EXPECT_EQ(aligned.rows.empty(), seen.empty());
    }
}

} // namespace
} // namespace zb::test
