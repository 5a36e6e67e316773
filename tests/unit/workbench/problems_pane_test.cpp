#include "workbench/problems_pane.h"

#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"
#include "workbench/frm_workbench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <utility>

namespace zb::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kMessages = "* d\r\nAsk: S1 F17 H->E.\r\n"
                                  "* d\r\nAnswer: S1 F18 H<-E\r\n    B 1 ONLACK 0.\r\n"
                                  "* d\r\nReport: S6 F11 W H<-E\r\n    L 2\r\n        U4 1 DATAID 0\r\n"
                                  "        U4 1 LOT 5\r\n        A 3 LOT 'ab'.\r\n";

struct ProblemsPaneTest : ::testing::Test {
    void open(const std::string& messages, const std::string& model = {}) {
        const std::string path = (folder / "P.zbp").string();
        std::ofstream(path, std::ios::binary)
            << "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
            << messages << model;
        application.start(path);
        pane.finish();
        pane.open();
    }

    std::vector<std::string> rows() {
        pane.finish();
        std::vector<std::string> rows;
        for (const ListRow* row : pane.lvwProblems.shown())
            rows.push_back(row->text() + " | " + row->cell(1) + " | " + row->cell(2));
        return rows;
    }

    /// What is to be done at once is done, as between two actions.
    void runSlice() {
        const auto later = std::exchange(program.screen.later, {});
        for (const auto& each : later)
            if (each.delay.count() == 0)
                each.run();
    }

    Target row(std::size_t number) {
        Target target = Target::whole(pane.lvwProblems);
        target.row = pane.lvwProblems.shown()[number - 1];
        return target;
    }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files};
    Application& application = program.application;
    frmSECSEditor& editor = application.frmSECSEditor;
    ProblemsPane& pane = application.frmWorkbench.problems;
    UserHands hands{application.desktop};
};

constexpr const char* kCount =
    "error | Report 1 | The count of sub items is not correct. Change the item count";
constexpr const char* kName = "error | Report 1/3 | The name of this item be duplicated";

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

struct ProblemCommandsTest : ProblemsPaneTest {
    void openMenu(std::size_t number) {
        ASSERT_EQ(hands.rightClick(row(number)), "");
        ASSERT_TRUE(pane.commands.mnuProblem.isOpen());
    }
    std::string silencings() const { return readBytes((folder / "P.zbcheck").string()).value(); }
};

TEST_F(ProblemCommandsTest, ACureIsOneStepThatCanBeUndone) {
    open(kMessages);
    openMenu(1);
    EXPECT_EQ(pane.commands.mnuProblemCure.caption(), "Set the count to 3");
    ASSERT_EQ(hands.click(Target::whole(pane.commands.mnuProblemCure)), "");
    EXPECT_THAT(rows(), ElementsAre(kName));
    EXPECT_EQ(application.editorHistory.steps.undoName(), "Set the count to 3");
    application.editorHistory.steps.undo();
    EXPECT_THAT(rows(), ElementsAre(kCount, kName));
}

TEST_F(ProblemCommandsTest, WhatHasNoCureOffersNone) {
    open("* d\r\nOwn: S64 F1 H->E\r\n    U1 1 SLOT -1.\r\n");
    ASSERT_EQ(rows().size(), 1U);
    openMenu(1);
    EXPECT_FALSE(pane.commands.mnuProblemCure.enabled());
    EXPECT_EQ(pane.commands.mnuProblemCure.caption(), "No cure by itself");
}

TEST_F(ProblemCommandsTest, ARenamedMessageIsRenamedInTheListOfMessagesToo) {
    open("* d\r\nAsk: S1 F17 W H->E.\r\n* d\r\nask: S1 F1 W H->E.\r\n");
    ASSERT_EQ(rows().size(), 1U);
    const auto before = editor.cboSECSMessage.entries();
    openMenu(1);
    ASSERT_EQ(hands.click(Target::whole(pane.commands.mnuProblemCure)), "");
    EXPECT_THAT(editor.cboSECSMessage.entries(), testing::UnorderedElementsAre("Ask", "ask1"));
    EXPECT_NE(editor.liveTree().find("ask1"), nullptr);
    application.editorHistory.steps.undo();
    EXPECT_EQ(editor.cboSECSMessage.entries(), before);
}

