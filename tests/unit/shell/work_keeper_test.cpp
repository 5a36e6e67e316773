#include "shell/work_keeper.h"

#include "controls/user_hands.h"
#include "platform/text_file.h"
#include "unit/shell/program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <utility>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

using ::testing::EndsWith;
using ::testing::HasSubstr;

struct WorkKeeperTest : ::testing::Test {
    WorkKeeperTest() {
        fs::create_directories(folder / "Etcher");
        fs::copy_file(fs::path(ZB_SOURCE_FOLDER) / "examples/etcher/Etcher.zbp", project());
    }

    std::string project() const { return (folder / "Etcher/Etcher.zbp").string(); }
    std::string state() const { return (folder / "state").string(); }
    // Destroyed without an exit, the program was killed.
    std::unique_ptr<Program> start(const std::string& path) {
        auto program = std::make_unique<Program>(files, state());
        program->application.start(path);
        return program;
    }
    // Half a minute later, and the writing has ended.
    static void wait(Program& program) {
        const auto later = std::exchange(program.screen.later, {});
        for (const auto& call : later) {
            if (call.delay == WorkKeeper::kInterval)
                call.run();
        }
        program.application.work.finishWriting();
    }
    static void addMessage(Program& program, const std::string& function) {
        UserHands hands(program.application.desktop);
        auto& editor = program.application.frmSECSEditor;
        hands.paste(editor.txtStream, "99");
        hands.paste(editor.txtFunction, function);
        hands.paste(editor.txtMsgName, "S99F" + function);
        EXPECT_EQ(hands.click(Target::whole(editor.cmdMsgAdd)), "");
        EXPECT_NE(editor.liveTree().find("S99F" + function), nullptr);
    }
    static bool has(Program& program, const std::string& message) {
        return program.application.frmSECSEditor.liveTree().find(message) != nullptr;
    }
    static NoticeBar& notices(Program& program) { return program.application.frmWorkbench.notices; }
    static std::string shown(Program& program) { return notices(program).lblNotice.text(); }
    static void press(Program& program, std::size_t position, const std::string& caption) {
        Button& button = notices(program).cmdNotice[position];
        ASSERT_EQ(button.caption(), caption);
        ASSERT_EQ(UserHands(program.application.desktop).click(Target::whole(button)), "");
    }
    std::vector<fs::path> kept() const {
        std::vector<fs::path> found;
        std::error_code error;
        for (fs::recursive_directory_iterator at(folder / "state/sessions", error);
             !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
            if (at->path().filename() == "work.zbp")
                found.push_back(at->path());
        }
        return found;
    }

    TemporaryFolder folder;
    SystemFileLayer files;
};

TEST_F(WorkKeeperTest, TheWorkIsTheTextOfASave) {
    const auto program = start(project());
    addMessage(*program, "1");
    const std::string work = program->application.work.composeWork();
    ASSERT_TRUE(program->application.projects.saveProject());
    EXPECT_EQ(decodeProject(readBytes(project()).value()).text, work);
}

TEST_F(WorkKeeperTest, UnchangedWorkIsNotKept) {
    const auto program = start(project());
    wait(*program);
    UserHands(program->application.desktop).focus(program->application.frmSECSEditor.txtStream);
    wait(*program);
    EXPECT_EQ(kept().size(), 0U);
    EXPECT_TRUE(program->application.work.isSaved());
}

TEST_F(WorkKeeperTest, ChangedWorkIsKeptAndAKillLosesNothingOfIt) {
    auto program = start(project());
    const std::string before = readBytes(project()).value();
    addMessage(*program, "1");
    EXPECT_FALSE(program->application.work.isSaved());
    wait(*program);
    EXPECT_EQ(kept().size(), 1U);
    EXPECT_EQ(program->screen.boxes.size(), 0U);
    program.reset();

    const auto next = start(project());
    EXPECT_EQ(next->screen.boxes.size(), 0U);
    EXPECT_FALSE(has(*next, "S99F1"));
    EXPECT_THAT(shown(*next), HasSubstr("Unsaved work on Etcher of 20"));
    press(*next, 0, "Recover");
    EXPECT_TRUE(has(*next, "S99F1"));
    EXPECT_EQ(next->application.ProjectName, "Etcher");
    EXPECT_EQ(readBytes(project()).value(), before);
    EXPECT_EQ(shown(*next), "Recovered Etcher; it is not saved yet");
    // It is kept again at once, in one place.
    EXPECT_EQ(kept().size(), 1U);
    EXPECT_FALSE(next->application.work.isSaved());
    ASSERT_TRUE(next->application.projects.saveProject());
    EXPECT_EQ(kept().size(), 0U);
    EXPECT_NE(readBytes(project()).value(), before);
}

