#include "unit/messages/workbench.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using test::crlf;
using testing::ElementsAre;

const std::string kBanner(70, '*');

/// Builds into a folder of its own and gives the file's bytes, or the status.
std::string built(test::Workbench& bench, std::string_view mode) {
    const test::TemporaryFolder folder;
    const std::string path = (folder / "out").string();
    const std::string status = SmdWriter(bench.state, bench.pane).buildMessageText(path, mode, bench.tree);
    return status.empty() ? test::readFile(path) : "status: " + status;
}

TEST(SmdWriter, TheTwoFormsOfAMessage) {
    test::Workbench bench;
    const std::string project = crlf({"* Data signifying that the equipment is alive",
                                      "OnLineData: S1 F2 H<-E", "    L 2", "        A 6 MDLN 'HLVFAb'",
                                      "        A 6 SOFTREV 'V01R01'.", "* ", "Next: S1 F1 W <R> H<->E."});
    bench.read(project);
    EXPECT_EQ(bench.saved(), project);
    EXPECT_EQ(
        built(bench, "BUILD_SMD"),
        crlf({kBanner, "* Data signifying that the equipment is alive", kBanner, "OnLineData: S1 F2 H<-E",
              "    <L 2", "        <A 6 MDLN 'HLVFAb'>", "        <A 6 SOFTREV 'V01R01'>", "    >.", kBanner,
              "* ", kBanner, "Next: S1 F1 W <R> H<->E."}));
    EXPECT_TRUE(bench.screen.boxes.empty());
}

TEST(SmdWriter, ListsCloseAtTheirOwnIndentation) {
    test::Workbench bench;
    const std::string project = crlf({"* ", "M: S1 F1 H->E", "    L 1", "        L 0", "    U1 1 5",
                                      "    L 1", "        L 1", "            L 0."});
    bench.read(project);
    EXPECT_EQ(bench.saved(), project);
    EXPECT_EQ(built(bench, "BUILD_SMD"),
              crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E", "    <L 1", "        <L 0>", "    >",
                    "    <U1 1 5>", "    <L 1", "        <L 1", "            <L 0>", "        >", "    >."}));
}

TEST(SmdWriter, AnEmptyListEndsAMessage) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E", "    L 0."});
    EXPECT_EQ(built(bench, "BUILD_SMD"), crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E", "    <L 0>."}));
}

TEST(SmdWriter, AnEmptyTreeWritesNothing) {
    test::Workbench bench;
    const test::TemporaryFolder folder;
    EXPECT_EQ(bench.saved(), "");
    SmdWriter writer(bench.state, bench.pane);
    EXPECT_EQ(writer.buildMessageText((folder / "x.smd").string(), "BUILD_SMD", bench.tree), "");
    EXPECT_TRUE(test::namesIn(folder.path()).empty());
}

TEST(SmdWriter, TheEditorIsResetAndShowsEachMessage) {
    test::Workbench bench;
    bench.read({"* a", "A: S1 F1 H->E.", "* b", "B: S1 F2 H->E."});
    bench.pane.calls.clear();
    SmdWriter(bench.state, bench.pane).buildMessageText("P", "MODELER", bench.tree);
    EXPECT_THAT(bench.pane.calls,
                ElementsAre("InitMsg", "hideItemPane", "display_DefSECSMsg A", "display_DefSECSMsg B"));
    EXPECT_EQ(bench.state.SECSMessageStore->getMessages().size(), 2U);
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
    for (const std::string_view mode : {"MODELER", "BUILD_SMD", "BUILD_MDF"}) {
        test::Workbench bench;
        bench.read({"* a", "Good: S1 F1 H->E.", "* b", GetParam().head + "."});
        Node* node = bench.tree.at(6);
        const test::TemporaryFolder folder;
        SmdWriter writer(bench.state, bench.pane);
        EXPECT_EQ(writer.buildMessageText((folder / "x").string(), mode, bench.tree), GetParam().status);
        const bool faulty = !GetParam().status.empty();
        EXPECT_EQ(bench.screen.texts(),
                  faulty ? std::vector<std::string>{GetParam().status} : std::vector<std::string>());
        EXPECT_EQ(bench.tree.selected(), faulty ? node : nullptr);
        EXPECT_EQ(node->backColor(), faulty ? OptionalColor(kErrorBackColor) : OptionalColor());
        EXPECT_EQ(bench.state.SECSMessageStore->getMessages().size(), faulty ? 1U : 2U);
        EXPECT_EQ(test::namesIn(folder.path()).size(), faulty || mode == "MODELER" ? 0U : 1U);
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
    SmdWriter writer(bench.state, bench.pane);
    EXPECT_EQ(writer.buildMessageText("P", "MODELER", bench.tree), "occur an Error");
    EXPECT_THAT(bench.screen.texts(), ElementsAre("! Insert unsigned integer for initial value."));
    EXPECT_EQ(bench.tree.selected(), bench.tree.at(8));
    EXPECT_EQ(bench.tree.at(7)->text(), "A 3 N 'x  '"); // what was normalized before stays so
    EXPECT_EQ(bench.state.SECSMessageStore->getMessages().size(), 1U);
}

TEST(SmdWriter, NormalizedTextsAreWritten) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E", "    U1 3 1", "    boolean 2 X T."});
    EXPECT_EQ(built(bench, "BUILD_SMD"), crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E", "    <U1 3 1 0 0>",
                                               "    <BOOLEAN 2 X True False>."}));
}

