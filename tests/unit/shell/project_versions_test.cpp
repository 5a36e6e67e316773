#include "shell/project_versions.h"

#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

using ::testing::HasSubstr;
using ::testing::SizeIs;

struct VersionsTest : ::testing::Test {
    VersionsTest() {
        fs::create_directories(folder / "Etcher");
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) / "examples/etcher/Etcher.zbp", project());
        application.start(project());
    }

    std::string project() const { return (folder / "Etcher/Etcher.zbp").string(); }
    bool has(const std::string& message) {
        return application.frmSECSEditor.liveTree().find(message) != nullptr;
    }
    void addMessage(const std::string& function) {
        auto& editor = application.frmSECSEditor;
        hands.paste(editor.txtStream, "99");
        hands.paste(editor.txtFunction, function);
        hands.paste(editor.txtMsgName, "S99F" + function);
        EXPECT_EQ(hands.click(Target::whole(editor.cmdMsgAdd)), "");
        EXPECT_TRUE(has("S99F" + function));
    }
    // Another program replaces the description of a message; the size stays.
    void changeByAnother() {
        std::string text = decodeProject(readBytes(project()).value()).text;
        const auto place = text.find("AreYouThere: S1 F1");
        ASSERT_NE(place, std::string::npos);
        text.replace(place, 11, "AreYouWhere");
        writeFile(project(), encodeUtf16(text));
        fs::last_write_time(project(), fs::file_time_type::clock::now() + std::chrono::seconds(2));
    }
    std::string shown() const { return application.frmWorkbench.notices.lblNotice.text(); }
    void press(std::size_t position, const std::string& caption) {
        Button& button = application.frmWorkbench.notices.cmdNotice[position];
        ASSERT_EQ(button.caption(), caption);
        ASSERT_EQ(hands.click(Target::whole(button)), "");
    }

    TemporaryFolder folder;
    SystemFileLayer files;
    Program program{files, (folder / "state").string()};
    Application& application = program.application;
    UserHands hands{application.desktop};
};

TEST_F(VersionsTest, AnUnchangedFileIsNotMentioned) {
    application.versions.userReturned();
    fs::last_write_time(project(), fs::file_time_type::clock::now() + std::chrono::seconds(2));
    application.versions.userReturned();
    EXPECT_EQ(shown(), "");
    application.projects.saveProject();
    application.versions.userReturned();
    EXPECT_EQ(shown(), "Saved Etcher.zbp, 12:00");
}

TEST_F(VersionsTest, AChangeWhileTheProjectOpensIsNotTakenForWhatWasRead) {
    program.screen.longWork = [&](const auto& work) {
        work(Progress());
        changeByAnother();
        return true;
    };
    ASSERT_TRUE(application.projects.openFile(project()));
    EXPECT_FALSE(has("AreYouWhere"));
    application.versions.userReturned();
    EXPECT_EQ(shown(), "Etcher.zbp was changed by another program");
}

TEST_F(VersionsTest, AChangeOnDiskIsToldOnceAndCanBeReloaded) {
    changeByAnother();
    application.versions.userReturned();
    EXPECT_EQ(shown(), "Etcher.zbp was changed by another program");
    application.versions.userReturned();
    EXPECT_EQ(application.frmWorkbench.log.lvwLog.count(), 1U);
    addMessage("1");
    press(0, "Reload");
    EXPECT_TRUE(has("AreYouWhere"));
    EXPECT_FALSE(has("S99F1"));
    EXPECT_EQ(shown(), "Reloaded Etcher.zbp");
    EXPECT_TRUE(application.work.isSaved());
    EXPECT_THAT(program.screen.boxes, SizeIs(0));
    // What was open is not lost.
    press(0, "Bring back what was open");
    EXPECT_TRUE(has("S99F1"));
    EXPECT_TRUE(has("AreYouThere"));
    EXPECT_FALSE(application.work.isSaved());
}

