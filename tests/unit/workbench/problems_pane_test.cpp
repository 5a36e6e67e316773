#include "workbench/problems_pane.h"

#include "unit/workbench/problems_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zb::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ProblemsPaneTest : ProblemsDesk {};

TEST_F(ProblemsPaneTest, ListsWhatACheckFindsWithCountsInTheStrip) {
    open(kMessages);
    EXPECT_THAT(rows(), ElementsAre(kCount, kName));
    EXPECT_EQ(pane.button.caption(), "Problems (2 errors)");
    EXPECT_EQ(pane.chkSeverity[0].caption(), "Errors (2)");
    EXPECT_EQ(pane.chkKind[0].caption(), "Definitions (2)");
}

TEST_F(ProblemsPaneTest, TheStandardsAreCheckedWhenAskedFor) {
    open(kMessages);
    hands.click(Target::whole(pane.chkCheckStandard));
    pane.finish();
    EXPECT_EQ(pane.button.caption(), "Problems (2 errors, 3 warnings)");
    hands.click(Target::whole(pane.chkCheckStandard));
    pane.finish();
    EXPECT_EQ(pane.button.caption(), "Problems (2 errors)");
}

TEST_F(ProblemsPaneTest, AnActionChangesWhatIsListed) {
    open(kMessages);
    editor.liveTree().find("Report")->child()->setText("L 3");
    EXPECT_THAT(rows(), ElementsAre(kName));
    editor.liveTree().remove(*editor.liveTree().find("Report")->child()->lastChild());
    EXPECT_THAT(rows(), ElementsAre(kCount));
    editor.liveTree().find("Report")->child()->setText("L 2");
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(pane.button.caption(), "Problems");
}

TEST_F(ProblemsPaneTest, AClosedPaneCountsAndFillsItsListWhenItOpens) {
    open(kMessages);
    pane.close();
    editor.liveTree().find("Report")->child()->setText("L 3");
    pane.finish();
    EXPECT_EQ(pane.button.caption(), "Problems (1 error)");
    EXPECT_EQ(pane.lvwProblems.count(), 2U);
    pane.open();
    EXPECT_THAT(rows(), ElementsAre(kName));
}

TEST_F(ProblemsPaneTest, ChecksInSlicesBetweenTheActions) {
    open(kMessages);
    runSlice();
    program.screen.later.clear();
    editor.liveTree().find("Report")->child()->setText("L 3");
    editor.liveTree().find("Report")->child()->setText("L 4");
    ASSERT_EQ(program.screen.later.size(), 1U);
    EXPECT_EQ(program.screen.later.front().delay.count(), 0);
    EXPECT_EQ(pane.lvwProblems.count(), 2U);
    editor.liveTree().find("Report")->child()->setText("L 3");
    runSlice();
    EXPECT_EQ(pane.lvwProblems.count(), 1U);
}

TEST_F(ProblemsPaneTest, ACheckChangesNothingInTheProject) {
    open(kMessages);
    std::vector<std::string> texts;
    for (int index = 1; const Node* node = editor.liveTree().at(index); ++index) {
        EXPECT_EQ(node->backColor(), std::nullopt);
        texts.push_back(node->text());
    }
    EXPECT_THAT(texts, testing::Contains("A 3 LOT 'ab'"));
    EXPECT_FALSE(application.editorHistory.steps.canUndo());
    EXPECT_TRUE(application.editorHistory.steps.isSaved());
    EXPECT_THAT(program.screen.boxes, IsEmpty());
}

TEST_F(ProblemsPaneTest, WhatWasFoundInAPastedTextIsListedUntilTheNextOne) {
    open("* d\r\nAsk: S1 F17 H->E.\r\n");
    pane.close();
    editor.sharedNodes.pasteText("S1F2\r\n<Q 1>\r\n.\r\nS1F3 W\r\n<Z 2>\r\n.\r\n");
    const Button& shows = application.frmWorkbench.notices.cmdNotice[0];
    EXPECT_EQ(shows.caption(), "Show");
    hands.click(Target::whole(application.frmWorkbench.notices.cmdNotice[0]));
    EXPECT_TRUE(pane.isOpen());
    const std::vector<std::string> found = rows();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_THAT(found[0], testing::StartsWith("error | pasted text line 2"));
    EXPECT_THAT(found[1], testing::StartsWith("error | pasted text line 5"));
    editor.sharedNodes.pasteText("S1F5 W.\r\n");
    EXPECT_THAT(rows(), IsEmpty());
}

