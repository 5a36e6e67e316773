#include "desktop/message_boxes.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/plain_labels.h"
#include "desktop/qt_text.h"
#include "desktop/shown_text.h"
#include "desktop/start/start_panel.h"
#include "platform/text_file.h"
#include "project/recent_projects.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>

#include <array>

namespace zb::test {
namespace {

using ::testing::Contains;
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
        text += "* <img src=\"/nowhere.png\">\r\n<b>Ask</b>: S1 F1 W H->E\r\n    L 1\r\n";
        text += "        A 999 MDLN '<b>" + std::string(900, 'x') + "</b>'.\r\n";
        std::filesystem::create_directories(folder / "<h1>Line");
        writeFile(folder / "<h1>Line/<h1>Line.zbp", encodeUtf16(text));
        writeFile(folder / "<h1>Other.zbp", encodeUtf16(text.replace(text.find("MDLN"), 4, "SOFT")));
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

    static int demandPlainLabels() {
        int labels = 0;
        for (QWidget* widget : QApplication::allWidgets()) {
            if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && label->isVisible()) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText) << fromQt(label->objectName());
                ++labels;
            }
        }
        return labels;
    }

    // All tool tips of what is visible, each a line.
    std::string demandPlainTips() const {
        std::string tips;
        for (QAbstractItemView* view : views()) {
            for (int y = 2; y < view->viewport()->height(); y += 6) {
                QToolTip::hideText();
                restOn(*view->viewport(), QPoint(60, y));
                if (QToolTip::text().isEmpty() || tipLabel() == nullptr)
                    continue;
                EXPECT_EQ(tipLabel()->textFormat(), Qt::PlainText);
                tips += fromQt(tipLabel()->text()) + "\n";
            }
        }
        return tips;
    }

    void open(WorkbenchPane& pane) {
        pane.open();
        program.settle();
        EXPECT_TRUE(pane.isOpen());
    }
    void type(Control& field, const std::string& text) {
        EXPECT_EQ(hands().focus(field), "");
        EXPECT_EQ(hands().type(field, text), "");
    }
    /// Lets a file fall onto the message tree, where it opens as what it is.
    void drop(const std::filesystem::path& file) {
        QWidget& tree =
            *program.widget<NodeTreeView>(program.application.frmSECSEditor, "tvwEdit").viewport();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(toQt(file.string()))});
        QDragEnterEvent enter(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&tree, &enter);
        QDropEvent fall(QPoint(4, 4), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&tree, &fall);
        program.settle();
    }
    void click(Control& button) {
        EXPECT_EQ(hands().click(Target::whole(button)), "");
        program.settle();
    }
    UserHands& hands() { return program.screen.binding().hands; }
    frmWorkbench& workbench() { return program.application.frmWorkbench; }

    // Asks for the tool tip there, as a resting pointer does.
    static void restOn(QWidget& widget, const QPoint& place) {
        QHelpEvent rest(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &rest);
    }

    TemporaryFolder folder;
    ProgramOnScreen program{"/"};
};

TEST_F(HostileText, NoLabelOfTheWindowsLooksForMarkup) {
    EXPECT_GT(demandPlainLabels(), 5);
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
    for (QAbstractItemView* view : views())
        view->resize(120, view->height()); // a tree explains only what it cuts
    EXPECT_THAT(demandPlainTips(), HasSubstr("'<b>xxx"));
}

TEST_F(HostileText, EveryPaneShowsTheTextAsItIs) {
    for (WorkbenchPane* pane : workbench().panes()) {
        SCOPED_TRACE(pane->title());
        open(*pane);
        demandPlainLabels();
        demandPlainTips();
    }
}

