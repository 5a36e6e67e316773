#include "desktop/models/combo_model.h"
#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QSplitter>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <algorithm>

namespace zb::test {
namespace {

struct ModelerWindows : ::testing::Test {
    ModelerWindows() {
        program.application.start("");
        program.application.showModeler();
        program.settle();
    }

    frmTRModeler& modeler() { return program.application.frmTRModeler; }

    // The share of the first part in the common space.
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

TEST_F(ModelerWindows, ColumnsThatAreMadeAnewHaveTheirOriginalWidths) {
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
    table.add("a row");
    program.settle();
    EXPECT_EQ(view.header()->sectionSize(0), 111);
    EXPECT_EQ(showColumns("TRMessage", "Condition", 1800), 200);
    view.header()->resizeSection(0, 111);
    EXPECT_EQ(showColumns("TRItem", "Value", 1350), 150);
    EXPECT_EQ(showColumns("TRMessage", "Condition", 1800), 200);
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
    // The display still reports the window that was active before.
    turnTo(*program.screen.mainWindow());
    EXPECT_EQ(program.application.desktop.activeWindow(), &dialog);
}

/// Counts how often a window is raised.
struct Raises : QObject {
    explicit Raises(QWidget& form) { form.installEventFilter(this); }
    bool eventFilter(QObject* /*form*/, QEvent* event) override {
        count += event->type() == QEvent::ZOrderChange ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(ModelerWindows, AKeptDialogStaysAboveTheWindowsThatAreBroughtToTheFront) {
    frmTRMessage& dialog = program.application.frmTRMessage;
    dialog.show();
    program.screen.binding().hands.click(Target::whole(dialog.chkKeepVisible));
    program.settle();
    const Raises raises(program.form(dialog));
    turnTo(*program.screen.mainWindow());
    ASSERT_TRUE(dialog.visible());
    EXPECT_EQ(raises.count, 1);
    program.application.frmFind.show();
    EXPECT_GT(raises.count, 1);
}

TEST_F(ModelerWindows, AModalDialogIsNotCoveredByAKeptOne) {
    frmTRMessage& dialog = program.application.frmTRMessage;
    dialog.show();
    program.screen.binding().hands.click(Target::whole(dialog.chkKeepVisible));
    program.settle();
    const Raises raises(program.form(dialog));
    frmOption& modal = program.application.frmOption;
    int raisedBehind = -1;
    const int before = raises.count;
    QTimer::singleShot(0, [&] {
        if (modal.visible() && dialog.visible())
            raisedBehind = raises.count - before;
        modal.hide();
    });
    modal.showModal();
    EXPECT_EQ(raisedBehind, 0);
}

TEST_F(ModelerWindows, KeysDragFromTheLibraryToTheTree) {
    program.application.showEditor();
    frmSECSEditor& editor = program.application.frmSECSEditor;
    ASSERT_GT(editor.lvwSource.count(), 0U);
    editor.lvwSource.select(editor.lvwSource.shown().front());
    press(program.widget<QWidget>(editor, "lvwSource"), Qt::Key_C, Qt::ControlModifier);
    ASSERT_TRUE(editor.liveTree().empty());
    press(program.widget<QWidget>(editor, "tvwEdit"), Qt::Key_V, Qt::ControlModifier);
    // The key runs no command of the tree, which would take the text of the row for SML.
    EXPECT_NE(editor.liveTree().find("AreYouThere"), nullptr);
    EXPECT_NE(editor.liveTree().find("OnLineData"), nullptr);
}

TEST_F(ModelerWindows, TheMenuKeyOpensThePopupAtTheSelectedNode) {
    auto& tree = program.widget<QWidget>(modeler(), "tvwRcvTRMsg");
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&tree, &menuKey);
    ASSERT_TRUE(modeler().mnuRcvTRMsgPopup.isOpen());
    const QMenu* menu = program.screen.binderOf(modeler())->menus().menuOf(modeler().mnuRcvTRMsgPopup);
    EXPECT_TRUE(QRect(tree.mapToGlobal(QPoint()), tree.size()).contains(menu->pos()));
}

struct ArrayDialog : ModelerWindows {
    ArrayDialog() : dialog(dynamic_cast<frmArrayInfo&>(*program.application.desktop.find("frmArrayInfo"))) {
        for (const char* number : {"1", "2", "3"})
            dialog.lvwArray.add(number).setCell(1, "");
        dialog.show();
        program.settle();
    }

