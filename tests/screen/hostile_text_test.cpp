#include "desktop/message_boxes.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"
#include "platform/text_file.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolTip>

#include <array>

namespace zb::test {
namespace {

using ::testing::HasSubstr;

// What Qt takes for markup when it is left to choose.
constexpr std::array<const char*, 3> kHostile{"<img src=\"/nowhere.png\">", "<b>x</b>", "<h1>Line"};

// The label that shows tool tips; Qt has no name for it in its interface.
QLabel* tipLabel() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QTipLabel"))
            return qobject_cast<QLabel*>(widget);
    }
    return nullptr;
}

struct HostileText : ::testing::Test {
    HostileText() {
        std::string text = "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n";
        text += "* <img src=\"/nowhere.png\">\r\nHostile: S1 F1 W H->E\r\n    L 1\r\n";
        text += "        A 999 MDLN '<b>" + std::string(900, 'x') + "</b>'.\r\n";
        std::filesystem::create_directories(folder / "<h1>Line");
        writeFile(folder / "<h1>Line/<h1>Line.zbp", encodeUtf16(text));
        program.application.start((folder / "<h1>Line/<h1>Line.zbp").string());
        program.settle();
    }
    ~HostileText() override { QToolTip::hideText(); }

    std::vector<QAbstractItemView*> views() const {
        std::vector<QAbstractItemView*> found;
        for (QWidget* widget : QApplication::allWidgets()) {
            if (auto* view = qobject_cast<QAbstractItemView*>(widget); view != nullptr && view->isVisible())
                found.push_back(view);
        }
        return found;
    }

    // Asks for the tool tip there, as a resting pointer does.
    static void restOn(QWidget& widget, const QPoint& place) {
        QHelpEvent rest(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &rest);
    }

    TemporaryFolder folder;
    ProgramOnScreen program{"/"};
};

TEST_F(HostileText, NoLabelOfTheWindowsLooksForMarkup) {
    int labels = 0;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && label->isVisible()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << fromQt(label->objectName());
            ++labels;
        }
    }
    EXPECT_GT(labels, 5);
}

TEST_F(HostileText, TheStatusBarAndItsToolTipShowTheNameAsItIs) {
    auto& bar = program.widget<QStatusBar>(program.application.frmMain, "stbMain");
    const auto labels = bar.findChildren<QLabel*>();
    ASSERT_FALSE(labels.isEmpty());
    EXPECT_EQ(fromQt(labels.first()->text()), kHostile[2]);
    restOn(*labels.first(), labels.first()->rect().center());
    ASSERT_NE(tipLabel(), nullptr);
    EXPECT_EQ(fromQt(tipLabel()->text()), kHostile[2]);
    EXPECT_EQ(tipLabel()->textFormat(), Qt::PlainText);
}

TEST_F(HostileText, ToolTipsOfTreesAndListsShowTheTextAsItIs) {
    std::string tips;
    for (QAbstractItemView* view : views()) {
        view->resize(120, view->height()); // a tree explains only what it cuts
        for (int y = 2; y < view->viewport()->height(); y += 6) {
            QToolTip::hideText();
            restOn(*view->viewport(), QPoint(60, y));
            if (QToolTip::text().isEmpty() || tipLabel() == nullptr)
                continue;
            EXPECT_EQ(tipLabel()->textFormat(), Qt::PlainText);
            tips += fromQt(tipLabel()->text()) + "\n";
        }
    }
    EXPECT_THAT(tips, HasSubstr("'<b>xxx"));
}

TEST_F(HostileText, AnyToolTipShowsItsTextAsItIs) {
    for (const char* text : kHostile) {
        QToolTip::showText(QPoint(10, 10), QLatin1String(text), program.screen.mainWindow());
        ASSERT_NE(tipLabel(), nullptr);
        EXPECT_EQ(tipLabel()->textFormat(), Qt::PlainText);
        EXPECT_EQ(fromQt(tipLabel()->text()), text);
    }
}

TEST_F(HostileText, BoxesShowTheirTextAsItIs) {
    for (const char* text : kHostile) {
        const auto box = makeBox({text, text, BoxIcon::Exclamation, BoxButtons::OK}, nullptr);
        box->show();
        for (const QLabel* label : box->findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << fromQt(label->objectName());
        EXPECT_EQ(fromQt(box->text()), text);
    }
}

// File dialogs put the name of a file into boxes of their own.
TEST_F(HostileText, BoxesThatQtMakesShowTheirTextAsItIs) {
    QMessageBox box(QMessageBox::Warning, QString(), QLatin1String(kHostile[0]));
    box.show();
    const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(HostileText, AToolTipOfAVeryLongTextIsItsBeginning) {
    const QString tip = toolTipOf(std::string(5'000'000, 'x'));
    EXPECT_EQ(tip.size(), 2001);
    EXPECT_EQ(tip.back(), QChar(0x2026));
    EXPECT_EQ(toolTipOf("short"), QStringLiteral("short"));
}

} // namespace
} // namespace zb::test