TEST_F(WorkKeeperTest, ARecoveryKeepsTheVersionOnDisk) {
    auto program = start(project());
    addMessage(*program, "1");
    wait(*program);
    program.reset();
    const auto next = start(project());
    press(*next, 0, "Recover");
    const auto versions = ProjectHistory(files, state()).versions(project());
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(readBytes(versions[0].path).value(), readBytes(project()).value());
}

TEST_F(WorkKeeperTest, DiscardRemovesTheWork) {
    auto program = start(project());
    addMessage(*program, "1");
    wait(*program);
    program.reset();
    const auto next = start(project());
    press(*next, 2, "Discard");
    EXPECT_EQ(kept().size(), 0U);
    EXPECT_FALSE(has(*next, "S99F1"));
    EXPECT_EQ(shown(*next), "");
}

TEST_F(WorkKeeperTest, TheStartPageOffersTheWorkOfAnyProject) {
    auto program = start(project());
    addMessage(*program, "1");
    wait(*program);
    program.reset();
    const auto next = start({});
    ASSERT_THAT(shown(*next), HasSubstr("Unsaved work on Etcher"));
    press(*next, 0, "Recover");
    EXPECT_TRUE(has(*next, "S99F1"));
    EXPECT_EQ(next->application.ProjectPath, (folder / "Etcher").string());
    EXPECT_TRUE(next->application.frmMain.tbrMain.button("Save").enabled());
    EXPECT_TRUE(next->application.frmSECSEditor.visible());
}

TEST_F(WorkKeeperTest, AnotherProjectWithChangesIsAskedAboutFirst) {
    auto program = start(project());
    addMessage(*program, "1");
    wait(*program);
    program.reset();
    fs::create_directories(folder / "Other");
    fs::copy_file(project(), folder / "Other/Other.zbp");
    const auto next = start((folder / "Other/Other.zbp").string());
    ASSERT_THAT(shown(*next), HasSubstr("Unsaved work on Etcher"));
    addMessage(*next, "3");
    // The prompt is cancelled, and the offer stays.
    press(*next, 0, "Recover");
    ASSERT_EQ(next->screen.boxes.size(), 1U);
    EXPECT_EQ(next->screen.boxes[0].text, "Do you want to save current project");
    EXPECT_EQ(next->application.ProjectName, "Other");
    EXPECT_THAT(shown(*next), HasSubstr("Unsaved work on Etcher"));
    next->screen.answers = {Answer::No};
    press(*next, 0, "Recover");
    EXPECT_EQ(next->application.ProjectName, "Etcher");
    EXPECT_TRUE(has(*next, "S99F1"));
}

TEST_F(WorkKeeperTest, ANewProjectThatWasNeverSavedIsKeptToo) {
    auto program = start({});
    program->screen.modal = [&](Window&) {
        auto& dialog = program->application.frmNewProject;
        dialog.txtLocation.setText(folder.path().string());
        dialog.txtProjectName.setText("Fresh");
        UserHands(program->application.desktop).click(Target::whole(dialog.cmdOK));
    };
    UserHands(program->application.desktop).click(Target::whole(program->application.frmMain.mnuNew));
    ASSERT_EQ(program->application.ProjectName, "Fresh");
    addMessage(*program, "1");
    wait(*program);
    program.reset();
    const auto next = start({});
    ASSERT_THAT(shown(*next), HasSubstr("Unsaved work on Fresh"));
    press(*next, 0, "Recover");
    EXPECT_TRUE(has(*next, "S99F1"));
    EXPECT_FALSE(fs::exists(folder / "Fresh/Fresh.zbp"));
}

TEST_F(WorkKeeperTest, ARegularEndAndAnotherProjectRemoveTheWork) {
    const auto program = start(project());
    addMessage(*program, "1");
    wait(*program);
    ASSERT_EQ(kept().size(), 1U);
    program->screen.answers = {Answer::No};
    UserHands(program->application.desktop).close(program->application.frmMain);
    EXPECT_TRUE(program->application.ended());
    EXPECT_EQ(kept().size(), 0U);
    EXPECT_TRUE(fs::is_empty(folder / "state/sessions"));
}