    QTreeView& view() { return program.widget<QTreeView>(dialog, "lvwArray"); }
    QLineEdit& line() { return program.widget<QLineEdit>(dialog, "txtValue"); }
    QRect cell(int row) { return view().visualRect(view().model()->index(row, 1)); }
    void edit(int row) {
        Target target = Target::whole(dialog.lvwArray);
        target.row = dialog.lvwArray.shown()[static_cast<std::size_t>(row)];
        program.screen.binding().hands.click(target);
        program.settle();
    }

    frmArrayInfo& dialog;
};

TEST_F(ArrayDialog, TheFieldLiesOverTheCellThatItEdits) {
    EXPECT_TRUE(line().isHidden());
    edit(1);
    EXPECT_TRUE(line().isVisible());
    EXPECT_EQ(line().geometry(), cell(1));
    view().header()->resizeSection(0, 40);
    EXPECT_EQ(line().geometry(), cell(1));
    program.form(dialog).resize(600, 400);
    program.settle();
    EXPECT_EQ(line().geometry(), cell(1));
    edit(2);
    EXPECT_EQ(line().geometry(), cell(2));
    program.screen.binding().hands.focus(dialog.cmdOK);
    EXPECT_TRUE(line().isHidden());
}

TEST_F(ArrayDialog, TheEditingKeyOpensTheCellOfTheSelectedRow) {
    dialog.lvwArray.select(dialog.lvwArray.shown()[1]);
    QTest::keyClick(&view(), Qt::Key_F2);
    EXPECT_EQ(dialog.editedRow(), dialog.lvwArray.shown()[1]);
    EXPECT_TRUE(line().isVisible());
}

TEST_F(ArrayDialog, KeysFillOneCellAfterTheOther) {
    QTest::keyClick(&view(), Qt::Key_4, Qt::NoModifier);
    QTest::keyClick(&line(), Qt::Key_2, Qt::NoModifier);
    QTest::keyClick(&line(), Qt::Key_Return);
    QTest::keyClick(&line(), Qt::Key_7, Qt::NoModifier);
    QTest::keyClick(&line(), Qt::Key_Down);
    QTest::keyClick(&line(), Qt::Key_Down);
    std::vector<std::string> values;
    for (const ListRow* row : dialog.lvwArray.shown())
        values.push_back(row->cell(1));
    EXPECT_THAT(values, ::testing::ElementsAre("42", "7", ""));
    EXPECT_TRUE(dialog.cmdOK.focused());
    EXPECT_TRUE(line().isHidden());
}

TEST_F(ModelerWindows, APressSoonAfterAClickBeginsADrag) {
    frmTRItem& dialog = program.application.frmTRItem;
    dialog.builder.lvwSimpleCondition.add("S1", "S1");
    dialog.show();
    program.settle();
    int drags = 0;
    dialog.builder.lvwSimpleCondition.onDragStart = [&drags]() -> std::optional<DragData> {
        ++drags;
        return std::nullopt;
    };
    auto& view = program.widget<QTreeView>(dialog, "lvwSimpleCondition");
    const QPoint row = view.visualRect(view.model()->index(0, 0)).center();
    const auto send = [&](QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons) {
        QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    send(QEvent::MouseButtonPress, row, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, row, Qt::NoButton);
    send(QEvent::MouseMove, row + QPoint(60, 0), Qt::NoButton);
    EXPECT_EQ(drags, 0);
    send(QEvent::MouseButtonDblClick, row, Qt::LeftButton);
    send(QEvent::MouseMove, row + QPoint(60, 0), Qt::LeftButton);
    EXPECT_EQ(drags, 1);
}

TEST_F(ModelerWindows, ATargetIsFramedWhileADragHangsOverIt) {
    frmTRItem& dialog = program.application.frmTRItem;
    dialog.show();
    auto& operand = program.widget<QLineEdit>(dialog, "txtOperand1");
    const auto parts = operand.findChildren<QWidget*>().size();
    QMimeData id;
    id.setText(QStringLiteral("S1"));
    QDragEnterEvent enter({4, 4}, Qt::CopyAction, &id, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&operand, &enter);
    EXPECT_EQ(operand.findChildren<QWidget*>().size(), parts + 1);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&operand, &leave);
    EXPECT_EQ(operand.findChildren<QWidget*>().size(), parts);
}

TEST_F(ModelerWindows, KeysDropAStatementOnTheSelectedNode) {
    frmTRItem& dialog = program.application.frmTRItem;
    dialog.show();
    Node& root = dialog.tvwStatement.nodes().add(nullptr, Relation::Last, "Conditions");
    dialog.tvwStatement.nodes().select(&root);
    press(program.widget<QWidget>(dialog, "picELSE"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(root.children(), 0);
    press(program.widget<QWidget>(dialog, "tvwStatement"), Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(root.children(), 2);
    EXPECT_EQ(root.child()->text(), "if");
    EXPECT_EQ(root.lastChild()->text(), "else:");
}

TEST_F(ModelerWindows, TheSpaceBarOnAPictureAddsItsStatement) {
    frmTRItem& dialog = program.application.frmTRItem;
    dialog.show();
    Node& root = dialog.tvwStatement.nodes().add(nullptr, Relation::Last, "Conditions");
    dialog.tvwStatement.nodes().select(&root);
    press(program.widget<QWidget>(dialog, "picIF"), Qt::Key_Space, Qt::NoModifier);
    ASSERT_EQ(root.children(), 1);
    EXPECT_EQ(root.child()->text(), "if");
}

TEST_F(ModelerWindows, TheReleaseOnAPictureAddsItsStatement) {
    frmTRItem& dialog = program.application.frmTRItem;
    dialog.show();
    Node& root = dialog.tvwStatement.nodes().add(nullptr, Relation::Last, "Conditions");
    dialog.tvwStatement.nodes().select(&root);
    auto& picture = program.widget<QWidget>(dialog, "picIF");
    QTest::mousePress(&picture, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(root.children(), 0);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(root.children(), 1);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(root.children(), 1);
}

TEST_F(ModelerWindows, TheListOfMessagesShowsStreamAndFunctionBesideTheNames) {
    frmTRMessage& dialog = program.application.frmTRMessage;
    dialog.show();
    dialog.cmbSECSMessage.add("Report");
    dialog.cmbSECSMessage.noteOf = [](const std::string& entry) { return entry + ": S6 F11"; };
    program.settle();
    const auto& box = program.widget<QComboBox>(dialog, "cmbSECSMessage");
    EXPECT_EQ(box.itemText(0), QStringLiteral("Report"));
    EXPECT_EQ(box.itemData(0, ComboModel::kNoteRole).toString(), QStringLiteral("Report: S6 F11"));
}

TEST_F(ModelerWindows, TabReachesEveryFieldOfTheDialogsInItsOrder) {
    for (Window* dialog : {static_cast<Window*>(&program.application.frmTRMessage),
                           static_cast<Window*>(&program.application.frmTRItem)}) {
        dialog->show();
        std::vector<std::string> expected;
        for (const Control* control : dialog->controls()) {
            if (control->takesFocus() && control->usable() && control->kind() != Control::Kind::Option)
                expected.push_back(control->name());
        }
        std::vector<std::string> reached;
        QWidget* widget = &program.widget<QWidget>(*dialog, expected.front().c_str());
        for (int step = 0; step < 200 && reached.size() < expected.size(); ++step) {
            const std::string name = widget->objectName().toStdString();
            if (std::find(expected.begin(), expected.end(), name) != expected.end() && widget->isEnabled() &&
                (widget->focusPolicy() & Qt::TabFocus))
                reached.push_back(name);
            widget = widget->nextInFocusChain();
        }
        EXPECT_EQ(reached, expected) << dialog->name();
    }
}

TEST_F(ModelerWindows, ArrowsWalkThroughTheOptionsOfAGroup) {
    frmTRItem& dialog = program.application.frmTRItem;
    dialog.show();
    dialog.optString.setOn(true);
    dialog.optString.setFocus();
    QTest::keyClick(&program.widget<QWidget>(dialog, "optString"), Qt::Key_Down);
    EXPECT_TRUE(dialog.optNumeric.on());
    EXPECT_TRUE(dialog.optNumeric.focused());
}

} // namespace
} // namespace zb::test
