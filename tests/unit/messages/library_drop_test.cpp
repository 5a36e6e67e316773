#include "messages/library_drop.h"

#include "messages/libraries/built_in.h"
#include "messages/library_store.h"
#include "messages/smd/smd_text.h"

#include <gtest/gtest.h>

namespace zb {

static void PrintTo(const DropStep& step, std::ostream* out) {
    *out << step.streamFunction << (step.reportsDuplicates ? " tells" : " silent");
}

namespace {

using Steps = std::vector<DropStep>;

TEST(LibraryDrop, APrimaryMessageBringsItsReply) {
    EXPECT_EQ(planDrop({"S1 F13"}), (Steps{{"S1 F13", true}, {"S1 F14", false}}));
}

TEST(LibraryDrop, AReplyComesAlone) {
    EXPECT_EQ(planDrop({"S1 F14"}), (Steps{{"S1 F14", true}}));
}

TEST(LibraryDrop, ADraggedReplyHasItsOwnTurn) {
    EXPECT_EQ(planDrop({"S1 F1", "S1 F2", "S2 F1"}),
              (Steps{{"S1 F1", true}, {"S1 F2", true}, {"S2 F1", true}, {"S2 F2", false}}));
}

TEST(LibraryDrop, OfTwinsTheLastOneCounts) {
    EXPECT_EQ(planDrop({"S1 F2", "S1 F2"}), (Steps{{"S1 F2", false}}));
    EXPECT_EQ(planDrop({"S1 F13", "S1 F13", "S1 F14", "S1 F14"}),
              (Steps{{"S1 F13", false}, {"S1 F14", false}}));
}

TEST(LibraryDrop, NothingDraggedIsNothingToDo) {
    EXPECT_EQ(planDrop({}), Steps{});
}

TEST(SmdText, IsTheTextOfABuild) {
    SECSLibraryStore store{CodePage(1252)};
    std::string expected;
    for (const std::string& block : semiLibraryBlocks()) {
        store.load(block, kFormatSemi);
        expected += block;
    }
    EXPECT_EQ(composeSmd(store.getMessages(), SmdForm::Build), expected);
}

TEST(SmdText, InProjectFormIndentationDefinesTheDepth) {
    SECSLibraryStore store{CodePage(1252)};
    const std::string text =
        "* T\r\nA: S1 F1 W H->E\r\n    L 2\r\n        L 1\r\n            U1 1 0\r\n        L 0\r\n"
        "    B 1 0.\r\n* \r\nB: S1 F2 H->E.\r\n";
    ASSERT_EQ(store.load(text, kFormatSemi), "");
    EXPECT_EQ(composeSmd(store.getMessages(), SmdForm::Project), text);
}

} // namespace
} // namespace zb
