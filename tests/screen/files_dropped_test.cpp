#include "desktop/models/node_tree_view.h"
#include "platform/text_file.h"
#include "screen/support/program_on_screen.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QSysInfo>
#include <QTreeView>
#include <QUrl>

#include <filesystem>
#include <fstream>

namespace zb::test {
namespace {

struct FilesDropped : ::testing::Test {
    FilesDropped() {
        std::ofstream(folder.path() / "a.sml") << "S1F1 W\n.\n";
        std::ofstream(folder.path() / "a.log") << "10:00:00 RECV [0x00000001] S1F1 W\n.\n";
        std::filesystem::create_directories(folder.path() / "P");
        writeFile(folder.path() / "P" / "P.zbp",
                  encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                              "A: S1 F1 H->E\r\n"));
        program.application.start("");
    }

    QWidget& tree() {
        return *program.widget<NodeTreeView>(program.application.frmSECSEditor, "tvwEdit").viewport();
    }

    void drop(QWidget& target, const char* name) { dropAt(target, QPoint(4, 4), name); }
    QUrl urlOf(const char* name) const {
        return QUrl::fromLocalFile(QString::fromStdString((folder.path() / name).string()));
    }
    void dropAt(QWidget& target, const QPoint& place, const char* name) {
        dropAll(target, place, {urlOf(name)});
    }
    void dropAll(QWidget& target, const QPoint& place, const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &enter);
        QDropEvent fall(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &fall);
        program.settle();
        QCoreApplication::processEvents();
    }

    TemporaryFolder folder;
    ProgramOnScreen program{"/"};
};

TEST_F(FilesDropped, AProjectOpensWhereverItFalls) {
    program.settle();
    drop(*program.screen.mainWindow(), "P/P.zbp");
    EXPECT_EQ(program.application.ProjectName, "P");
    EXPECT_NE(program.application.frmSECSEditor.liveTree().find("A"), nullptr);
}

// A project that is not there opened as an empty one, in place of the open project, and its folders were
// made.
TEST_F(FilesDropped, WhatIsNoFileHereOpensNothing) {
    std::filesystem::create_directories(folder.path() / "Folder.zbp");
    QUrl elsewhere = urlOf("P/P.zbp");
    elsewhere.setHost(QStringLiteral("elsewhere.example"));
    QWidget& window = *program.screen.mainWindow();
    program.settle();
    dropAll(window, QPoint(4, 4), {elsewhere, urlOf("Gone/Gone.zbp"), urlOf("Folder.zbp"), QUrl()});
    EXPECT_EQ(program.application.ProjectName, "");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Gone"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "Folder.zbp"));
    QUrl here = urlOf("P/P.zbp");
    here.setHost(QSysInfo::machineHostName());
    dropAll(window, QPoint(4, 4), {elsewhere, here});
    EXPECT_EQ(program.application.ProjectName, "P");
}

TEST_F(FilesDropped, DefinitionsOnTheTreeOpenAsTheLibrary) {
    program.application.showEditor();
    program.settle();
    drop(tree(), "a.sml");
    EXPECT_TRUE(program.application.frmSECSEditor.libraryMenu.mnuLIBSML.checked());
    EXPECT_EQ(program.application.frmSECSEditor.lvwSource.count(), 1U);
    EXPECT_EQ(program.application.frmSECSEditor.liveTree().count(), 0U);
}

TEST_F(FilesDropped, ARecordingOpensInTheRehearsalWhereverItFalls) {
    drop(*program.screen.mainWindow(), "P/P.zbp");
    drop(tree(), "a.log");
    frmRehearsal& window = program.application.frmRehearsal;
    EXPECT_TRUE(window.visible());
    window.finish();
    ASSERT_EQ(window.timeline.lvwTimeline.count(), 1U);
    EXPECT_EQ(window.timeline.lvwTimeline.rows().front()->cell(4), "A");
}

TEST_F(FilesDropped, AFileInSmlOnTheRehearsalIsARecording) {
    drop(*program.screen.mainWindow(), "P/P.zbp");
    frmRehearsal& window = program.application.frmRehearsal;
    window.open();
    program.settle();
    auto& list = program.widget<QTreeView>(window, "lvwTimeline");
    dropAt(*program.screen.mainWindow(), list.viewport()->mapTo(program.screen.mainWindow(), QPoint(20, 20)),
           "a.sml");
    window.finish();
    EXPECT_EQ(window.timeline.lvwTimeline.count(), 1U);
    EXPECT_FALSE(program.application.frmSECSEditor.libraryMenu.mnuLIBSML.checked());
}

TEST_F(FilesDropped, WithoutAProjectARecordingSaysWhatItNeeds) {
    program.settle();
    drop(*program.screen.mainWindow(), "a.log");
    EXPECT_FALSE(program.application.frmRehearsal.visible());
    EXPECT_EQ(program.application.frmWorkbench.notices.lblNotice.text(),
              "Open a project first: recordings run through its model");
}

TEST_F(FilesDropped, WithoutAnEditorThereIsNoLibraryToOpen) {
    program.settle();
    drop(*program.screen.mainWindow(), "a.sml");
    EXPECT_FALSE(program.application.frmSECSEditor.libraryMenu.mnuLIBSML.checked());
    EXPECT_EQ(program.application.frmWorkbench.notices.lblNotice.text(),
              "A library is opened in the editor: open a project first");
}

} // namespace
} // namespace zb::test
