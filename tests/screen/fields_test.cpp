#include "desktop/qt_text.h"
#include "screen/support/program_on_screen.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

namespace zb::test {
namespace {

/// The editor with the item "A 3 NAME 'abc'" clicked.
struct Fields : ::testing::Test {
    Fields() {
        program.application.start("");
        program.application.showEditor();
        NodeTree& tree = editor().liveTree();
        tree.add(nullptr, Relation::Last, "");
        tree.add(nullptr, Relation::Last, "Data");
        Node& message = tree.add(nullptr, Relation::Last, "S6F11: S6 F11 W H<-E");
        item = &tree.add(&message, Relation::Child, "A 3 NAME 'abc'");
        Target target = Target::whole(editor().tvwEdit);
        target.node = item;
        program.screen.binding().hands.click(target);
        program.settle();
    }

    frmSECSEditor& editor() { return program.application.frmSECSEditor; }
    QLineEdit& line(const char* name) { return program.widget<QLineEdit>(editor(), name); }
    /// The field with the focus and all of its text selected.
    QLineEdit& begin(TextField& field) {
        program.screen.binding().hands.focus(field);
        program.settle();
        field.selectAll();
        return line(field.name().c_str());
    }
    void copy(const char* text) { QGuiApplication::clipboard()->setText(QLatin1String(text)); }
    void compose(QLineEdit& field, const char* preedit, const char* commit) {
        QInputMethodEvent event(QString::fromUtf8(preedit), {});
        event.setCommitString(QString::fromUtf8(commit));
        QCoreApplication::sendEvent(&field, &event);
    }
    void drop(QLineEdit& field, const char* text) {
        QMimeData data;
        data.setText(QLatin1String(text));
        const QPoint end(field.width() - 4, field.height() / 2);
        QDragEnterEvent enter(end, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&field, &enter);
        QDropEvent fall(end, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&field, &fall);
    }

