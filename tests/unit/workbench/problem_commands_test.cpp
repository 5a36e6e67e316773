#include "platform/text_file.h"
#include "unit/workbench/problems_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace zb::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ProblemCommandsTest : ProblemsDesk {
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

} // namespace
} // namespace zb::test
