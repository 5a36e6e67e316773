#include "desktop/qt_text.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>

namespace zb::test {
namespace {

using ::testing::ElementsAre;

struct Windows : ::testing::Test {
    Windows() {
        program.application.start("");
        program.application.showEditor();
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }
    QLineEdit& line(const char* name) { return program.widget<QLineEdit>(editor(), name); }

    void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&widget, &down);
        QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
        QCoreApplication::sendEvent(&widget, &up);
    }

    ProgramOnScreen program{"/"};
};

TEST_F(Windows, ALockedFieldTakesNoCharacterButKeepsSelectionAndCopy) {
    editor().txtStream.setText("12");
    QLineEdit& stream = line("txtStream");
    stream.setFocus();
    press(stream, Qt::Key_X, Qt::NoModifier, "x");
    EXPECT_TRUE(editor().txtStream.locked());
    EXPECT_EQ(stream.text(), "12");
    press(stream, Qt::Key_A, Qt::ControlModifier, "");
    press(stream, Qt::Key_C, Qt::ControlModifier, "");
    EXPECT_EQ(stream.selectedText(), "12");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "12");
    EXPECT_EQ(stream.text(), "12");
}

TEST_F(Windows, TextOfAnInputMethodReplacesTheSelection) {
    QLineEdit& description = line("txtDescription");
    editor().txtDescription.setText("abc");
    editor().txtDescription.setFocus();
    editor().txtDescription.select(1, 3);
    QInputMethodEvent typed;
    typed.setCommitString(QStringLiteral("\uD55C\uAE00"));
    QCoreApplication::sendEvent(&description, &typed);
    EXPECT_EQ(editor().txtDescription.text(), "a\xED\x95\x9C\xEA\xB8\x80");
    EXPECT_EQ(description.text(), toQt(editor().txtDescription.text()));
}

TEST_F(Windows, ACharacterThatUsKeyboardsLackEntersAField) {
    QLineEdit& description = line("txtDescription");
    description.setFocus();
    press(description, Qt::Key_Adiaeresis, Qt::NoModifier, QStringLiteral("\u00e4"));
    EXPECT_EQ(editor().txtDescription.text(), "\xC3\xA4");
}

TEST_F(Windows, TheMenuBarShowsTheMenusOfTheDocumentInFront) {
    const auto names = [&] {
        std::vector<std::string> found;
        for (const QAction* action : program.screen.mainWindow()->menuBar()->actions())
            found.push_back(fromQt(action->text()));
        return found;
    };
    EXPECT_THAT(names(), ElementsAre("Project(&P)", "Edit(&E)", "View(&V)", "Insert(&I)", "Build(&B)",
                                     "Tools(&T)", "Window(&W)", "Help(&H)"));
    editor().hide();
    EXPECT_THAT(names(), ElementsAre("Project(&P)", "Build(&B)", "Tools(&T)", "Window(&W)", "Help(&H)"));
}

TEST_F(Windows, ClosingByTheFrameAsksTheWindow) {
    program.form(program.application.frmMain).close();
    EXPECT_TRUE(program.application.ended());
}

TEST_F(Windows, TabReachesEveryFieldOfTheEditorInItsOrder) {
    std::vector<std::string> expected;
    for (const Control* control : editor().controls()) {
        if (control->takesFocus() && control->usable() && control->kind() != Control::Kind::Option)
            expected.push_back(control->name());
    }
    std::vector<std::string> reached;
    QWidget* widget = &program.widget<QWidget>(editor(), expected.front().c_str());
    for (int step = 0; step < 200 && reached.size() < expected.size(); ++step) {
        const std::string name = fromQt(widget->objectName());
        if (std::find(expected.begin(), expected.end(), name) != expected.end() && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus))
            reached.push_back(name);
        widget = widget->nextInFocusChain();
    }
    EXPECT_EQ(reached, expected);
}

TEST_F(Windows, TheLayoutIsRememberedFromRunToRun) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "windows.ini").string();
    const auto runOnce = [&](QSize resizeTo) {
        DesktopScreen screen;
        SettingsStore settings = SettingsStore::inMemory();
        SystemFileLayer files;
        FixedGenerator generator;
        Application application(screen, settings, files, generator, {"/", {}});
        screen.attach(application.desktop, file);
        application.start("");
        if (resizeTo.isValid())
            screen.mainWindow()->resize(resizeTo);
        const QSize size = screen.mainWindow()->size();
        screen.detach();
        return size;
    };
    runOnce({777, 555});
    EXPECT_EQ(runOnce({}), QSize(777, 555));
}

TEST_F(Windows, TheFirstStartFitsOnTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize size = program.screen.mainWindow()->frameSize();
    EXPECT_LE(size.width(), screen.width());
    EXPECT_LE(size.height(), screen.height());
    EXPECT_GT(size.width(), 3 * screen.width() / 4);
}