// A folder in place of the file: the save fails as on a full disk, but for every user.
TEST_F(WorkKeeperTest, WorkThatThePromptAtTheEndCouldNotSaveIsOfferedByTheNextStart) {
    auto program = start(project());
    addMessage(*program, "1");
    fs::rename(project(), folder / "before.zbp");
    fs::create_directory(project());
    program->screen.answers = {Answer::Yes};
    UserHands(program->application.desktop).close(program->application.frmMain);
    EXPECT_TRUE(program->application.ended());
    EXPECT_EQ(program->screen.boxes.size(), 2U) << "the prompt, and the fault of the save";
    program.reset();
    EXPECT_EQ(kept().size(), 1U);

    const auto next = start({});
    ASSERT_THAT(shown(*next), HasSubstr("Unsaved work on Etcher"));
    press(*next, 0, "Recover");
    EXPECT_TRUE(has(*next, "S99F1"));
}

TEST_F(WorkKeeperTest, WorkThatThePromptBeforeAnotherProjectCouldNotSaveIsOfferedAtOnce) {
    fs::create_directories(folder / "Other");
    fs::copy_file(project(), folder / "Other/Other.zbp");
    const auto program = start(project());
    addMessage(*program, "1");
    fs::remove(project());
    fs::create_directory(project());
    program->screen.answers = {Answer::Yes, Answer::No};
    // The dialog is cancelled at first: the project stays open, and its work its own.
    UserHands hands(program->application.desktop);
    hands.click(Target::whole(program->application.frmMain.mnuOpen));
    EXPECT_EQ(program->application.ProjectName, "Etcher");
    EXPECT_EQ(shown(*program), "");
    program->screen.answers = {Answer::Yes, Answer::No};
    program->screen.picks = {(folder / "Other/Other.zbp").string()};
    hands.click(Target::whole(program->application.frmMain.mnuOpen));
    EXPECT_EQ(program->application.ProjectName, "Other");
    EXPECT_FALSE(has(*program, "S99F1"));
    ASSERT_THAT(shown(*program), HasSubstr("Unsaved work on Etcher"));
    press(*program, 0, "Recover");
    EXPECT_EQ(program->application.ProjectName, "Etcher");
    EXPECT_TRUE(has(*program, "S99F1"));
}

TEST_F(WorkKeeperTest, WorkThatIsTakenBackIsNotKept) {
    const auto program = start(project());
    addMessage(*program, "2"); // a reply, of which no other message is added
    wait(*program);
    ASSERT_EQ(kept().size(), 1U);
    auto& editor = program->application.frmSECSEditor;
    UserHands hands(program->application.desktop);
    Target added = Target::whole(editor.tvwEdit);
    added.node = editor.liveTree().find("S99F2");
    hands.click(added);
    hands.key(editor.tvwEdit, {kKeyDelete, 0});
    wait(*program);
    EXPECT_TRUE(program->application.work.isSaved());
    EXPECT_EQ(kept().size(), 0U);
}

TEST_F(WorkKeeperTest, TheEndOfTheSystemKeepsTheWorkAtOnce) {
    auto program = start(project());
    addMessage(*program, "1");
    program->application.work.keepNow();
    EXPECT_EQ(kept().size(), 1U);
    program.reset();
    // Nothing has crashed.
    EXPECT_THAT(shown(*start(project())), EndsWith(" was found"));
}

TEST_F(WorkKeeperTest, AStateFolderThatCannotBeWrittenIsReportedOnce) {
    writeFile(folder / "state", "a file");
    const auto program = start(project());
    EXPECT_THAT(shown(*program), HasSubstr("Unsaved work cannot be kept for a recovery: "));
    addMessage(*program, "1");
    wait(*program);
    EXPECT_EQ(program->application.frmWorkbench.log.lvwLog.count(), 1U);
    EXPECT_EQ(program->screen.boxes.size(), 0U);
}

TEST_F(WorkKeeperTest, ASecondProgramOnAProjectIsNamed) {
    const auto first = start(project());
    const auto second = start(project());
    EXPECT_EQ(shown(*first), "");
    EXPECT_THAT(shown(*second), HasSubstr("Etcher is also open in another program (process " +
                                          std::to_string(files.processId()) + " on "));
}

TEST_F(WorkKeeperTest, UnsavedWorkIsComparedWithTheFileBeforeTheUserDecides) {
    auto program = start(project());
    addMessage(*program, "1");
    wait(*program);
    program.reset();

    const auto next = start({});
    press(*next, 1, "Compare");
    EXPECT_EQ(next->application.ProjectName, "Etcher");
    EXPECT_FALSE(has(*next, "S99F1")) << "the file is open, and not the work";
    EXPECT_TRUE(next->application.frmCompare.visible());
    EXPECT_THAT(shown(*next), HasSubstr("Unsaved work on Etcher of 20"));
    press(*next, 0, "Recover");
    EXPECT_TRUE(has(*next, "S99F1"));
}

} // namespace
} // namespace zb::test
