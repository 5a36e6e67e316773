#include "platform/tree/slot_ranks.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace zb::test {
namespace {

/// The same by counting.
struct Counted {
    std::vector<bool> used;

    std::size_t rankOf(std::size_t slot) const {
        std::size_t rank = 0;
        for (std::size_t at = 0; at <= slot && at < used.size(); ++at)
            rank += used[at] ? 1 : 0;
        return rank;
    }
    void expectSame(const SlotRanks& ranks) const {
        ASSERT_EQ(ranks.size(), used.size());
        ASSERT_EQ(ranks.used(), rankOf(used.size()));
        for (std::size_t slot = 0; slot < used.size(); ++slot) {
            ASSERT_EQ(ranks.rankOf(slot), rankOf(slot)) << "slot " << slot;
            if (used[slot]) {
                ASSERT_EQ(ranks.slotOf(rankOf(slot)), slot);
            }
        }
    }
};

TEST(SlotRanks, CountTheSlotsInUseUpToEach) {
    SlotRanks ranks;
    for (int slot = 0; slot < 5; ++slot)
        ranks.appendUsed();
    EXPECT_EQ(ranks.rankOf(4), 5U);
    ranks.release(1);
    ranks.release(3);
    EXPECT_EQ(ranks.used(), 3U);
    EXPECT_EQ(ranks.rankOf(4), 3U);
    EXPECT_EQ(ranks.slotOf(2), 2U);
    ranks.reuse(1);
    EXPECT_EQ(ranks.slotOf(2), 1U);
    ranks.clear();
    EXPECT_EQ(ranks.size(), 0U);
}

TEST(SlotRanks, ASlotAfterAllOthersHasTheRankOfTheLastOne) {
    SlotRanks ranks;
    ranks.appendUsed();
    ranks.appendFree();
    EXPECT_EQ(ranks.rankOf(1000), 1U);
}

TEST(SlotRanks, AgreeWithACountAfterAnyChanges) {
    std::mt19937 random(7);
    SlotRanks ranks;
    Counted counted;
    for (int round = 0; round < 60; ++round) {
        for (int step = 0; step < 40; ++step) {
            const auto choice = random() % 8;
            const std::size_t slot = counted.used.empty() ? 0 : random() % counted.used.size();
            if (choice < 3 || counted.used.empty()) {
                ranks.appendUsed();
                counted.used.push_back(true);
            } else if (choice == 3) {
                ranks.appendFree();
                counted.used.push_back(false);
            } else if (counted.used[slot]) {
                ranks.release(slot);
                counted.used[slot] = false;
            } else {
                ranks.reuse(slot);
                counted.used[slot] = true;
            }
        }
        counted.expectSame(ranks);
    }
}

TEST(SlotRanks, BeginAnewWhenAllSlotsAreInUseAgain) {
    SlotRanks ranks;
    Counted counted;
    for (int slot = 0; slot < 200; ++slot) {
        ranks.appendUsed();
        counted.used.push_back(true);
    }
    ranks.release(70);
    ranks.reuse(70);
    for (int slot = 0; slot < 100; ++slot) {
        ranks.appendUsed();
        counted.used.push_back(true);
    }
    ranks.release(150);
    counted.used[150] = false;
    counted.expectSame(ranks);
}

} // namespace
} // namespace zb::test
