#include "controls/window.h"
#include "desktop/models/node_tree_view.h"
#include "desktop/start/start_page.h"
#include "desktop/start/start_panel.h"
#include "project/recent_projects.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <functional>

namespace zb::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

const std::filesystem::path kExample = std::filesystem::path(ZB_SOURCE_FOLDER) / "examples/etcher/Etcher.zbp";

struct Start : ::testing::Test {
    void start(const std::string& commandLine) {
        {
            const BusyPointer busy(program.application.frmMain);
            program.application.start(commandLine);
        }
        program.settle();
    }

    StartPanel& panel() { return *program.screen.mainWindow()->findChild<StartPanel*>(); }
    QPushButton& way(const char* name) { return *panel().findChild<QPushButton*>(QLatin1String(name)); }
    void press(Qt::Key key) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(program.screen.mainWindow()->focusWidget(), &event);
        }
    }
    std::string focused() {
        const QWidget* widget = program.screen.mainWindow()->focusWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }
    // Runs once when a box or dialog waits for the user.
    void whileWaiting(const std::function<void()>& act) {
        QObject::connect(&waiting, &QTimer::timeout, act);
        waiting.setSingleShot(true);
        waiting.start(0);
    }
    void openExampleIn(const std::filesystem::path& chosen) {
        program.screen.startPage()->pickFolder = [chosen] { return chosen.string(); };
        way("startExample").click();
        program.settle();
    }

    TemporaryFolder folder;
    ProgramOnScreen program{"/"};
    QTimer waiting;
};

TEST_F(Start, WithoutAProjectTheMainWindowShowsHowToBegin) {
    start("");
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(panel().size(), panel().parentWidget()->size());
    program.screen.mainWindow()->resize(700, 500);
    program.settle();
    EXPECT_EQ(panel().size(), panel().parentWidget()->size());
}

TEST_F(Start, AProjectOfTheCommandLineOpensWithoutAFlash) {
    struct Counter : QObject {
        int shows = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            shows += event->type() == QEvent::Show ? 1 : 0;
            return false;
        }
    } counter;
    panel().installEventFilter(&counter);
    std::filesystem::copy(kExample, folder / "Etcher.zbp");
    start((folder / "Etcher.zbp").string());
    EXPECT_EQ(program.application.ProjectName, "Etcher");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(counter.shows, 0);
}

TEST_F(Start, TheDescriptionOfTheFirstMessageIsInView) {
    std::filesystem::copy(kExample, folder / "Etcher.zbp");
    start((folder / "Etcher.zbp").string());
    frmSECSEditor& editor = program.application.frmSECSEditor;
    NodeTree& nodes = editor.tvwEdit.nodes();
    ASSERT_EQ(nodes.selected(), nodes.at(3));
    EXPECT_EQ(program.widget<NodeTreeView>(editor, "tvwEdit").nodeAt({0, 0}), nodes.at(1));
}

TEST_F(Start, ASmallWindowShowsTheNameOfTheLibraryWhole) {
    start("");
    program.screen.mainWindow()->resize(800, 560);
    program.settle();
    const auto& panel = *program.screen.mainWindow()->findChild<QLabel*>("stbMain_SECSLibrary");
    ASSERT_FALSE(panel.text().isEmpty());
    EXPECT_GE(panel.width(), panel.sizeHint().width());
    EXPECT_LE(program.screen.mainWindow()->width(), 800);
}

TEST_F(Start, TheExampleIsCopiedToTheChosenFolderAndOpened) {
    start("");
    openExampleIn(folder.path());
    EXPECT_EQ(program.application.projectFilePath(), (folder / "Etcher" / "Etcher.zbp").string());
    EXPECT_EQ(readFile(folder / "Etcher" / "Etcher.zbp"), readFile(kExample));
    EXPECT_TRUE(program.application.frmSECSEditor.visible());
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(Start, ACopyThatIsThereAlreadyStays) {
    std::filesystem::create_directory(folder / "Etcher");
    writeFile(folder / "Etcher" / "Etcher.zbp", "mine");
    start("");
    openExampleIn(folder.path());
    EXPECT_EQ(program.application.projectFilePath(), (folder / "Etcher-2" / "Etcher.zbp").string());
    EXPECT_EQ(readFile(folder / "Etcher" / "Etcher.zbp"), "mine");
}

TEST_F(Start, AFolderThatTakesNoCopyIsReportedAndThePanelStays) {
    writeFile(folder / "file", "");
    start("");
    QString told;
    whileWaiting([&told] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            told = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    openExampleIn(folder / "file");
    EXPECT_THAT(told.toStdString(),
                HasSubstr("The example cannot be copied to " + (folder / "file").string()));
    EXPECT_TRUE(panel().isVisible());
    EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("file"));
}

TEST_F(Start, ADialogAsksForTheFolder) {
    start("");
    whileWaiting([this] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->fileMode(), QFileDialog::Directory);
        dialog->setDirectory(QString::fromStdString(folder.path().string()));
        dialog->selectFile(QString::fromStdString(folder.path().string()));
        static_cast<QDialog*>(dialog)->accept();
    });
    way("startExample").click();
    program.settle();
    EXPECT_EQ(program.application.projectFilePath(), (folder / "Etcher" / "Etcher.zbp").string());
}