TEST_F(VersionsTest, TheNoticeOfAReloadGoesWithItsUndo) {
    changeByAnother();
    application.versions.userReturned();
    press(0, "Reload");
    EXPECT_EQ(shown(), "Reloaded Etcher.zbp");
    addMessage("1");
    hands.click(Target::whole(application.frmWorkbench.cmdUndo));
    EXPECT_EQ(shown(), "Reloaded Etcher.zbp");
    hands.click(Target::whole(application.frmWorkbench.cmdUndo));
    EXPECT_TRUE(has("AreYouThere"));
    EXPECT_EQ(shown(), "");
}

TEST_F(VersionsTest, AChangeOnDiskIsComparedBeforeTheUserDecides) {
    changeByAnother();
    application.versions.userReturned();
    press(1, "Compare");
    EXPECT_TRUE(application.frmCompare.visible());
    EXPECT_TRUE(has("AreYouThere"));
    EXPECT_EQ(shown(), "Etcher.zbp was changed by another program");
    press(0, "Reload");
    EXPECT_TRUE(has("AreYouWhere"));
}

TEST_F(VersionsTest, AFileThatIsNoProjectIsNotReloaded) {
    addMessage("1");
    writeFile(project(), "no project");
    application.versions.userReturned();
    press(0, "Reload");
    EXPECT_THAT(shown(), HasSubstr("Etcher.zbp cannot be shown: "));
    EXPECT_TRUE(has("S99F1"));
    EXPECT_FALSE(application.work.isSaved());
    EXPECT_EQ(application.frmMain.titleNote(), "Etcher*");
}

TEST_F(VersionsTest, KeepMineChangesNothing) {
    changeByAnother();
    addMessage("1");
    application.versions.userReturned();
    press(2, "Keep mine");
    EXPECT_TRUE(has("S99F1"));
    EXPECT_EQ(shown(), "");
    application.versions.userReturned();
    EXPECT_EQ(shown(), "");
}

TEST_F(VersionsTest, ASaveKeepsTheChangeOfAnotherProgramAndBringsItBack) {
    changeByAnother();
    const std::string other = readBytes(project()).value();
    addMessage("1");
    ASSERT_TRUE(application.projects.saveProject());
    EXPECT_THAT(program.screen.boxes, SizeIs(0));
    EXPECT_EQ(application.frmWorkbench.log.lvwLog.rows()[0]->cell(1),
              "The save replaced a change of another program in Etcher.zbp; it is kept as version 1");
    const auto versions = application.versions.versions();
    ASSERT_THAT(versions, SizeIs(1));
    EXPECT_EQ(readBytes(versions[0].path).value(), other);
    // The newest notice goes, and this one is shown again.
    hands.click(Target::whole(application.frmWorkbench.notices.cmdCloseNotice));
    press(0, "Bring it back");
    EXPECT_TRUE(has("AreYouWhere"));
    EXPECT_FALSE(has("S99F1"));
    EXPECT_FALSE(application.work.isSaved());
}

TEST_F(VersionsTest, ASaveWithoutADecisionStillSaysWhatItReplaces) {
    changeByAnother();
    application.versions.userReturned();
    addMessage("1");
    ASSERT_TRUE(application.projects.saveProject());
    hands.click(Target::whole(application.frmWorkbench.notices.cmdCloseNotice));
    EXPECT_THAT(shown(), HasSubstr("The save replaced a change of another program"));
}

TEST_F(VersionsTest, AnOrdinarySaveSaysNothingOfOthers) {
    addMessage("1");
    ASSERT_TRUE(application.projects.saveProject());
    addMessage("3");
    ASSERT_TRUE(application.projects.saveProject());
    EXPECT_EQ(application.frmWorkbench.log.lvwLog.count(), 2U);
}

TEST_F(VersionsTest, AFileThatIsGoneIsTold) {
    fs::remove(project());
    application.versions.userReturned();
    EXPECT_EQ(shown(), "Etcher.zbp was removed by another program");
    press(0, "Keep mine");
    ASSERT_TRUE(application.projects.saveProject());
    EXPECT_TRUE(fs::exists(project()));
}