TEST_F(ProblemCommandsTest, AMissingReplyIsAdded) {
    open("* d\r\nAsk: S1 F17 W H->E.\r\n");
    hands.click(Target::whole(pane.chkCheckStandard));
    ASSERT_EQ(rows().size(), 1U);
    openMenu(1);
    ASSERT_EQ(hands.click(Target::whole(pane.commands.mnuProblemCure)), "");
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_NE(editor.liveTree().find("S1F18"), nullptr);
    EXPECT_EQ(application.editorHistory.steps.undoName(), "Add the reply S1F18");
}

TEST_F(ProblemCommandsTest, APlaceIsSilencedInAFileBesideTheProjectAndReportedAgain) {
    open(kMessages);
    openMenu(1);
    ASSERT_EQ(hands.click(Target::whole(pane.commands.mnuSilencePlace)), "");
    EXPECT_EQ(silencings(), "smd.item.count Report 1\n");
    EXPECT_THAT(rows(), ElementsAre(kName));
    EXPECT_EQ(pane.button.caption(), "Problems (1 error)");
    hands.click(Target::whole(pane.chkShowSilenced));
    EXPECT_THAT(rows(), ElementsAre(kCount, kName));
    openMenu(1);
    EXPECT_FALSE(pane.commands.mnuSilencePlace.enabled());
    ASSERT_EQ(hands.click(Target::whole(pane.commands.mnuReportAgain)), "");
    EXPECT_EQ(silencings(), "");
    EXPECT_EQ(pane.button.caption(), "Problems (2 errors)");
}

TEST_F(ProblemCommandsTest, AKindIsSilencedAndStaysSoAtTheNextStart) {
    open(kMessages);
    openMenu(2);
    ASSERT_EQ(hands.click(Target::whole(pane.commands.mnuSilenceKind)), "");
    EXPECT_EQ(silencings(), "smd.item.twice\n");
    Program again{files};
    again.application.start((folder / "P.zbp").string());
    again.application.frmWorkbench.problems.finish();
    EXPECT_EQ(again.application.frmWorkbench.problems.button.caption(), "Problems (1 error)");
}

TEST_F(ProblemCommandsTest, AProjectRemembersThatItAsksForTheStandards) {
    open(kMessages);
    hands.click(Target::whole(pane.chkCheckStandard));
    EXPECT_EQ(silencings(), "check standard\n");
    Program again{files};
    again.application.start((folder / "P.zbp").string());
    EXPECT_TRUE(again.application.frmWorkbench.problems.chkCheckStandard.checked());
    hands.click(Target::whole(pane.chkCheckStandard));
    EXPECT_EQ(silencings(), "");
}

TEST_F(ProblemCommandsTest, AProjectWithoutAFileHasNoPlaceForSilencings) {
    open(kMessages);
    std::filesystem::remove((folder / "P.zbp").string());
    openMenu(1);
    EXPECT_FALSE(pane.commands.mnuSilencePlace.enabled());
    EXPECT_EQ(pane.commands.mnuSilencePlace.caption(), "Silence This &Place (save the project first)");
}

TEST_F(ProblemCommandsTest, TheInterfaceDocumentNeverTakesThePlaceOfAProject) {
    open(kMessages);
    const std::string path = (folder / "P.zbp").string();
    const std::string before = readBytes(path).value();
    program.screen.picks.push_back(path);
    ASSERT_EQ(hands.click(Target::whole(pane.cmdDocument)), "");
    EXPECT_EQ(readBytes(path).value(), before);
    EXPECT_EQ(application.frmWorkbench.notices.lblNotice.text(),
              "P.zbp is the name of a project, and not of a document");
}

TEST_F(ProblemCommandsTest, TheInterfaceDocumentHasWhatWasNotSavedYet) {
    open(kMessages);
    editor.liveTree().find("Report")->child()->child()->setText("U4 1 FRESH 0");
    const std::string path = (folder / "P.md").string();
    program.screen.picks.push_back(path);
    ASSERT_EQ(hands.click(Target::whole(pane.cmdDocument)), "");
    EXPECT_THAT(readBytes(path).value(), testing::HasSubstr("FRESH"));
    EXPECT_EQ(application.frmWorkbench.notices.cmdNotice[0].caption(), "Open");
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
