// A field of several lines, in which a user writes by hand what solves a conflict of a merge.
#include "project/project.h"
#include "screen/support/program_on_screen.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>

#include <memory>

namespace zb::test {
namespace {

struct TextEdit : ::testing::Test {
    TextEdit() {
        program.application.start("");
        const auto empty = std::make_shared<const Project>();
        const MergeConflict conflict{PartKind::Message, {"Hello", {}}, "description", "b", "o", "t"};
        program.application.frmCompare.compare(
            {{"Base", empty}, ComparedVersion{"Theirs", empty}, CompareScope::Whole, {conflict}});
        program.settle();
        field().setText("one\ntwo");
        program.screen.binding().hands.focus(field());
        program.settle();
    }

    TextField& field() { return program.application.frmCompare.conflicts.txtByHand; }
    QPlainTextEdit& edit() {
        return program.widget<QPlainTextEdit>(program.application.frmCompare, "txtByHand");
    }

    ProgramOnScreen program{"/opt/zeltobench"};
};

TEST_F(TextEdit, TakesWhatIsTypedAtTheCaret) {
    EXPECT_EQ(edit().toPlainText(), QStringLiteral("one\ntwo"));
    QTest::keyClicks(&edit(), QStringLiteral("!"));
    EXPECT_EQ(field().text(), "one\ntwo!");
    // Where lines are, the widget knows.
    QTest::keyClick(&edit(), Qt::Key_Up);
    QTest::keyClick(&edit(), Qt::Key_Home);
    QTest::keyClicks(&edit(), QStringLiteral("o"));
    EXPECT_EQ(field().text(), "oone\ntwo!");
    EXPECT_EQ(field().caret(), 1U);
    QTest::keyClicks(&edit(), QStringLiteral("xy"));
    EXPECT_EQ(field().text(), "oxyone\ntwo!");
}

TEST_F(TextEdit, BreaksAndJoinsLines) {
    QTest::keyClick(&edit(), Qt::Key_Return);
    QTest::sendKeyEvent(QTest::Click, &edit(), Qt::Key_Udiaeresis, QString::fromUtf8("\u00fc"),
                        Qt::NoModifier);
    EXPECT_EQ(field().text(), "one\ntwo\n\u00fc");
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&edit(), Qt::Key_Backspace);
    EXPECT_EQ(field().text(), "one\ntw");
}

TEST_F(TextEdit, HasTheUndoOfItsStore) {
    QTest::keyClicks(&edit(), QStringLiteral("x"));
    QTest::keyClick(&edit(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field().text(), "one\ntwo");
    EXPECT_EQ(edit().toPlainText(), QStringLiteral("one\ntwo"));
    QTest::keyClick(&edit(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(field().text(), "one\ntwox");
}

TEST_F(TextEdit, PastesOverTheSelection) {
    QGuiApplication::clipboard()->setText(QStringLiteral("a\nb"));
    QTest::keyClick(&edit(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&edit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field().text(), "a\nb");
}

// As where nothing is selected for the middle button, or the owner of the clipboard does not answer.
TEST_F(TextEdit, PastesNothingOfAClipboardWithoutFormats) {
    QGuiApplication::clipboard()->setMimeData(
        std::make_unique<QMimeData>().release()); // the clipboard takes it
    QTest::keyClick(&edit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field().text(), "one\ntwo");
    EXPECT_EQ(edit().toPlainText(), QStringLiteral("one\ntwo"));
}

// The widgets would lay it out for minutes.
TEST_F(TextEdit, RefusesAPasteOfManyMegabytesWithANotice) {
    QGuiApplication::clipboard()->setText(QString(50'000'000, QLatin1Char('x')));
    QTest::keyClick(&edit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field().text(), "one\ntwo");
    frmWorkbench& strip = program.application.frmWorkbench;
    EXPECT_EQ(strip.notices.lblNotice.text(),
              "Not pasted: the text has 50 million characters, and a field takes at most 4");
    strip.compare.open();
    program.settle();
    auto& line = program.widget<QLineEdit>(strip, "txtComparedWith");
    program.screen.binding().hands.focus(strip.compare.txtComparedWith);
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(strip.compare.txtComparedWith.text(), "");
    EXPECT_EQ(strip.log.lvwLog.count(), 2U);
    // Of a text of many lines the field takes the first.
    QGuiApplication::clipboard()->setText(
        QString(6'000'000, QLatin1Char('x')).replace(5, 1, QLatin1String("\n")));
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(strip.compare.txtComparedWith.text(), "xxxxx");
    QGuiApplication::clipboard()->clear();
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(strip.compare.txtComparedWith.text(), "xxxxx");
}

TEST_F(TextEdit, ShowsItsTextAgainWhenTheStoreTakesNone) {
    field().setLocked(true);
    QTest::keyClicks(&edit(), QStringLiteral("x"));
    edit().appendPlainText(QStringLiteral("y"));
    EXPECT_EQ(field().text(), "one\ntwo");
    EXPECT_EQ(edit().toPlainText(), QStringLiteral("one\ntwo"));
}

} // namespace
} // namespace zb::test
