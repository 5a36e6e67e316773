#include "messages/find_scan.h"
#include "unit/editor/find_tree.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace zb {
namespace {

using testing::Values;

constexpr int kEnd = -1;    // "End of file"
constexpr int kSilent = -2; // nothing happens

struct FindRow {
    FindDirection direction;
    int selected;
    int origin;
    std::string what;
    int outcome; ///< position of the hit, kEnd or kSilent
};

std::ostream& operator<<(std::ostream& out, const FindRow& row) {
    return out << "direction " << static_cast<int>(row.direction) << " from " << row.selected << ", origin "
               << row.origin << ", <" << row.what << '>';
}

int outcomeOf(const NodeTree& tree, const FindRequest& request) {
    const FindResult result = findNext(tree, request);
    switch (result.outcome) {
    case FindOutcome::Found:
        return result.node->index();
    case FindOutcome::EndOfFile:
        return kEnd;
    default:
        return kSilent;
    }
}

class FindScan : public testing::TestWithParam<FindRow> {};

TEST_P(FindScan, GoesItsWay) {
    NodeTree tree;
    fill(tree);
    tree.select(tree.at(GetParam().selected));
    const FindRequest request{GetParam().what, FindCase::Ignored, GetParam().direction, GetParam().origin};
    EXPECT_EQ(outcomeOf(tree, request), GetParam().outcome);
    EXPECT_EQ(tree.selected(), tree.at(GetParam().selected));
}

constexpr FindDirection kUp = FindDirection::Up;
constexpr FindDirection kDown = FindDirection::Down;
constexpr FindDirection kAll = FindDirection::All;

// An empty text matches every node, so these show where the first step goes.
INSTANTIATE_TEST_SUITE_P(FirstStepUp, FindScan,
                         Values(FindRow{kUp, 9, 1, "", 8}, FindRow{kUp, 7, 1, "", 4},
                                FindRow{kUp, 5, 1, "", 11}, FindRow{kUp, 11, 1, "", 4},
                                FindRow{kUp, 4, 1, "", 3}, FindRow{kUp, 1, 1, "", kEnd},
                                FindRow{kUp, 0, 1, "", kEnd}));

INSTANTIATE_TEST_SUITE_P(FirstStepDown, FindScan,
                         Values(FindRow{kDown, 1, 1, "", 2}, FindRow{kDown, 0, 1, "", 2},
                                FindRow{kDown, 3, 1, "", 8}, FindRow{kDown, 4, 1, "", 7},
                                FindRow{kDown, 11, 1, "", 5}, FindRow{kDown, 6, 1, "", 7},
                                FindRow{kDown, 7, 1, "", 8}, FindRow{kDown, 10, 1, "", kEnd}));

INSTANTIATE_TEST_SUITE_P(FirstStepAll, FindScan,
                         Values(FindRow{kAll, 1, 1, "", 2}, FindRow{kAll, 3, 1, "", 8},
                                FindRow{kAll, 6, 1, "", 7}, FindRow{kAll, 10, 1, "", 1}));

INSTANTIATE_TEST_SUITE_P(ScanUp, FindScan,
                         Values(FindRow{kUp, 10, 1, "name", 5}, FindRow{kUp, 10, 1, "S1F1", 3},
                                FindRow{kUp, 7, 1, "name", kEnd}, FindRow{kUp, 10, 1, "S1F2", kEnd},
                                FindRow{kUp, 10, 1, "first", kEnd}, FindRow{kUp, 6, 1, "first", kEnd},
                                FindRow{kUp, 5, 1, "first", 11}, FindRow{kUp, 3, 1, "you", 2}));

INSTANTIATE_TEST_SUITE_P(ScanDown, FindScan,
                         Values(FindRow{kDown, 1, 1, "name", 5}, FindRow{kDown, 1, 1, "S1F2", 10},
                                FindRow{kDown, 3, 1, "name", kEnd}, FindRow{kDown, 4, 1, "limit", kEnd},
                                FindRow{kDown, 3, 1, "first", 11}, FindRow{kDown, 9, 1, "you", kEnd}));

// At or before the origin the search runs past it; after it, it wraps and ends before it.
INSTANTIATE_TEST_SUITE_P(ScanAll, FindScan,
                         Values(FindRow{kAll, 1, 5, "S1F2", 10}, FindRow{kAll, 4, 7, "first", 11},
                                FindRow{kAll, 4, 7, "you", kEnd}, FindRow{kAll, 4, 6, "you", 2},
                                FindRow{kAll, 9, 1, "you", kEnd}, FindRow{kAll, 9, 2, "you", kEnd},
                                FindRow{kAll, 9, 3, "you", 2}, FindRow{kAll, 9, 3, "S1F1", kEnd},
                                FindRow{kAll, 10, 1, "you", 2}, FindRow{kAll, 10, 1, "nowhere", kEnd},
                                FindRow{kAll, 3, 99, "you", kEnd}, FindRow{kAll, 3, 1, "nowhere", kEnd}));

TEST(FindScanAll, EndsWhereTheClimbReachesARootWithoutNext) {
    NodeTree tree;
    Node& message = tree.add(nullptr, Relation::Last, "M: S1 F1 H->E");
    tree.select(&tree.add(&message, Relation::Child, "L 0"));
    EXPECT_EQ(outcomeOf(tree, {"", FindCase::Exact, kAll, 1}), kEnd);
    tree.select(&message);
    EXPECT_EQ(outcomeOf(tree, {"", FindCase::Exact, kAll, 1}), 1);
}

TEST(FindScanOfAnEmptyTree, DoesNothing) {
    const NodeTree tree;
    for (const FindDirection direction : {kUp, kDown, kAll})
        EXPECT_EQ(outcomeOf(tree, {"x", FindCase::Ignored, direction, 1}), kSilent);
}

TEST(FindScanOfARefusedPattern, EndsSilentlyOnceItHasTakenItsFirstStep) {
    NodeTree tree;
    fill(tree);
    for (const FindDirection direction : {kUp, kDown, kAll}) {
        tree.select(tree.at(5));
        EXPECT_EQ(outcomeOf(tree, {"[a", FindCase::Ignored, direction, 1}), kSilent);
        EXPECT_EQ(outcomeOf(tree, {"[z-a]", FindCase::Ignored, direction, 1}), kSilent);
    }
    tree.select(tree.at(1));
    EXPECT_EQ(outcomeOf(tree, {"[a", FindCase::Ignored, kUp, 1}), kEnd);
}

struct MatchRow {
    std::string text;
    std::string what;
    bool exact;
    bool ignored;
};

std::ostream& operator<<(std::ostream& out, const MatchRow& row) {
    return out << '<' << row.what << "> in <" << row.text << '>';
}

class FindMatch : public testing::TestWithParam<MatchRow> {};

TEST_P(FindMatch, IsAPatternAnywhereInTheText) {
    NodeTree tree;
    tree.select(&tree.add(nullptr, Relation::Last, ""));
    tree.add(nullptr, Relation::Last, GetParam().text);
    EXPECT_EQ(outcomeOf(tree, {GetParam().what, FindCase::Exact, kDown, 1}), GetParam().exact ? 2 : kEnd);
    EXPECT_EQ(outcomeOf(tree, {GetParam().what, FindCase::Ignored, kDown, 1}), GetParam().ignored ? 2 : kEnd);
}

INSTANTIATE_TEST_SUITE_P(Rows, FindMatch,
                         Values(MatchRow{"S1F1: S1 F1 H->E", "S1F1", true, true},
                                MatchRow{"S1F1: S1 F1 H->E", "s1f1", false, true},
                                MatchRow{"a 3 axb", "AXB", false, true},
                                MatchRow{"A 3 'AXB'", "A?B", true, true},
                                MatchRow{"A 3 'AB'", "A?B", false, false},
                                MatchRow{"abcde", "b*d", true, true}, MatchRow{"abcde", "d*b", false, false},
                                MatchRow{"S6F11", "F##", true, true}, MatchRow{"S6F1", "F##", false, false},
                                MatchRow{"xE", "[A-F]", true, true}, MatchRow{"xe", "[A-F]", false, true},
                                MatchRow{"00", "[!0]", false, false}, MatchRow{"01", "[!0]", true, true},
                                MatchRow{"2*3", "2[*]3", true, true}, MatchRow{"2x3", "2[*]3", false, false},
                                MatchRow{"a[1]", "a[[]1", true, true}, MatchRow{"ab", " ", false, false},
                                MatchRow{"a b", " ", true, true}, MatchRow{"a b", "a b ", false, false},
                                MatchRow{"\xC3\x84pfel", "\xC3\xA4PFEL", false, true}));

TEST(FindMatchCost, IsNoExponentOfTheRunsInThePattern) {
    NodeTree tree;
    tree.select(&tree.add(nullptr, Relation::Last, ""));
    tree.add(nullptr, Relation::Last, std::string(2000, 'a'));
    std::string what;
    for (int run = 0; run < 200; ++run)
        what += "a*";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(outcomeOf(tree, {what + "b", FindCase::Ignored, kDown, 1}), kEnd);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
} // namespace zb
