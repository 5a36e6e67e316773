#include "unit/messages/workbench.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::crlf;
using testing::ElementsAre;

const std::string kBanner(70, '*');

/// The text of a build, or the status.
std::string built(test::Workbench& bench) {
    const std::string status = bench.walk(WalkMode::BuildSmd).status;
    return status.empty() ? bench.store->allTexts() : "status: " + status;
}

TEST(SmdWriter, TheTwoFormsOfAMessage) {
    test::Workbench bench;
    const std::string project = crlf({"* Data signifying that the equipment is alive",
                                      "OnLineData: S1 F2 H<-E", "    L 2", "        A 6 MDLN 'HLVFAb'",
                                      "        A 6 SOFTREV 'V01R01'.", "* ", "Next: S1 F1 W <R> H<->E."});
    bench.read(project);
    EXPECT_EQ(bench.saved(), project);
    EXPECT_EQ(built(bench), crlf({kBanner, "* Data signifying that the equipment is alive", kBanner,
                                  "OnLineData: S1 F2 H<-E", "    <L 2", "        <A 6 MDLN 'HLVFAb'>",
                                  "        <A 6 SOFTREV 'V01R01'>", "    >.", kBanner, "* ", kBanner,
                                  "Next: S1 F1 W <R> H<->E."}));
    EXPECT_TRUE(bench.faults.empty());
}

TEST(SmdWriter, ListsCloseAtTheirOwnIndentation) {
    test::Workbench bench;
    const std::string project = crlf({"* ", "M: S1 F1 H->E", "    L 1", "        L 0", "    U1 1 5",
                                      "    L 1", "        L 1", "            L 0."});
    bench.read(project);
    EXPECT_EQ(bench.saved(), project);
    EXPECT_EQ(built(bench),
              crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E", "    <L 1", "        <L 0>", "    >",
                    "    <U1 1 5>", "    <L 1", "        <L 1", "            <L 0>", "        >", "    >."}));
}

TEST(SmdWriter, AnEmptyListEndsAMessage) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E", "    L 0."});
    EXPECT_EQ(built(bench), crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E", "    <L 0>."}));
}

TEST(SmdWriter, AnEmptyTreeWritesNothing) {
    test::Workbench bench;
    EXPECT_EQ(bench.saved(), "");
    EXPECT_EQ(built(bench), "");
}

TEST(SmdWriter, EachMessageWithAKeyIsPassedOn) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 H->E.", "* b", "B: S1 F2 H->E."});
    bench.calls.clear();
    bench.walk(WalkMode::Modeler);
    EXPECT_THAT(bench.calls, ElementsAre("record A", "record B"));
    EXPECT_EQ(bench.store->getMessages().size(), 2U);
}

struct RangeCase {
    std::string head;
    std::string status;
};

void PrintTo(const RangeCase& tested, std::ostream* out) {
    *out << tested.head;
}

class HeadRanges : public testing::TestWithParam<RangeCase> {};

TEST_P(HeadRanges, StopTheCheckedWalk) {
    for (const WalkMode mode : {WalkMode::Modeler, WalkMode::BuildSmd, WalkMode::BuildMdf}) {
        test::Workbench bench;
        bench.read({"* a", "Good: S1 F1 H->E.", "* b", GetParam().head + "."});
        const WalkOutcome outcome = bench.walk(mode);
        EXPECT_EQ(outcome.status, GetParam().status);
        const bool faulty = !GetParam().status.empty();
        EXPECT_EQ(bench.faults,
                  faulty ? std::vector<std::string>{GetParam().status} : std::vector<std::string>());
        EXPECT_EQ(outcome.fault ? outcome.fault->nodeIndex : 0, faulty ? 6 : 0);
        EXPECT_EQ(bench.store->getMessages().size(), faulty ? 1U : 2U);
    }
    test::Workbench bench;
    const std::string text = crlf({"* b", GetParam().head + "."});
    bench.read(text);
    EXPECT_EQ(bench.saved(), text);
}

const std::string kStreamText = "You must insert a positive number less than 128 in the stream";
const std::string kFunctionText = "You must insert a positive number less than 255 in the function";

INSTANTIATE_TEST_SUITE_P(
    SmdWriter, HeadRanges,
    testing::Values(RangeCase{"M: S128 F255 H->E", ""}, RangeCase{"M: S0 F0 H->E", ""},
                    RangeCase{"M: S129 F1 H->E", kStreamText}, RangeCase{"M: S-1 F1 H->E", kStreamText},
                    RangeCase{"M: S F1 H->E", kStreamText}, RangeCase{"My Msg: S1 F1 H->E", kStreamText},
                    RangeCase{"M:", kStreamText}, RangeCase{"M: S1 F256 H->E", kFunctionText},
                    RangeCase{"M: S1 F-1 H->E", kFunctionText}, RangeCase{"M: S1 Fx H->E", kFunctionText},
                    RangeCase{"M: S1", kFunctionText}));

