#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMainWindow>
#include <QSplitter>
#include <QTreeView>

namespace zb::test {
namespace {

struct ModelerWindows : ::testing::Test {
    ModelerWindows() {
        program.application.start("");
        program.application.showModeler();
        program.settle();
    }

    frmTRModeler& modeler() { return program.application.frmTRModeler; }

    // What the first part takes of the space that the parts share.
    int shareOf(const char* splitter) {
        const QList<int> sizes = program.widget<QSplitter>(modeler(), splitter).sizes();
        return (100 * sizes[0] + (sizes[0] + sizes[1]) / 2) / (sizes[0] + sizes[1]);
    }

    void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent down(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&widget, &down);
    }

    void turnTo(QWidget& form) {
        QEvent event(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&form, &event);
        program.settle();
    }

    ProgramOnScreen program{"/"};
};

TEST_F(ModelerWindows, SplittersKeepTheirSharesUntilTheUserMovesThem) {
    EXPECT_EQ(shareOf("modelerSplitter"), 40);
    EXPECT_EQ(shareOf("treeSplitter"), 60);
    EXPECT_EQ(shareOf("tableSplitter"), 50);
    program.screen.mainWindow()->resize(1700, 1000);
    program.settle();
    EXPECT_EQ(shareOf("modelerSplitter"), 40);
    EXPECT_EQ(shareOf("treeSplitter"), 60);
    EXPECT_EQ(shareOf("tableSplitter"), 50);
}

TEST_F(ModelerWindows, ColumnsComeBackAsWideAsTheUserMadeThem) {
    List& table = modeler().lvwTRObject;
    auto& view = program.widget<QTreeView>(modeler(), "lvwTRObject");
    const auto showColumns = [&](const char* first, const char* second, int width) {
        table.clear();
        table.clearColumns();
        table.addColumn(first, width);
        table.addColumn(second, width);
        program.settle();
        return view.header()->sectionSize(0);
    };
    EXPECT_EQ(showColumns("TRMessage", "Condition", 1800), 200);
    view.header()->resizeSection(0, 111);
    EXPECT_EQ(showColumns("TRItem", "Value", 1350), 150);
    EXPECT_EQ(showColumns("TRMessage", "Condition", 1800), 111);
}

TEST_F(ModelerWindows, ADialogIsLeftWhenTheUserTurnsToTheMainWindow) {
    frmFind& dialog = program.application.frmFind;
    dialog.show();
    program.settle();
    EXPECT_EQ(program.application.desktop.activeWindow(), &dialog);
    turnTo(*program.screen.mainWindow());
    EXPECT_EQ(program.application.desktop.activeWindow(), &modeler());
    turnTo(program.form(dialog));
    EXPECT_EQ(program.application.desktop.activeWindow(), &dialog);
}

TEST_F(ModelerWindows, WhatTheProgramBringsToTheFrontIsNoTurnOfTheUser) {
    frmFind& dialog = program.application.frmFind;
    dialog.show();
    // The display still tells of the window that was active before.
    turnTo(*program.screen.mainWindow());
    EXPECT_EQ(program.application.desktop.activeWindow(), &dialog);
}

TEST_F(ModelerWindows, KeysDragFromTheLibraryToTheTree) {
    program.application.showEditor();
    frmSECSEditor& editor = program.application.frmSECSEditor;
    ASSERT_GT(editor.lvwSource.count(), 0U);
    editor.lvwSource.select(editor.lvwSource.shown().front());
    press(program.widget<QWidget>(editor, "lvwSource"), Qt::Key_C, Qt::ControlModifier);
    ASSERT_TRUE(editor.liveTree().empty());
    press(program.widget<QWidget>(editor, "tvwEdit"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(editor.liveTree().empty());
}

} // namespace
} // namespace zb::test
