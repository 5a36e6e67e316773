#include "unit/messages/workbench.h"

#include "messages/indentation.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::crlf;
using test::outline;
using testing::ElementsAre;

struct Reading {
    std::string name;
    std::vector<std::string> lines; ///< of the section
    std::string tree;
};

void PrintTo(const Reading& tested, std::ostream* out) {
    *out << tested.name;
}

class Sections : public testing::TestWithParam<Reading> {};

TEST_P(Sections, BecomeTrees) {
    test::Workbench bench;
    std::string text;
    for (const std::string& line : GetParam().lines)
        text += line + "\r\n";
    bench.read(text);
    EXPECT_EQ(outline(bench.tree), GetParam().tree);
}

const std::vector<Reading> kReadings{
    {"Message",
     {"* about it", "M: S1 F2 H<-E", "    L 2", "        A 1 'x'", "        U1 1 5."},
     "\nabout it\nM: S1 F2 H<-E #M\n  L 2\n    A 1 'x'\n    U1 1 5\n"},
    {"NoItems", {"* about", "M: S1 F1 W H->E."}, "\nabout\nM: S1 F1 W H->E #M\n"},
    {"LastCommentCounts", {"* one", "* two ", "", "M: S1 F1 H->E."}, "\ntwo\nM: S1 F1 H->E #M\n"},
    {"AsterisksDropTheComment", {"* one", "*****", "M: S1 F1 H->E."}, "\n\nM: S1 F1 H->E #M\n"},
    {"ALineOfASectionDropsTheComment", {"* one", "## x", "M: S1 F1 H->E."}, "\n\nM: S1 F1 H->E #M\n"},
    {"ALineOfASectionLeavesTheMessageOpen",
     {"M: S1 F1 H->E", "    L 1", "## x", "        U1 1 5."},
     "\n\nM: S1 F1 H->E #M\n  L 1\n    U1 1 5\n"},
    {"LinesBehindTheEndAreDropped", {"M: S1 F1 H->E.", "    U1 1 5"}, "\n\nM: S1 F1 H->E #M\n"},
    {"ADotAloneCloses", {"M: S1 F1 H->E", "    .", "    U1 1 5"}, "\n\nM: S1 F1 H->E #M\n"},
    {"ABlankBeforeTheDot", {"M: S1 F1 H->E", "    U1 1 5 ."}, "\n\nM: S1 F1 H->E #M\n  U1 1 5\n"},
    {"TwoBlanksAreNoDepth", {"M: S1 F1 H->E", "  U1 1 5."}, "\n\nM: S1 F1 H->E #M\nU1 1 5\n"},
    {"SixBlanksAreTwo",
     {"M: S1 F1 H->E", "    L 1", "      U1 1 5."},
     "\n\nM: S1 F1 H->E #M\n  L 1\n    U1 1 5\n"},
    {"ATabIsNoIndentation", {"M: S1 F1 H->E", "\tU1 1 5."}, "\n\nM: S1 F1 H->E #M\n\tU1 1 5\n"},
    {"AJumpIsOneLevel",
     {"M: S1 F1 H->E", "    L 1", "            U1 1 5", "        U1 1 6", "    U1 1 7."},
     "\n\nM: S1 F1 H->E #M\n  L 1\n    U1 1 5\n  U1 1 6\nU1 1 7\n"},
    {"BackToTheRoot", {"M: S1 F1 H->E", "    L 1", "U1 1 5."}, "\n\nM: S1 F1 H->E #M\n  L 1\nU1 1 5\n"},
    {"TwiceTheSameName",
     {"* a", "M: S1 F1 H->E.", "* b", "m: S1 F2 H->E", "    U1 1 5."},
     "\na\nM: S1 F1 H->E #M\n\nb\nm: S1 F2 H->E\n  U1 1 5\n"},
    {"HeadWithoutBlank", {"M:S1 F1 H->E."}, "\n\nM:S1 F1 H->E #M:S1 F1 H->E.\n"},
    {"HeadIsTrimmed", {"  M : S1 F1 H->E ."}, "\n\nM : S1 F1 H->E #M\n"},
    {"OldBinaryForm", {"M: S1 F1 H->E", "    X 4 DATA 12 34."}, "\n\nM: S1 F1 H->E #M\n  X 4 DATA '12 34'\n"},
    {"AColonMakesAHead",
     {"M: S1 F1 H->E", "    A 5 T '12:30'."},
     "\n\nM: S1 F1 H->E #M\n\n\nA 5 T '12:30' #A 5 T '12:30'.\n"},
    {"NextHeadOpensWithoutAnEnd",
     {"A: S1 F1 H->E", "    L 0", "* b", "B: S1 F2 H->E", "    L 0."},
     "\n\nA: S1 F1 H->E #A\n  L 0\n\nb\nB: S1 F2 H->E #B\n  L 0\n"},
};

INSTANTIATE_TEST_SUITE_P(SmdReader, Sections, testing::ValuesIn(kReadings),
                         [](const testing::TestParamInfo<Reading>& tested) { return tested.param.name; });

TEST(SmdReader, DepthIsAQuarterOfTheBlanksWithHalvesToEven) {
    std::vector<long> depths;
    for (std::size_t blanks = 0; blanks <= 14; ++blanks)
        depths.push_back(depthOfIndentation(blanks));
    EXPECT_THAT(depths, ElementsAre(0, 0, 0, 1, 1, 1, 2, 2, 2, 2, 2, 3, 3, 3, 4));
}

TEST(SmdReader, NodesComeExpandedAndDescriptionsBold) {
    test::Workbench bench;
    bench.read({"* about", "M: S1 F1 H->E", "    U1 1 5."});
    EXPECT_TRUE(bench.tree.at(2)->bold());
    EXPECT_FALSE(bench.tree.at(1)->expanded());
    EXPECT_TRUE(bench.tree.at(3)->expanded());
    EXPECT_TRUE(bench.tree.at(4)->expanded());
    EXPECT_THAT(bench.calls, ElementsAre("name M"));
}

TEST(SmdReader, LinesMayEndInALineFeedAlone) {
    test::Workbench bench;
    readSmdSection(bench.tree, "* \xED\x95\x9C\xEA\xB8\x80\nM: S1 F1 H->E.\n");
    EXPECT_EQ(outline(bench.tree), "\n\xED\x95\x9C\xEA\xB8\x80\nM: S1 F1 H->E #M\n");
}

TEST(SmdReader, ARecordIsAddedAfterAllOthers) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 H->E."});
    SECSMessageRecord record;
    record.parseSmd(crlf({"* b", "B: S1 F2 H<-E", "    <L 2", "        <L 1", "            <U1 1 5>",
                          "        >", "        <A 1 ' '>", "    >", "    <L 0>."}),
                    kFormatSmd);
    EXPECT_EQ(addMessageToTree(bench.tree, record), "");
    EXPECT_EQ(outline(bench.tree), "\na\nA: S1 F1 H->E #A\n\nb\nB: S1 F2 H<-E #B\n"
                                   "  L 2\n    L 1\n      U1 1 5\n    A 1 ' '\n  L 0\n");
    EXPECT_TRUE(bench.tree.find("B")->expanded());
    EXPECT_TRUE(bench.tree.find("B")->previous()->bold());
}

TEST(SmdReader, ADuplicateIsNotAdded) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 H->E."});
    const std::string before = outline(bench.tree);
    SECSMessageRecord record;
    record.parseNodeText("a: S1 F1 H->E", "again");
    EXPECT_EQ(addMessageToTree(bench.tree, record), "Key");
    EXPECT_EQ(outline(bench.tree), before);
}

} // namespace
} // namespace zb