TEST(SmdWriter, AnItemFaultStopsTheCheckedWalk) {
    test::Workbench bench;
    bench.read(
        {"* a", "Good: S1 F1 H->E.", "* b", "M: S1 F1 H->E", "    A 3 N 'x'", "    U1 1 -5", "    Z 1."});
    const WalkOutcome outcome = bench.walk(WalkMode::Modeler);
    EXPECT_EQ(outcome.status, "occur an Error");
    EXPECT_THAT(bench.faults, ElementsAre("! Insert unsigned integer for initial value."));
    ASSERT_TRUE(outcome.fault.has_value());
    EXPECT_EQ(outcome.fault->nodeIndex, 8);
    EXPECT_EQ(bench.tree.at(7)->text(), "A 3 N 'x  '"); // what was normalized before stays normalized
    EXPECT_EQ(bench.store->getMessages().size(), 1U);
}

TEST(SmdWriter, APreparedWalkHasChangedNothing) {
    test::Workbench bench;
    bench.read({"* a", "M: S1 F1 H->E", "    A 3 N 'x'", "    A 1 'yz'", "    U1 1 5."});
    const std::string before = test::outline(bench.tree);
    PreparedWalk walk = SmdWriter(bench.codePage).prepare(WalkMode::BuildSmd, bench.tree);
    EXPECT_EQ(test::outline(bench.tree), before);
    EXPECT_EQ(walk.canonicalTexts.size(), 2U);
    EXPECT_EQ(walk.losses, 1U);
    EXPECT_EQ(walk.firstLoss, "The item has a count of 1: 'yz' was cut to 'y'");
    EXPECT_NE(walk.store->allTexts().find("<A 3 N 'x  '>"), std::string::npos);
    walk.normalize(bench.tree);
    EXPECT_EQ(bench.tree.at(4)->text(), "A 3 N 'x  '");
    EXPECT_EQ(bench.tree.at(5)->text(), "A 1 'y'");
}

TEST(SmdWriter, AWalkCanBeCancelled) {
    test::Workbench bench;
    bench.read({"* a", "M: S1 F1 H->E."});
    LongWork work;
    work.cancel();
    EXPECT_THROW(SmdWriter(bench.codePage).prepare(WalkMode::SaveProject, bench.tree, Progress(work)),
                 Cancelled);
}

TEST(SmdWriter, NormalizedTextsAreWritten) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E", "    U1 3 1", "    boolean 2 X T."});
    EXPECT_EQ(built(bench), crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E", "    <U1 3 1 0 0>",
                                  "    <BOOLEAN 2 X True False>."}));
}

TEST(SmdWriter, ADescriptionWithAColonIsTakenForAMessage) {
    test::Workbench bench;
    bench.read({"* note: x", "M: S1 F1 H->E."});
    EXPECT_EQ(bench.saved(), crlf({"* ", "note: x.", "* note: x", "M: S1 F1 H->E."}));
    EXPECT_EQ(built(bench), "status: " + kStreamText);
    EXPECT_EQ(bench.walk(WalkMode::BuildSmd).fault->nodeIndex, 2);
}

TEST(SmdWriter, ASaveKeepsWhatIsBelowAnItemThatIsNoList) {
    test::Workbench bench;
    const std::string project =
        crlf({"* ", "M: S1 F1 H->E", "    A 1 'x'", "        U1 1 5", "    l 1", "        U1 1 6."});
    bench.read(project);
    EXPECT_EQ(bench.saved(), project);
}

TEST(SmdWriter, OneMessageIsComposedAsARecord) {
    test::Workbench bench;
    bench.read({"* about", "M: S1 F1 W H->E", "    L 1", "        U1 1 ID 5.", "* b", "N: S1 F2 H->E."});
    const auto record = SmdWriter(bench.codePage).composeSingleMessage(bench.tree);
    ASSERT_TRUE(record.ok());
    ASSERT_TRUE(record->has_value());
    EXPECT_EQ((*record)->getHeadText(), "about\r\nM: S1 F1 W H->E");
    EXPECT_EQ((*record)->getBodyText(), crlf({"1 L 1", "2 U1 1 ID 5"}));
}

TEST(SmdWriter, ATreeWithoutAMessageComposesNone) {
    test::Workbench bench;
    SmdWriter writer(bench.codePage);
    EXPECT_FALSE(writer.composeSingleMessage(bench.tree).value().has_value());
    bench.tree.add(nullptr, Relation::Last, "no message");
    EXPECT_FALSE(writer.composeSingleMessage(bench.tree).value().has_value());
}

TEST(SmdWriter, AMessageThatIsNotCorrectIsAnError) {
    test::Workbench bench;
    bench.read({"* about", "M: Sx F1 W H->E."});
    const auto record = SmdWriter(bench.codePage).composeSingleMessage(bench.tree);
    ASSERT_FALSE(record.ok());
    EXPECT_EQ(record.error(), "This message is not correct");
}

TEST(SmdWriter, DeepTreesAreWrittenWithoutRecursion) {
    test::Workbench bench;
    bench.tree.add(nullptr, Relation::Last, "");
    bench.tree.add(nullptr, Relation::Last, "deep");
    Node* node = &bench.tree.add(nullptr, Relation::Last, "M: S1 F1 H->E");
    for (int level = 0; level < 3000; ++level)
        node = &bench.tree.add(node, Relation::Child, "L 1");
    node->setText("L 0");
    const std::string text = bench.saved();
    test::Workbench again;
    again.read(text);
    EXPECT_EQ(again.tree.count(), 3003U);
    EXPECT_EQ(again.saved(), text);
}

} // namespace
} // namespace zb