    ProgramOnScreen program{"/"};
    Node* item = nullptr;
};

TEST_F(Fields, APasteByKeyReachesTheNodeWhenTheFilterTakesTheKey) {
    copy("PASTED");
    QTest::keyClick(&begin(editor().txtItemName), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(item->text(), "A 3 PASTED 'abc'");
    QTest::keyClick(&begin(editor().txtItemName), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_TRUE(editor().txtItemName.locked());
    copy("7");
    QTest::keyClick(&begin(editor().txtItemCount), Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(editor().txtItemCount.locked());
    EXPECT_EQ(editor().txtItemCount.text(), "3");
    EXPECT_EQ(item->text(), "A 3 PASTED 'abc'");
}

TEST_F(Fields, ACutByKeyReachesTheNode) {
    QTest::keyClick(&begin(editor().txtItemName), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QLatin1String("NAME"));
    EXPECT_EQ(item->text(), "A 3 'abc'");
    QTest::keyClick(&begin(editor().txtItemCount), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QLatin1String("3"));
    EXPECT_EQ(item->text(), "A  'abc'");
}

TEST_F(Fields, UndoByKeyReachesTheNode) {
    QLineEdit& name = begin(editor().txtItemName);
    QTest::keyClick(&name, Qt::Key_X, Qt::NoModifier);
    ASSERT_EQ(item->text(), "A 3 x 'abc'");
    QTest::keyClick(&name, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor().txtItemName.text(), "NAME");
    EXPECT_EQ(item->text(), "A 3 NAME 'abc'");
    EXPECT_EQ(name.text(), QLatin1String("NAME"));
}

TEST_F(Fields, ACharacterThatNoUsKeyEntersIsForTheFilter) {
    const auto press = [](QLineEdit& field) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Eacute, Qt::NoModifier, QStringLiteral("\u00e9"));
        QCoreApplication::sendEvent(&field, &down);
    };
    QLineEdit& name = begin(editor().txtItemName);
    press(name);
    EXPECT_EQ(editor().txtItemName.text(), "NAME");
    EXPECT_EQ(name.text(), QLatin1String("NAME"));
    EXPECT_TRUE(editor().txtItemName.locked());
    press(begin(editor().txtDescription));
    EXPECT_EQ(editor().txtDescription.text(), "\xC3\xA9");
}

TEST_F(Fields, WhatAnInputMethodEntersIsForTheFilter) {
    QLineEdit& name = begin(editor().txtItemName);
    compose(name, "\u00b4", "");
    EXPECT_EQ(editor().txtItemName.text(), "NAME");
    compose(name, "", "\u00e9");
    EXPECT_EQ(editor().txtItemName.text(), "NAME");
    EXPECT_EQ(name.text(), QLatin1String("NAME"));
    // A value of text has no filter: composing replaces the selection.
    QLineEdit& value = begin(editor().txtInit);
    compose(value, "\u00b4", "");
    EXPECT_EQ(editor().txtInit.text(), "");
    compose(value, "", "\u00e9");
    EXPECT_EQ(item->text(), "A 3 NAME '\xC3\xA9'");
    EXPECT_EQ(value.text(), QStringLiteral("\u00e9"));
}

TEST_F(Fields, WhatAnInputMethodCompletesToAPlainLetterIsThatKey) {
    compose(begin(editor().txtItemName), "", "N");
    EXPECT_EQ(item->text(), "A 3 N 'abc'");
    compose(begin(editor().txtItemCount), "", "N");
    EXPECT_EQ(editor().txtItemCount.text(), "3");
}

TEST_F(Fields, ADroppedTextIsPastedThroughTheStore) {
    drop(line("txtInit"), "de");
    EXPECT_EQ(item->text(), "A 3 NAME 'abcde'");
    drop(line("txtStream"), "999");
    EXPECT_EQ(line("txtStream").text(), toQt(editor().txtStream.text()));
}

TEST_F(Fields, TheClearButtonOfTheFilterShowsAllRowsAgain) {
    const std::size_t all = editor().lvwSource.count();
    editor().txtSourceFilter.setText("S1F1");
    ASSERT_LT(editor().lvwSource.count(), all);
    auto* clear = line("txtSourceFilter").findChild<QAbstractButton*>();
    ASSERT_NE(clear, nullptr);
    QTest::mouseClick(clear, Qt::LeftButton);
    program.settle();
    EXPECT_EQ(editor().txtSourceFilter.text(), "");
    EXPECT_EQ(editor().lvwSource.count(), all);
}

TEST_F(Fields, APressInTheToolBarLeavesTheField) {
    editor().txtItemName.setText("NAME");
    QLineEdit& name = begin(editor().txtItemName);
    editor().txtItemName.select(4, 4);
    auto& button =
        *program.screen.mainWindow()->findChild<QAbstractButton*>(QStringLiteral("tbrMain_Editor"));
    QTest::mouseClick(&button, Qt::LeftButton);
    program.settle();
    EXPECT_TRUE(editor().txtItemName.focused());
    QTest::keyClick(&name, Qt::Key_X, Qt::NoModifier);
    EXPECT_EQ(editor().txtItemName.text(), "NAMEx");
}

TEST_F(Fields, AKeyGoesUpThoughItMeansSomethingElseByThen) {
    QLineEdit& name = begin(editor().txtItemName);
    constexpr quint32 kScanCode = 61; // a key with "_" above "-"
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Underscore, Qt::ShiftModifier, kScanCode, 0, 0,
                   QStringLiteral("_"));
    QCoreApplication::sendEvent(&name, &down);
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Eacute, Qt::NoModifier, kScanCode, 0, 0,
                 QStringLiteral("\u00e9"));
    QCoreApplication::sendEvent(&name, &up);
    EXPECT_EQ(item->text(), "A 3 _ 'abc'");
}

TEST_F(Fields, WordKeysRunTheFilterAndMoveTheCaretOfTheStore) {
    editor().txtDescription.setText("two words");
    QLineEdit& description = begin(editor().txtDescription);
    editor().txtDescription.caretToEnd();
    std::vector<int> codes;
    editor().txtDescription.onKeyDown = [&codes](KeyEvent key) { codes.push_back(key.code); };
    QTest::keyClick(&description, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(editor().txtDescription.caret(), 4U);
    QTest::keyClick(&description, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(editor().txtDescription.text(), "words");
    EXPECT_THAT(codes, ::testing::ElementsAre(kKeyLeft, kKeyBackspace));
}

TEST_F(Fields, EnterPressesTheDefaultButtonAfterTheFilter) {
    auto& dialog = dynamic_cast<frmAddSequence&>(*program.application.desktop.find("frmAddSequence"));
    QTimer::singleShot(0, &program.form(dialog), [&] {
        auto& name = program.widget<QLineEdit>(dialog, "txtSequence");
        QTest::keyClick(&name, Qt::Key_1, Qt::NoModifier);
        QTest::keyClicks(&name, QStringLiteral("Seq1"));
        QTest::keyClick(&name, Qt::Key_Return);
        EXPECT_FALSE(dialog.visible());
        dialog.hide();
    });
    dialog.requestSequenceName(program.application.frmTRModeler.sequenceView().sequences());
    EXPECT_EQ(dialog.SequenceName, "Seq1");
}

TEST_F(Fields, EnterInTheNameOfANewProjectAcceptsOnce) {
    frmNewProject& dialog = program.application.frmNewProject;
    dialog.show();
    program.settle();
    int accepted = 0;
    dialog.cmdOK.onClick = [&accepted] { ++accepted; };
    dialog.txtProjectName.onKeyDown = [&accepted](KeyEvent) { ++accepted; };
    dialog.txtProjectName.setText("Name");
    QTest::keyClick(&program.widget<QWidget>(dialog, "txtProjectName"), Qt::Key_Return);
    EXPECT_EQ(accepted, 1);
    QTest::keyClick(&program.widget<QWidget>(dialog, "txtLocation"), Qt::Key_Return);
    EXPECT_EQ(accepted, 2);
}

TEST_F(Fields, AFieldOfSeveralLinesTakesWhatIsTypedAndPasted) {
    frmRehearsal& window = program.application.frmRehearsal;
    program.application.ProjectName = "P";
    window.open();
    program.settle();
    program.screen.binding().hands.focus(window.txtTyped);
    program.settle();
    auto& view = program.widget<QPlainTextEdit>(window, "txtTyped");
    QTest::keyClicks(&view, "S1F1 W");
    QTest::keyClick(&view, Qt::Key_Return);
    copy("<L\n  <A 'x'>\n>.");
    view.paste();
    EXPECT_EQ(window.txtTyped.text(), "S1F1 W\n<L\n  <A 'x'>\n>.");
    EXPECT_TRUE(window.cmdTryTyped.enabled());
    window.txtTyped.setText("S1F1\r\n.");
    EXPECT_EQ(view.toPlainText(), "S1F1\n.");
    EXPECT_EQ(window.txtTyped.text(), "S1F1\r\n.");
}

TEST_F(Fields, AFieldOfSeveralLinesThatIsReadOnlyStaysAsItIs) {
    frmResult& window = program.application.frmResult;
    window.addErrorMsg("Done");
    auto& view = program.widget<QPlainTextEdit>(window, "rtbResult");
    const QString before = view.toPlainText();
    QTest::keyClicks(&view, "more");
    EXPECT_EQ(view.toPlainText(), before);
    EXPECT_TRUE(view.isReadOnly());
}

} // namespace
} // namespace zb::test