TEST_F(Start, NoFolderChosenChangesNothing) {
    start("");
    openExampleIn({});
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(program.application.ProjectName, "");
}

TEST_F(Start, NewThatIsCancelledFindsThePanelAndItsFocusAsTheyWere) {
    start("");
    bool asked = false;
    whileWaiting([&] {
        asked = program.application.frmNewProject.visible();
        EXPECT_TRUE(panel().isVisible());
        program.form(program.application.frmNewProject).close();
    });
    way("startNew").click();
    program.settle();
    EXPECT_TRUE(asked);
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(focused(), "startNew");
}

TEST_F(Start, TheKeyboardReachesEveryWayAndEnterTakesIt) {
    start("");
    EXPECT_EQ(focused(), "startNew");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "startOpen");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "startExample");
    program.screen.startPage()->pickFolder = [this] { return folder.path().string(); };
    press(Qt::Key_Return);
    program.settle();
    EXPECT_EQ(program.application.ProjectName, "Etcher");
}

TEST_F(Start, WhatWaitsForADecisionIsOfferedHereAsInTheStrip) {
    start("");
    std::string done;
    const auto post = [&](const std::string& name) {
        program.application.desktop.post({"Unsaved work on " + name + " was found after a crash",
                                          {{"Recover", [&done, name] { done = "recover " + name; }},
                                           {"Discard", [&done, name] { done = "discard " + name; }}},
                                          name,
                                          Notice::Stays::UntilClosed});
    };
    post("Etcher");
    post("<b>Line</b>");
    program.application.desktop.post({"Saved"});
    program.settle();
    std::vector<std::string> texts;
    for (const QWidget* offer : panel().findChildren<QWidget*>("startOffer"))
        texts.push_back(offer->findChild<QLabel*>()->text().toStdString());
    EXPECT_THAT(texts, ElementsAre("Unsaved work on Etcher was found after a crash",
                                   "Unsaved work on <b>Line</b> was found after a crash"));
    EXPECT_EQ(focused(), "startRecover") << "the first offer has the keyboard";
    // The first offer is not the notice that the strip shows.
    way("startDiscard").click();
    program.settle();
    EXPECT_EQ(done, "discard Etcher");
    ASSERT_EQ(panel().findChildren<QWidget*>("startOffer").size(), 1);
    EXPECT_EQ(focused(), "startRecover");
    way("startRecover").click();
    program.settle();
    EXPECT_EQ(done, "recover <b>Line</b>");
    EXPECT_EQ(panel().findChildren<QWidget*>("startOffer").size(), 0);
    EXPECT_EQ(focused(), "startNew");
}

TEST_F(Start, TheEditorShownWithoutAProjectTakesThePlace) {
    start("");
    program.application.showEditor();
    program.settle();
    EXPECT_FALSE(panel().isVisible());
    program.application.frmSECSEditor.hide();
    program.settle();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(Start, RecentProjectsAreOneClickAway) {
    const std::filesystem::path copy = folder / "Etcher/Etcher.zbp";
    std::filesystem::create_directories(copy.parent_path());
    std::filesystem::copy_file(kExample, copy);
    RecentProjects(program.settings).add((folder / "gone.zbp").string());
    RecentProjects(program.settings).add(copy.string());
    start("");
    auto* recent = panel().findChild<QToolButton*>(QStringLiteral("startRecent1"));
    ASSERT_NE(recent, nullptr);
    EXPECT_THAT(recent->text().toStdString(), HasSubstr("Etcher"));
    EXPECT_EQ(panel().findChild<QToolButton*>(QStringLiteral("startRecent2")), nullptr) << "it is gone";
    recent->click();
    program.settle();
    EXPECT_EQ(program.application.ProjectName, "Etcher");
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(Start, EnterOpensTheRecentProjectWithTheFocus) {
    const std::filesystem::path copy = folder / "Etcher/Etcher.zbp";
    std::filesystem::create_directories(copy.parent_path());
    std::filesystem::copy_file(kExample, copy);
    RecentProjects(program.settings).add(copy.string());
    start("");
    auto* recent = panel().findChild<QToolButton*>(QStringLiteral("startRecent1"));
    ASSERT_NE(recent, nullptr);
    recent->setFocus();
    QTest::keyClick(recent, Qt::Key_Return);
    program.settle();
    EXPECT_EQ(program.application.ProjectName, "Etcher");
}

TEST_F(Start, TheArrowBesideOpenShowsTheRecentProjects) {
    start("");
    auto* arrow = program.screen.mainWindow()->findChild<QToolButton*>(QStringLiteral("tbrMain_Open_Menu"));
    ASSERT_NE(arrow, nullptr);
    const PopupMenu& menu = program.application.frmWorkbench.recentEntries.mnuRecent;
    EXPECT_FALSE(menu.isOpen());
    arrow->click();
    EXPECT_TRUE(menu.isOpen());
    program.screen.binding().hands.dismiss();
    program.settle();
    EXPECT_FALSE(menu.isOpen());
}

} // namespace
} // namespace zb::test