TEST(SmdWriter, ADescriptionWithAColonIsTakenForAMessage) {
    test::Workbench bench;
    bench.read({"* note: x", "M: S1 F1 H->E."});
    EXPECT_EQ(bench.saved(), crlf({"* ", "note: x.", "* note: x", "M: S1 F1 H->E."}));
    EXPECT_EQ(built(bench, "BUILD_SMD"), "status: " + kStreamText);
    EXPECT_EQ(bench.tree.selected(), bench.tree.at(2));
}

TEST(SmdWriter, ASaveKeepsWhatStandsBelowAnItemThatIsNoList) {
    test::Workbench bench;
    const std::string project =
        crlf({"* ", "M: S1 F1 H->E", "    A 1 'x'", "        U1 1 5", "    l 1", "        U1 1 6."});
    bench.read(project);
    EXPECT_EQ(bench.saved(), project);
}

TEST(SmdWriter, AMissingFolderIsTold) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E."});
    const test::TemporaryFolder folder;
    SmdWriter writer(bench.state, bench.pane);
    for (const std::string_view mode : {"BUILD_SMD", "BUILD_MDF"}) {
        bench.screen.boxes.clear();
        EXPECT_NE(writer.buildMessageText((folder / "none/x.smd").string(), mode, bench.tree), "");
        EXPECT_THAT(bench.screen.texts(),
                    ElementsAre("You cannot save this file because the file path is not found."));
        EXPECT_TRUE(writer.fileError().has_value());
    }
}

TEST(SmdWriter, AnyOtherFailureOfTheFileIsOnlyRemembered) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E."});
    const test::TemporaryFolder folder;
    SmdWriter writer(bench.state, bench.pane);
    EXPECT_EQ(writer.buildMessageText(folder.path().string(), "BUILD_SMD", bench.tree), "");
    EXPECT_TRUE(bench.screen.boxes.empty());
    ASSERT_TRUE(writer.fileError().has_value());
    EXPECT_NE(writer.fileError()->number, 0);
    EXPECT_EQ(writer.buildMessageText((folder / "x").string(), "BUILD_SMD", bench.tree), "");
    EXPECT_FALSE(writer.fileError().has_value());
}

TEST(SmdWriter, ABuildReplacesTheFile) {
    test::Workbench bench;
    bench.read({"* ", "M: S1 F1 H->E."});
    const test::TemporaryFolder folder;
    test::writeFile(folder / "x", std::string(10000, 'o'));
    SmdWriter(bench.state, bench.pane).buildMessageText((folder / "x").string(), "BUILD_SMD", bench.tree);
    EXPECT_EQ(test::readFile(folder / "x"), crlf({kBanner, "* ", kBanner, "M: S1 F1 H->E."}));
}

TEST(SmdWriter, OneMessageIsComposedAsARecord) {
    test::Workbench bench;
    bench.read({"* about", "M: S1 F1 W H->E", "    L 1", "        U1 1 ID 5.", "* b", "N: S1 F2 H->E."});
    const auto record = SmdWriter(bench.state, bench.pane).composeSingleMessage("MODELER_SAVE", bench.tree);
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->getHeadText(), "about\r\nM: S1 F1 W H->E");
    EXPECT_EQ(record->getBodyText(), crlf({"1 L 1", "2 U1 1 ID 5"}));
}

TEST(SmdWriter, ATreeWithoutAMessageComposesNone) {
    test::Workbench bench;
    SmdWriter writer(bench.state, bench.pane);
    EXPECT_FALSE(writer.composeSingleMessage("MODELER_SAVE", bench.tree).has_value());
    bench.tree.add(nullptr, Relation::Last, "no message");
    EXPECT_FALSE(writer.composeSingleMessage("MODELER_SAVE", bench.tree).has_value());
    EXPECT_TRUE(bench.screen.boxes.empty());
}

TEST(SmdWriter, AMessageThatIsNotCorrectIsTold) {
    test::Workbench bench;
    bench.read({"* about", "M: Sx F1 W H->E."});
    EXPECT_FALSE(
        SmdWriter(bench.state, bench.pane).composeSingleMessage("MODELER_SAVE", bench.tree).has_value());
    EXPECT_THAT(bench.screen.texts(), ElementsAre("This message is not correct"));
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
