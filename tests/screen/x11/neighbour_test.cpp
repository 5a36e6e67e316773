// What other programs and the window manager do to the windows at a display: the selection, drags, the
// stacking order.
#include "desktop/models/node_tree_view.h"
#include "messages/mdf_text.h"
#include "platform/text_file.h"
#include "screen/script/spots.h"
#include "screen/support/program_on_screen.h"
#include "screen/x11/display.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QScreen>

#include <filesystem>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

struct BesideOthers : ::testing::Test {
    BesideOthers() {
        program.application.start("");
        program.application.showEditor();
        display.steps().rest();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }
    Spot spot(Control& control) { return spotOf(program.screen, Target::whole(control)); }
    Spot spot(Tree& tree, Node& node) {
        Target target = Target::whole(tree);
        target.node = &node;
        return spotOf(program.screen, target);
    }

    ProgramOnScreen program{"/"};
    Display display{0};
};

TEST_F(BesideOthers, TheMiddleButtonPastesTheSelectionOfAnotherProgram) {
    display.neighbour().select("Reports 日本");
    display.click(spot(editor().txtDescription), Display::Button::Middle);
    EXPECT_EQ(editor().txtDescription.text(), "Reports 日本");
    EXPECT_EQ(program.widget<QLineEdit>(editor(), "txtDescription").text(), QStringLiteral("Reports 日本"));
}

TEST_F(BesideOthers, TheMiddleButtonPastesNothingWhereTheLastKeyWasRefused) {
    display.neighbour().select("12");
    display.click(spot(editor().txtStream));
    ASSERT_TRUE(display.strike('x'));
    ASSERT_TRUE(editor().txtStream.locked());
    display.click(spot(editor().txtStream), Display::Button::Middle);
    EXPECT_EQ(editor().txtStream.text(), "");
    EXPECT_EQ(program.widget<QLineEdit>(editor(), "txtStream").text(), QString());
}

TEST_F(BesideOthers, TextFromAnotherProgramFallsIntoAField) {
    display.dragFromNeighbour("Alarm", spot(editor().txtMsgName));
    EXPECT_EQ(editor().txtMsgName.text(), "Alarm");
    EXPECT_EQ(program.widget<QLineEdit>(editor(), "txtMsgName").text(), QStringLiteral("Alarm"));
}

TEST_F(BesideOthers, TheWheelOverAListWithoutTheFocusChangesNothing) {
    Combo& combo = editor().cboSECSMessage;
    for (const char* name : {"S1F1", "S1F2", "S1F3"})
        combo.add(name);
    display.click(spot(editor().txtStream));
    ASSERT_TRUE(editor().txtStream.focused());
    const std::string before = combo.text();
    for (const auto turn : {Display::Button::WheelDown, Display::Button::WheelUp, Display::Button::WheelDown})
        display.click(spot(combo), turn);
    EXPECT_EQ(combo.text(), before);
    EXPECT_TRUE(editor().txtStream.focused());
}

TEST_F(BesideOthers, APictureFromAnotherProgramFallsOnTheStatements) {
    frmTRItem& dialog = program.application.frmTRItem;
    program.application.showModeler();
    dialog.show();
    Node& root = dialog.tvwStatement.nodes().add(nullptr, Relation::Last, "Conditions");
    display.steps().rest();
    ASSERT_TRUE(dialog.picIF.onDragData);
    dialog.picIF.onDragData();
    display.dragPictureFromNeighbour(spot(dialog.tvwStatement, root));
    ASSERT_EQ(root.children(), 1);
    EXPECT_EQ(root.child()->text(), "if");
}

/// Files of a file manager.
struct FilesOfOthers : BesideOthers {
    FilesOfOthers() {
        const fs::path project = folder / "Line/Line.zbp";
        fs::create_directories(project.parent_path());
        writeFile(project, encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                                       "* Are you there\r\nA: S1 F1 W H->E.\r\n"));
        writeFile(folder / "sml.sml", "S1F1 W\n.\n");
        writeFile(folder / "smd.smd", "* one\r\nB: S1 F3 W H->E.\r\n* two\r\nC: S1 F4 H<-E.\r\n");
        writeFile(folder / "mdf.mdf", composedMdf());
    }

    static std::string composedMdf() {
        SECSMessageRecord record;
        record.parseNodeText("D: S1 F5 W H->E", "three");
        return composeMdf({&record});
    }

    void drop(const char* name, const Spot& to) {
        display.dragFilesFromNeighbour((folder / name).string(), to);
        display.steps().rest();
    }

    TemporaryFolder folder;
};

TEST_F(FilesOfOthers, AProjectOpens) {
    drop("Line/Line.zbp", spot(editor().tvwEdit));
    EXPECT_EQ(program.application.ProjectName, "Line");
    EXPECT_NE(editor().liveTree().find("A"), nullptr);
    EXPECT_EQ(editor().liveTree().count(), 3U) << "and no text falls into the tree";
}

TEST_F(FilesOfOthers, DefinitionsOpenAsTheLibrary) {
    drop("sml.sml", spot(editor().tvwEdit));
    EXPECT_TRUE(editor().libraryMenu.mnuLIBSML.checked());
    EXPECT_EQ(editor().lvwSource.count(), 1U);
    drop("smd.smd", spot(editor().lvwSource));
    EXPECT_TRUE(editor().libraryMenu.mnuLIBSMD.checked());
    EXPECT_EQ(editor().lvwSource.count(), 2U);
    drop("mdf.mdf", spot(editor().tvwEdit));
    EXPECT_TRUE(editor().libraryMenu.mnuLIBMDF.checked());
    EXPECT_EQ(editor().lvwSource.count(), 1U);
    EXPECT_EQ(editor().liveTree().count(), 0U);
}

TEST_F(FilesOfOthers, AFileOverAFieldIsNotItsText) {
    drop("sml.sml", spot(editor().txtDescription));
    EXPECT_EQ(editor().txtDescription.text(), "");
    EXPECT_TRUE(editor().libraryMenu.mnuLIBSML.checked());
}

TEST_F(BesideOthers, AKeptDialogStaysAboveTheMainWindowThatIsClicked) {
    frmTRItem& dialog = program.application.frmTRItem;
    program.application.showModeler();
    dialog.show();
    dialog.chkKeepVisible.setChecked(true);
    display.steps().rest();
    QWidget& form = program.form(dialog);
    QMainWindow& main = *program.screen.mainWindow();
    form.move(main.geometry().center());
    display.steps().rest();
    display.clickTitle(main);
    display.steps().rest();
    ASSERT_TRUE(main.isActiveWindow());
    ASSERT_TRUE(dialog.visible());
    EXPECT_EQ(QApplication::topLevelAt(form.mapToGlobal(QPoint(20, 20))), &form);
}

TEST_F(BesideOthers, ADialogIsNotLargerThanTheScreen) {
    QWidget& form = program.form(program.application.frmTRItem);
    form.resize(form.screen()->size() + QSize(100, 100));
    program.application.frmTRItem.show();
    display.steps().rest();
    EXPECT_TRUE(form.screen()->availableGeometry().contains(form.geometry()));
}

} // namespace
} // namespace zb::test