TEST_F(Windows, ANarrowWindowCutsNoCaptionOfTheEditor) {
    program.screen.mainWindow()->resize(800, 600);
    program.settle();
    ASSERT_EQ(program.screen.mainWindow()->width(), 800);
    // The panes are as narrow as the user can make them.
    auto& splitter = program.widget<QSplitter>(editor(), "editorSplitter");
    splitter.setSizes({1, splitter.width(), 1});
    program.settle();
    for (const char* name :
         {"chkWait", "chkReply", "chkNoLogging", "chkFix", "chkIsItemKey", "optHost", "optEqp", "optBoth",
          "cmdMsgAdd", "cmdMsgChange", "lblTreeWidth", "txtTreeWidth"}) {
        const auto& part = program.widget<QWidget>(editor(), name);
        EXPECT_GE(part.width(), part.minimumSizeHint().width()) << name;
        EXPECT_TRUE(part.parentWidget()->rect().contains(part.geometry())) << name;
        const QRect place(part.mapTo(program.screen.mainWindow(), QPoint()), part.size());
        EXPECT_TRUE(program.screen.mainWindow()->rect().contains(place)) << name;
    }
}

TEST_F(Windows, ALowWindowCrowdsNoPane) {
    program.screen.mainWindow()->resize(800, 600);
    program.settle();
    program.screen.binding().hands.click(Target::whole(program.application.frmWorkbench.marks.button));
    program.settle();
    EXPECT_EQ(program.screen.mainWindow()->height(), 600);
    const auto& pane = program.widget<QWidget>(program.application.frmWorkbench, "pnlMarks");
    for (const char* name : {"txtPattern", "cmdRenameMarked", "cmdToEquip", "cmdLogging", "lvwMarks"}) {
        const auto& part = program.widget<QWidget>(program.application.frmWorkbench, name);
        EXPECT_GE(part.height(), part.minimumSizeHint().height()) << name;
        EXPECT_TRUE(pane.rect().contains(QRect(part.mapTo(&pane, QPoint()), part.size()))) << name;
    }
}

TEST_F(Windows, ALowWindowShowsAPaneBelowARehearsal) {
    program.application.ProjectName = "P";
    frmRehearsal& rehearsal = program.application.frmRehearsal;
    rehearsal.open();
    program.screen.mainWindow()->resize(800, 600);
    program.screen.binding().hands.click(Target::whole(program.application.frmWorkbench.problems.button));
    rehearsal.lblPlace.setText("120,000 of 120,000 messages, 110,000 not as modelled");
    program.settle();
    EXPECT_EQ(program.screen.mainWindow()->size(), QSize(800, 600));
    const auto& list = program.widget<QWidget>(program.application.frmWorkbench, "lvwProblems");
    EXPECT_GE(list.height(), list.minimumSizeHint().height());
    EXPECT_GE(list.height(), 60);
    // A list that is out of sight comes into view with the keyboard.
    const auto& column = program.widget<QScrollArea>(rehearsal, "rehearsalColumn");
    auto& sequence = program.widget<QWidget>(rehearsal, "lvwSequence");
    sequence.setFocus();
    program.settle();
    const QRect shown(sequence.mapTo(column.viewport(), QPoint()), sequence.size());
    EXPECT_TRUE(column.viewport()->rect().contains(shown.bottomLeft()));
}

TEST_F(Windows, InALowWindowAFieldOfTheEditorComesIntoViewWithTheKeyboard) {
    program.screen.mainWindow()->resize(800, 600);
    program.screen.binding().hands.click(Target::whole(program.application.frmWorkbench.marks.button));
    program.settle();
    auto& column = program.widget<QScrollArea>(editor(), "fieldColumn");
    const auto isInView = [&](QWidget& field) {
        return column.viewport()->rect().contains(
            QRect(field.mapTo(column.viewport(), QPoint()), field.size()));
    };
    auto& value = program.widget<QWidget>(editor(), "txtInit");
    ASSERT_FALSE(isInView(value));
    value.setFocus();
    program.settle();
    EXPECT_TRUE(isInView(value));
    auto& stream = program.widget<QWidget>(editor(), "txtStream");
    stream.setFocus();
    program.settle();
    EXPECT_TRUE(isInView(stream));
}

// Cut off at the right, a long notice looked like the whole of a short one.
TEST_F(Windows, ANoticeThatDoesNotFitShowsItsEnd) {
    auto& label = program.widget<QLabel>(program.application.frmWorkbench, "lblNotice");
    const auto pictureOf = [&](const std::string& end) {
        program.application.desktop.post({"The beginning of it" + std::string(600, 'n') + end});
        program.settle();
        label.resize(300, label.height());
        return label.grab().toImage();
    };
    EXPECT_NE(pictureOf(" is lost"), pictureOf(" is kept"));
}

TEST_F(Windows, TheListAboveTheTreeOpensTwentyRowsAtMost) {
    for (int i = 0; i < 60; ++i)
        editor().cboSECSMessage.add("S1F" + std::to_string(i));
    program.settle();
    auto& box = program.widget<QComboBox>(editor(), "cboSECSMessage");
    ASSERT_EQ(box.count(), 60);
    box.showPopup();
    program.settle();
    const int row = box.view()->sizeHintForRow(0);
    EXPECT_LE(box.view()->viewport()->height(), 20 * row + row / 2);
    EXPECT_GE(box.view()->viewport()->height(), 10 * row);
    box.hidePopup();
}

} // namespace
} // namespace zb::test