// A message with more or fewer findings moves the rows below it, and the last ones over the end of the list.
TEST_F(ProblemsPaneTest, OfMoreProblemsThanAreListedTheFirstOnesAreShownWhateverChanges) {
    std::string messages;
    for (int number = 0; number < 2500; ++number)
        messages +=
            "* d\r\nM" + std::to_string(number) + ": S6 F11 W H<-E\r\n    L 2\r\n        U4 1 A 0.\r\n";
    open(messages);
    const auto listed = [&] {
        const std::vector<std::string> all = rows();
        return all.size() < 2 ? std::string() : all.front().substr(8, 2) + ".." + all.back().substr(8, 5);
    };
    NodeTree& tree = editor.liveTree();
    EXPECT_EQ(listed(), "M0..M1999");
    EXPECT_EQ(pane.lblProblemCount.text(), "The first 2000 of 2500 are listed");
    const ListRow* last = pane.lvwProblems.rows()[1000].get();
    tree.find("M0")->child()->setText("L 1");
    EXPECT_EQ(listed(), "M1..M2000");
    EXPECT_EQ(pane.lblProblemCount.text(), "The first 2000 of 2499 are listed");
    // The rows of the others are still the same ones, as a selected one is to stay selected.
    EXPECT_EQ(pane.lvwProblems.rows()[999].get(), last);
    tree.find("M0")->child()->setText("L 2");
    EXPECT_EQ(listed(), "M0..M1999");
    EXPECT_EQ(pane.lvwProblems.rows()[1000].get(), last);
    Node& gone = *tree.find("M1500");
    for (int line = 0; line < 2; ++line)
        tree.remove(*gone.previous());
    tree.remove(gone);
    tree.find("M700")->child()->setText("L 1");
    EXPECT_EQ(listed(), "M0..M2001");
    pane.txtProblemFilter.setText("M24");
    EXPECT_EQ(pane.lblProblemCount.text(), "");
    EXPECT_EQ(rows().size(), 111U);
}

