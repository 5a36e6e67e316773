#include "workbench/fuzzy_match.h"
#include "workbench/name_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zb {
namespace {

int score(const std::string& typed, const std::string& text) {
    const std::string folded = foldedText(text);
    return FuzzyWord(typed).score({folded, wordStartsOf(text)});
}

TEST(FuzzyWord, MatchesItsCharactersInOrderInAnyCase) {
    EXPECT_GT(score("rmt", "RequestMaterialTransfer"), 0);
    EXPECT_GT(score("SVID", "svid"), 0);
    EXPECT_EQ(score("mrq", "RequestMaterial"), 0);
    EXPECT_EQ(score("svidx", "SVID"), 0);
    EXPECT_EQ(score("a", ""), 0);
    EXPECT_EQ(score("", "a"), 0);
}

TEST(FuzzyWord, RanksPrefixThenWordThenInsideThenWordStartsThenScattered) {
    const std::string typed = "port";
    const std::vector<std::string> fromBest{"port",          "PortRefused",   "LoadPortOpen",
                                            "TransportOpen", "PickOrRunTool", "pxoxrxtx"};
    for (std::size_t i = 1; i < fromBest.size(); ++i)
        EXPECT_GT(score(typed, fromBest[i - 1]), score(typed, fromBest[i]))
            << fromBest[i - 1] << " and " << fromBest[i];
    EXPECT_GT(score(typed, fromBest.back()), 0);
}

TEST(FuzzyWord, PrefersWordStartsToLettersWithin) {
    EXPECT_GT(score("alr", "AlarmListRequest"), score("alr", "xaxlxrx"));
    EXPECT_GT(score("s5f2", "S5F2"), score("s5f2", "S15F2"));
    EXPECT_GT(score("s5f2", "S5F2"), score("s5f2", "S5F21"));
}

TEST(FuzzyWord, PrefersFewGapsAndShortTexts) {
    EXPECT_GT(score("abc", "xabxc"), score("abc", "xaxbxc"));
    EXPECT_GT(score("ceid", "CEID2"), score("ceid", "CEIDOfTheLastEvent"));
}

struct NameIndexTest : ::testing::Test {
    NameIndexTest() {
        index.addMessage("AlarmReport", "S5F1 Alarm Report Send", 3);
        index.addItem("ALID", 4);
        index.addItem("ALTX", 5);
        index.addMessage("S5F2", "Alarm Report Acknowledge", 8);
        index.addItem("ACKC5", 9);
        index.addTRMessage("RfAlarm", "AlarmReport", 0);
    }
    std::vector<std::string> find(const std::string& typed, std::size_t most = 10) {
        const NameIndex::Found found = index.find(typed, most);
        all = found.all;
        std::vector<std::string> names;
        for (const std::size_t number : found.best)
            names.emplace_back(index.name(index.entry(number)));
        return names;
    }
    NameIndex index;
    std::size_t all = 0;
};

TEST_F(NameIndexTest, FindsNamesNumbersAndDescriptions) {
    EXPECT_THAT(find("al"), testing::ElementsAre("ALID", "ALTX", "AlarmReport", "RfAlarm", "S5F2"));
    EXPECT_THAT(find("s5f1"), testing::ElementsAre("AlarmReport"));
    EXPECT_THAT(find("acknow"), testing::ElementsAre("S5F2"));
    EXPECT_THAT(find("zzz"), testing::ElementsAre());
}

TEST_F(NameIndexTest, MoreWordsFindTheItemsOfAMessage) {
    EXPECT_THAT(find("s5f1 tx"), testing::ElementsAre("ALTX"));
    EXPECT_THAT(find("s5f2 alid"), testing::ElementsAre());
}

TEST_F(NameIndexTest, AWholeNameComesFirst) {
    index.addMessage("LotEnded",
                     "S6F11 The lot has left the load port, with one result for each of its wafers, in slots",
                     20);
    index.addMessage("LotEndedAck", "S6F12", 30);
    EXPECT_THAT(find("lotended"), testing::ElementsAre("LotEnded", "LotEndedAck"));
}

TEST_F(NameIndexTest, CountsAllAndListsTheBest) {
    EXPECT_THAT(find("a", 2), testing::SizeIs(2));
    EXPECT_EQ(all, 6U);
    EXPECT_THAT(find(" ", 2), testing::ElementsAre("AlarmReport", "S5F2"));
    EXPECT_EQ(all, 6U);
}

} // namespace
} // namespace zb