TEST_F(VersionsTest, TheSaveOfASecondProgramIsAChange) {
    Program second(files, (folder / "state").string());
    second.application.start(project());
    UserHands others(second.application.desktop);
    auto& editor = second.application.frmSECSEditor;
    others.paste(editor.txtStream, "98");
    others.paste(editor.txtFunction, "1");
    others.paste(editor.txtMsgName, "Other");
    others.click(Target::whole(editor.cmdMsgAdd));
    ASSERT_TRUE(second.application.projects.saveProject());
    application.versions.userReturned();
    EXPECT_EQ(shown(), "Etcher.zbp was changed by another program");
}

TEST_F(VersionsTest, ThePaneListsTheVersionsAndRestoresOne) {
    addMessage("1");
    application.projects.saveProject();
    addMessage("3");
    application.projects.saveProject();
    HistoryPane& pane = application.frmWorkbench.history;
    hands.click(Target::whole(pane.button));
    ASSERT_EQ(pane.lvwHistory.count(), 2U);
    const ListRow& newest = *pane.lvwHistory.rows()[0];
    EXPECT_EQ(newest.cell(0), "2");
    EXPECT_THAT(newest.cell(1), HasSubstr("20"));
    EXPECT_THAT(newest.cell(2), HasSubstr(" KiB"));
    EXPECT_EQ(newest.cell(3), "2 messages added");
    EXPECT_EQ(pane.lvwHistory.rows()[1]->cell(3), "the oldest version");
    EXPECT_FALSE(pane.cmdRestore.enabled());
    Target row = Target::whole(pane.lvwHistory);
    row.row = pane.lvwHistory.find("1");
    hands.click(row);
    ASSERT_EQ(hands.click(Target::whole(pane.cmdRestore)), "");
    EXPECT_FALSE(has("S99F1"));
    EXPECT_FALSE(has("S99F3"));
    EXPECT_FALSE(application.work.isSaved());
    EXPECT_EQ(shown(), "Version 1 is shown; it is not saved yet");
    EXPECT_EQ(application.ProjectName, "Etcher");
    // What was open is version 3 now, and in the pane.
    EXPECT_EQ(pane.lvwHistory.count(), 3U);
    press(0, "Bring back what was open");
    EXPECT_TRUE(has("S99F3"));
}

TEST_F(VersionsTest, AVersionOpensBesideAsACopyThatCannotBeWritten) {
    addMessage("1");
    application.projects.saveProject();
    std::string opened;
    application.versions.onOpenBeside = [&](const std::string& path) {
        opened = path;
        return true;
    };
    const auto versions = application.versions.versions();
    ASSERT_THAT(versions, SizeIs(1));
    for (int again = 0; again < 2; ++again) {
        application.versions.openBeside(versions[0]);
        EXPECT_EQ(fs::path(opened).filename(), "Etcher_version1.zbp");
        EXPECT_EQ(readBytes(opened).value(), readBytes(versions[0].path).value());
        EXPECT_EQ(fs::status(opened).permissions() & fs::perms::mask, fs::perms::owner_read);
    }
    EXPECT_TRUE(has("S99F1"));
    application.versions.onOpenBeside = nullptr;
    application.versions.openBeside(versions[0]);
    EXPECT_EQ(shown(), "The copy of version 1 is " + opened);
}

TEST_F(VersionsTest, AVersionThatIsNoProjectChangesNothing) {
    addMessage("1");
    application.projects.saveProject();
    const auto versions = application.versions.versions();
    writeFile(versions[0].path, "damaged");
    application.versions.restoreVersion(versions[0]);
    EXPECT_TRUE(has("S99F1"));
    EXPECT_THAT(shown(), HasSubstr("cannot be shown: "));
}

TEST_F(VersionsTest, WithoutAProjectThePaneIsEmpty) {
    Program none(files, (folder / "state").string());
    none.application.start({});
    UserHands(none.application.desktop).click(Target::whole(none.application.frmWorkbench.history.button));
    EXPECT_EQ(none.application.frmWorkbench.history.lvwHistory.count(), 0U);
}

} // namespace
} // namespace zb::test