TEST_F(HostileText, WhatIsFoundIsShownAsItIs) {
    SearchPane& search = workbench().search;
    open(search);
    type(search.txtSearch, "img");
    click(search.cmdSearchAll);
    ASSERT_EQ(search.lvwSearch.count(), 1U);
    GoPane& go = workbench().go;
    open(go);
    type(go.txtGo, "Ask");
    program.settle();
    ASSERT_EQ(go.lvwGo.count(), 1U);
    EXPECT_THAT(go.lvwGo.rows().front()->cells(), Contains(HasSubstr("<b>Ask</b>")));
    demandPlainLabels();
    demandPlainTips();
}

TEST_F(HostileText, ALibraryShowsItsFileAndItsMessagesAsTheyAre) {
    writeFile(folder / "<h1>Library.sml",
              "// <b>Library</b>\nAsk: S1F1 W\n<L <A \"<img src=/nowhere.png>\">>\n.\nNo: S1F<b>x</b>\n.\n");
    drop(folder / "<h1>Library.sml");
    EXPECT_EQ(program.application.frmSECSEditor.lvwSource.count(), 1U);
    EXPECT_GT(demandPlainLabels(), 5);
    EXPECT_THAT(demandPlainTips(), HasSubstr("<img src=/nowhere.png>"));
    auto& file = program.widget<QLabel>(program.application.frmSECSEditor, "lblLibraryFile");
    restOn(file, file.rect().center());
    ASSERT_NE(tipLabel(), nullptr);
    EXPECT_EQ(tipLabel()->textFormat(), Qt::PlainText);
    EXPECT_THAT(fromQt(tipLabel()->text()), HasSubstr("<h1>Library.sml"));
    click(program.application.frmSECSEditor.cmdLibraryFindings);
    EXPECT_TRUE(workbench().problems.isOpen());
    demandPlainLabels();
    demandPlainTips();
}

TEST_F(HostileText, ARehearsalShowsTheRecordingAsItIs) {
    writeFile(folder / "<h1>Day.log", "2026-03-21 08:00:01.000|<b>x</b>|--> [0x00000001] 'S1F1' W\n"
                                      "    <L [1]\n      <A \"<img src=/nowhere.png>\">\n    >\n.\n");
    drop(folder / "<h1>Day.log");
    frmRehearsal& rehearsal = program.application.frmRehearsal;
    ASSERT_TRUE(rehearsal.visible());
    rehearsal.finish();
    program.settle();
    ASSERT_EQ(rehearsal.timeline.lvwTimeline.count(), 1U);
    EXPECT_GT(demandPlainLabels(), 5);
    EXPECT_THAT(demandPlainTips(), HasSubstr("<img src=/nowhere.png>"));
}

TEST_F(HostileText, ADocumentOfDifferencesShowsTheTextAsItIs) {
    ComparePane& compare = workbench().compare;
    open(compare);
    type(compare.txtComparedWith, (folder / "<h1>Other.zbp").string());
    click(compare.cmdCompareWith);
    ASSERT_TRUE(program.application.frmCompare.visible());
    EXPECT_GT(demandPlainLabels(), 5);
    for (QAbstractItemView* view : views())
        view->resize(120, view->height());
    EXPECT_THAT(demandPlainTips(), HasSubstr("<b>Ask</b>"));
}

