#include "workbench/frm_workbench.h"

#include "controls/user_hands.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zb::test {
namespace {

struct WorkbenchTest : ::testing::Test {
    WorkbenchTest() {
        application.start({});
        application.ProjectName = "P";
        application.showEditor();
        hands.focus(application.frmSECSEditor.txtStream);
        hands.type(application.frmSECSEditor.txtStream, "12");
        hands.key(application.frmSECSEditor.txtStream, {kKeyHome, kShiftKey});
    }

    UserHands::Refusal click(Control& control) { return hands.click(Target::whole(control)); }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files};
    Application& application = program.application;
    frmWorkbench& workbench = application.frmWorkbench;
    UserHands hands{application.desktop};
};

TEST_F(WorkbenchTest, AClickInTheStripLeavesFocusCaretAndSelection) {
    TextField& field = application.frmSECSEditor.txtStream;
    ASSERT_EQ(field.selectedText(), "12");
    ASSERT_EQ(click(workbench.log.button), "");
    EXPECT_TRUE(workbench.log.isOpen());
    EXPECT_EQ(application.desktop.activeWindow(), &application.frmSECSEditor);
    EXPECT_TRUE(field.focused());
    EXPECT_EQ(field.selectedText(), "12");
}

TEST_F(WorkbenchTest, EscapeInAPaneClosesItAndReturnsToTheDocument) {
    click(workbench.log.button);
    ASSERT_EQ(hands.focus(workbench.log.lvwLog), "");
    ASSERT_EQ(application.desktop.activeWindow(), &workbench);
    hands.key(workbench.log.lvwLog, {kKeyEscape, 0});
    EXPECT_FALSE(workbench.log.isOpen());
    EXPECT_FALSE(workbench.log.button.checked());
    EXPECT_EQ(application.desktop.activeWindow(), &application.frmSECSEditor);
    EXPECT_TRUE(application.frmSECSEditor.txtStream.focused());
}

TEST_F(WorkbenchTest, WithoutADocumentTheMainWindowIsNextAfterAPane) {
    application.frmSECSEditor.hide();
    click(workbench.log.button);
    hands.focus(workbench.log.lvwLog);
    click(workbench.cmdClosePane);
    EXPECT_EQ(application.desktop.activeWindow(), &application.frmMain);
}

TEST_F(WorkbenchTest, AClosedPaneCannotBeUsed) {
    EXPECT_NE(hands.focus(workbench.log.lvwLog), "");
    EXPECT_NE(click(workbench.cmdClosePane), "");
    EXPECT_EQ(workbench.openPane(), nullptr);
}

TEST_F(WorkbenchTest, AWindowThatClosesNeverLeavesTheUserInTheStrip) {
    application.frmFind.showFind();
    ASSERT_EQ(application.desktop.activeWindow(), &application.frmFind);
    application.frmFind.hide();
    EXPECT_EQ(application.desktop.activeWindow(), &application.frmSECSEditor);
}

TEST_F(WorkbenchTest, AModalWindowBlocksTheStrip) {
    std::string refusal;
    program.screen.modal = [&](Window& /*window*/) { refusal = click(workbench.log.button); };
    application.frmAbout.showModal();
    EXPECT_NE(refusal, "");
    EXPECT_FALSE(workbench.log.isOpen());
}

TEST_F(WorkbenchTest, UndoAndRedoNameTheirStep) {
    EXPECT_FALSE(workbench.cmdUndo.enabled());
    EXPECT_EQ(workbench.cmdUndo.toolTip(), "Nothing to undo");
    workbench.showUndo("Delete S5F2");
    EXPECT_TRUE(workbench.cmdUndo.enabled());
    EXPECT_EQ(workbench.cmdUndo.toolTip(), "Undo: Delete S5F2");
    workbench.showRedo("Add S1F1");
    EXPECT_EQ(workbench.cmdRedo.toolTip(), "Redo: Add S1F1");
    workbench.showUndo({});
    EXPECT_FALSE(workbench.cmdUndo.enabled());
}

TEST_F(WorkbenchTest, ThePaneButtonTellsItsKeyAndItsCount) {
    const auto& panes = workbench.panes();
    const auto number = std::find(panes.begin(), panes.end(), &workbench.log) - panes.begin() + 1;
    EXPECT_EQ(workbench.log.button.toolTip(),
              "All notices since the start (Alt+" + std::to_string(number) + ")");
    workbench.log.setCount("3");
    EXPECT_EQ(workbench.log.button.caption(), "Log (3)");
    workbench.log.setCount({});
    EXPECT_EQ(workbench.log.button.caption(), "Log");
}

} // namespace
} // namespace zb::test