TEST_F(ProblemsPaneTest, ACheckThatTakesMoreThanASliceShowsHowFarItIs) {
    std::string messages;
    for (int number = 0; number < 20'000; ++number)
        messages += "* d\r\nM" + std::to_string(number) + ": S6 F11 W H<-E\r\n    U4 1 A 0.\r\n";
    open(messages);
    EXPECT_EQ(pane.watch.percentDone(), 100);
    pane.watch.restart();
    EXPECT_EQ(pane.watch.percentDone(), 0);
    runSlice();
    EXPECT_THAT(pane.lblProblemCount.text(), testing::MatchesRegex("Checking... [0-9]+ %"));
    const int first = pane.watch.percentDone();
    EXPECT_LT(first, 100);
    for (int slice = 0; slice < 5; ++slice)
        runSlice();
    EXPECT_GE(pane.watch.percentDone(), first);
    pane.finish();
    EXPECT_EQ(pane.lblProblemCount.text(), "");
}

TEST_F(ProblemsPaneTest, TogglesAndTheFilterChooseRows) {
    open(kMessages);
    hands.click(Target::whole(pane.chkCheckStandard));
    pane.finish();
    ASSERT_EQ(rows().size(), 5U);
    hands.click(Target::whole(pane.chkSeverity[1]));
    EXPECT_THAT(rows(), ElementsAre(kCount, kName));
    hands.type(pane.txtProblemFilter, "1/3");
    EXPECT_THAT(rows(), ElementsAre(kName));
    hands.click(Target::whole(pane.chkKind[0]));
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(ProblemsPaneTest, AHeaderSortsAndSortsNoMore) {
    open(std::string(kMessages) + "* d\r\nAlso: S6 F13 H<-E\r\n    L 1.\r\n");
    Target header = Target::whole(pane.lvwProblems);
    header.column = 1;
    hands.click(header);
    EXPECT_THAT(rows(), ElementsAre(testing::HasSubstr("Also 1"), kCount, kName));
    hands.click(header);
    EXPECT_THAT(rows(), ElementsAre(kCount, kName, testing::HasSubstr("Also 1")));
}

TEST_F(ProblemsPaneTest, ADoubleClickAndEnterGoToTheFieldAtFault) {
    open(kMessages);
    ASSERT_EQ(hands.doubleClick(row(1)), "");
    EXPECT_EQ(application.desktop.activeWindow(), &editor);
    ASSERT_NE(editor.liveTree().selected(), nullptr);
    EXPECT_EQ(editor.liveTree().selected()->text(), "L 2");
    EXPECT_TRUE(editor.txtItemCount.focused());
    EXPECT_EQ(editor.txtStream.text(), "6");
    ASSERT_EQ(hands.click(row(2)), "");
    ASSERT_EQ(hands.key(pane.lvwProblems, {kKeyEnter, 0}), "");
    EXPECT_EQ(editor.liveTree().selected()->text(), "A 3 LOT 'ab'");
    EXPECT_TRUE(editor.txtItemName.focused());
    EXPECT_EQ(editor.txtItemName.selectedText(), "LOT");
    EXPECT_FALSE(application.editorHistory.steps.canUndo());
}

TEST_F(ProblemsPaneTest, TheNextAndThePreviousProblemAreReachedWithAClosedPane) {
    open(kMessages);
    pane.close();
    pane.goOn(ProblemsPane::Way::Next);
    EXPECT_EQ(editor.liveTree().selected()->text(), "L 2");
    pane.goOn(ProblemsPane::Way::Next);
    EXPECT_EQ(editor.liveTree().selected()->text(), "A 3 LOT 'ab'");
    pane.goOn(ProblemsPane::Way::Next);
    EXPECT_EQ(editor.liveTree().selected()->text(), "L 2");
    pane.goOn(ProblemsPane::Way::Previous);
    EXPECT_EQ(editor.liveTree().selected()->text(), "A 3 LOT 'ab'");
}

TEST_F(ProblemsPaneTest, AProblemOfTheModelIsShownInTheModeler) {
    open("* d\r\nAsk: S1 F17 W H->E.\r\n",
         "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] Any\r\n  SECSMessage Gone\r\n  Report False\r\n"
         "  Direction 2\r\nEndTRMessage\r\n");
    ASSERT_EQ(rows().size(), 1U);
    hands.doubleClick(row(1));
    EXPECT_TRUE(application.frmTRModeler.visible());
    EXPECT_EQ(application.desktop.activeWindow(), &application.frmTRModeler);
    ASSERT_NE(application.frmTRModeler.tvwRcvTRMsg.nodes().selected(), nullptr);
    EXPECT_EQ(application.frmTRModeler.tvwRcvTRMsg.nodes().selected()->text(), "Any");
}

TEST_F(ProblemsPaneTest, AProblemIsShownWhateverTheFilterOfTheModelerHides) {
    open("* d\r\nAsk: S1 F17 W H->E.\r\n",
         "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] Any\r\n  SECSMessage Gone\r\n  Report False\r\n"
         "  Direction 2\r\nEndTRMessage\r\n");
    application.showModeler();
    application.frmWorkbench.modelFilter.txtModelFilter.setText("other");
    Tree& tree = application.frmTRModeler.tvwRcvTRMsg;
    const Node* message = tree.nodes().firstRoot()->child();
    ASSERT_FALSE(tree.shows(*message));
    application.showEditor();
    hands.doubleClick(row(1));
    EXPECT_EQ(tree.nodes().selected(), message);
    EXPECT_TRUE(tree.shows(*message));
}

TEST_F(ProblemsPaneTest, TheModelerStaysClosedWhileMessagesHaveErrors) {
    open(kMessages, "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] Any\r\n  SECSMessage Gone\r\n"
                    "  Report False\r\n  Direction 2\r\nEndTRMessage\r\n");
    ASSERT_EQ(rows().size(), 3U);
    hands.doubleClick(row(3));
    EXPECT_FALSE(application.frmTRModeler.visible());
    EXPECT_THAT(program.screen.boxes, IsEmpty());
    EXPECT_EQ(application.frmWorkbench.notices.lblNotice.text(),
              "The modeler opens when the messages have no errors");
}

TEST_F(ProblemsPaneTest, F8GoesOnFromWhereverTheFocusIs) {
    open(kMessages);
    pane.close();
    ASSERT_EQ(hands.key(editor.txtStream, {119, 0}), "");
    EXPECT_TRUE(editor.txtItemCount.focused());
    ASSERT_EQ(hands.key(editor.txtItemCount, {119, 0}), "");
    EXPECT_TRUE(editor.txtItemName.focused());
    ASSERT_EQ(hands.key(editor.txtItemName, {119, kShiftKey}), "");
    EXPECT_TRUE(editor.txtItemCount.focused());
}

} // namespace
} // namespace zb::test