TEST_F(HostileText, ANoticeShowsItsTextAsItIs) {
    program.application.desktop.post({kHostile[0], {{kHostile[1], [] {}}}});
    program.settle();
    const auto& label = program.widget<QLabel>(workbench(), "lblNotice");
    EXPECT_EQ(fromQt(label.text()), kHostile[0]);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST_F(HostileText, TheDialogForANewNameShowsTheOldOneAsItIs) {
    frmRename& dialog = program.application.frmTRModeler.renameDialog();
    QString title;
    QTimer::singleShot(0, &program.form(dialog), [&] {
        title = program.form(dialog).windowTitle();
        demandPlainLabels();
        click(dialog.cmdCancel);
    });
    dialog.requestName(kHostile[1], kHostile[0], [](const std::string& /*name*/) { return std::string(); });
    EXPECT_EQ(fromQt(title), kHostile[1]);
}

TEST_F(HostileText, TheStartPageShowsOffersAndProjectsAsTheyAre) {
    ProgramOnScreen another{"/"};
    RecentProjects(another.settings).add((folder / "<h1>Other.zbp").string());
    another.application.start("");
    Notice offer{kHostile[0], {{kHostile[1], [] {}}}};
    offer.stays = Notice::Stays::UntilClosed;
    another.application.desktop.post(std::move(offer));
    another.settle();
    const auto* panel = another.screen.mainWindow()->findChild<StartPanel*>();
    ASSERT_TRUE(panel->isVisible());
    const auto* shown = panel->findChild<QWidget*>(QStringLiteral("startOffer"));
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(fromQt(shown->findChild<QLabel*>()->text()), kHostile[0]);
    EXPECT_GT(demandPlainLabels(), 3);
    auto* recent = panel->findChild<QToolButton*>(QStringLiteral("startRecent1"));
    ASSERT_NE(recent, nullptr);
    restOn(*recent, recent->rect().center());
    ASSERT_NE(tipLabel(), nullptr);
    EXPECT_EQ(tipLabel()->textFormat(), Qt::PlainText);
    EXPECT_THAT(fromQt(tipLabel()->text()), HasSubstr("<h1>Other.zbp"));
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

TEST_F(HostileText, ALineStaysOneAndKeepsItsDirection) {
    EXPECT_EQ(shownLine("a\u2028b\x0b\r\nc\td"), QStringLiteral("a b   c d"));
    EXPECT_EQ(shownLine("x\u202e: S1 F1 H->E\x1b"), QStringLiteral("x?: S1 F1 H->E?"));
    const QString cut = shownLine("a" + std::string(2'000'000, '\xc3'));
    EXPECT_LT(shownLine(std::string(2'000'000, 'x')).size(), 5000);
    EXPECT_EQ(cut.back(), QChar(0x2026));
    EXPECT_EQ(shownTitle("Line[*] - Zeltobench"), QStringLiteral("Line[*][*] - Zeltobench"));
}

// A row as high as the screen, or a box without its button, were what such names made.
TEST_F(HostileText, NamesOfManyLinesAndOfAMegabyteLeaveRowsAndBoxesAsTheyAre) {
    frmWorkbench& strip = workbench();
    open(strip.log);
    strip.log.add("12:00", "short");
    program.settle();
    auto& view = program.widget<QAbstractItemView>(strip, "lvwLog");
    const int height = view.sizeHintForIndex(view.model()->index(0, 1)).height();
    std::string lines;
    for (int i = 0; i < 1000; ++i)
        lines += "l\u2028\x0b\n";
    strip.log.add("12:00", lines);
    strip.log.add("12:00", std::string(1'000'000, 'n'));
    program.settle();
    for (int row = 1; row < view.model()->rowCount(); ++row)
        EXPECT_EQ(view.sizeHintForIndex(view.model()->index(row, 1)).height(), height);
    for (const std::string& name :
         {lines, std::string(1'000'000, 'n'), lines + std::string(1'000'000, 'n')}) {
        const auto box =
            makeBox({name + " already exists.", "title", BoxIcon::Critical, BoxButtons::OK}, nullptr);
        box->show();
        EXPECT_LT(box->height(), 768);
        EXPECT_TRUE(box->text().endsWith(QLatin1String(" already exists.")));
    }
}

TEST_F(HostileText, AToolTipOfAVeryLongTextIsItsBeginning) {
    const QString tip = toolTipOf(std::string(5'000'000, 'x'));
    EXPECT_EQ(tip.size(), 2001);
    EXPECT_EQ(tip.back(), QChar(0x2026));
    EXPECT_EQ(toolTipOf("short"), QStringLiteral("short"));
}

} // namespace
} // namespace zb::test
