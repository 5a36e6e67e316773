#include "platform/text_file.h"
#include "project/project_history.h"
#include "unit/platform/faulty_file_layer.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

namespace zb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOld = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                             "* Are you there\r\nS1F1: S1 F1 W H<->E.\r\n";

class SaveFaults : public testing::Test {
protected:
    SaveFaults() {
        fs::create_directories(projectFolder / "ZeltoInfo");
        fs::create_directories(projectFolder / "ZeltoPlugIn");
        test::writeFile(project, encodeUtf16(kOld));
    }
    // The result of a save of the project as it was opened.
    void changeMessages(Application& application) {
        NodeTree& tree = application.frmSECSEditor.liveTree();
        tree.at(2)->setText("Changed");
    }
    static std::string textOf(const fs::path& path) { return decodeProject(test::readFile(path)).text; }
    // Whether the folder contains only the project and its sub folders.
    void expectNoLitter() const {
        EXPECT_EQ(test::namesIn(projectFolder),
                  (std::set<std::string>{"Line.zbp", "ZeltoInfo", "ZeltoPlugIn"}));
    }

    test::TemporaryFolder folder;
    fs::path projectFolder = folder / "Line";
    fs::path project = projectFolder / "Line.zbp";
};

struct Fault {
    const char* call;
    int number;
};

class SaveFault : public SaveFaults, public testing::WithParamInterface<Fault> {};

TEST_P(SaveFault, LeavesTheOldFileWhole) {
    test::FaultyFileLayer files(GetParam().call, GetParam().number);
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    ASSERT_EQ(program.application.ProjectName, "Line");
    changeMessages(program.application);
    EXPECT_FALSE(program.application.projects.saveProject());
    EXPECT_GT(files.faults(), 0) << "the fault was never met";
    EXPECT_EQ(textOf(project), kOld);
    expectNoLitter();
    ASSERT_EQ(program.screen.boxes.size(), 1U);
    EXPECT_EQ(program.screen.boxes.front().title, "Zeltobench - Line.zbp");
    EXPECT_EQ(program.screen.boxes.front().icon, BoxIcon::Critical);
    EXPECT_TRUE(program.screen.boxes.front().text.ends_with("(" + std::to_string(GetParam().number) + ")"));
}

INSTANTIATE_TEST_SUITE_P(EachCall, SaveFault,
                         testing::Values(Fault{"create", EACCES}, Fault{"write", ENOSPC},
                                         Fault{"laterWrite", ENOSPC}, Fault{"nothingWritten", ENOSPC},
                                         Fault{"statusOf", EIO}, Fault{"sync", EIO}, Fault{"close", EIO},
                                         Fault{"rename", EACCES}, Fault{"checkWritable", EACCES}),
                         [](const auto& row) { return std::string(row.param.call); });

TEST_F(SaveFaults, KeepThePreviousVersion) {
    SystemFileLayer files;
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    changeMessages(program.application);
    EXPECT_TRUE(program.application.projects.saveProject());
    expectNoLitter();
    EXPECT_NE(textOf(project).find("* Changed"), std::string::npos);
    ProjectHistory history(files, folder / "state");
    const auto kept = history.versions(project);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(textOf(kept.front().path), kOld);
}

TEST_F(SaveFaults, ReportOnceThatNoVersionCanBeKept) {
    test::writeFile(folder / "state", "no folder");
    SystemFileLayer files;
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    for (const char* description : {"One", "Two"}) {
        program.application.frmSECSEditor.liveTree().at(2)->setText(description);
        EXPECT_TRUE(program.application.projects.saveProject());
        EXPECT_NE(textOf(project).find(std::string("* ") + description), std::string::npos);
    }
    ASSERT_EQ(program.screen.boxes.size(), 1U);
    EXPECT_EQ(program.screen.boxes.front().text.find(
                  "The project was saved, but its previous version could not be kept:\r\n"),
              0U);
}

TEST_F(SaveFaults, SaveAsKeepsTheProjectThatItReplaces) {
    fs::create_directories(folder / "Other");
    test::writeFile(folder / "Other/Other.zbp", encodeUtf16("## [EDIT SMD]\r\n* Of another\r\n"));
    SystemFileLayer files;
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    program.application.ProjectName = "Other";
    program.application.ProjectPath = (folder / "Other").string();
    EXPECT_TRUE(program.application.projects.saveProject());
    const auto kept = ProjectHistory(files, folder / "state").versions(folder / "Other/Other.zbp");
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(textOf(kept.front().path), "## [EDIT SMD]\r\n* Of another\r\n");
}

TEST_F(SaveFaults, WhatCouldNotBeReadIsNotReplaced) {
    fs::rename(project, folder / "aside");
    fs::create_directory(project);
    SystemFileLayer files;
    test::Program program(files, (folder / "state").string());
    program.application.ProjectName = "Line";
    program.application.ProjectPath = projectFolder.string();
    EXPECT_TRUE(program.application.projects.openProject(project.string()));
    // It can be read again, too late.
    fs::remove(project);
    fs::rename(folder / "aside", project);
    EXPECT_FALSE(program.application.projects.saveProject());
    EXPECT_EQ(textOf(project), kOld);
    ASSERT_FALSE(program.screen.boxes.empty());
    EXPECT_EQ(program.screen.boxes.back().text, "Is a directory(21)");
    EXPECT_TRUE(program.application.projects.openProject(project.string()));
    EXPECT_TRUE(program.application.projects.saveProject());
}

TEST_F(SaveFaults, AProjectThatMemoryRunsOutForIsKept) {
    SystemFileLayer files;
    test::Program program(files, (folder / "state").string());
    program.application.start(project.string());
    changeMessages(program.application);
    for (const char* name : {"Line.zbp", "Line_2.zbp"}) {
        program.application.projects.reportOutOfMemory();
        const fs::path copy = folder / "state/recovery" / name;
        EXPECT_NE(textOf(copy).find("* Changed"), std::string::npos);
        EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
        ASSERT_FALSE(program.screen.boxes.empty());
        EXPECT_EQ(program.screen.boxes.back().text, "There is not enough memory for this command.\r\n"
                                                    "The project, as it is now, has been kept in " +
                                                        copy.string());
    }
    EXPECT_EQ(textOf(project), kOld);
}

TEST_F(SaveFaults, FollowALinkToTheFileThatIsSaved) {
    const fs::path target = folder / "elsewhere.zbp";
    fs::rename(project, target);
    fs::create_symlink(target, project);
    SystemFileLayer files;
    test::Program program(files);
    program.application.start(project.string());
    changeMessages(program.application);
    EXPECT_TRUE(program.application.projects.saveProject());
    EXPECT_TRUE(fs::is_symlink(project));
    EXPECT_NE(textOf(target).find("* Changed"), std::string::npos);
}

TEST_F(SaveFaults, KeepTheModeOfTheFile) {
    fs::permissions(project, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    SystemFileLayer files;
    test::Program program(files);
    program.application.start(project.string());
    EXPECT_TRUE(program.application.projects.saveProject());
    EXPECT_EQ(fs::status(project).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

// The child is a separate process; it must exit without running anything of the test's.
template<typename Work>
int inChild(Work work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST_F(SaveFaults, LeaveTheOldFileWhenTheDiskIsFull) {
    const int status = inChild([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        SystemFileLayer files;
        test::Program program(files);
        program.application.start(project.string());
        changeMessages(program.application);
        const rlimit limit{64, 64};
        setrlimit(RLIMIT_FSIZE, &limit);
        const bool saved = program.application.projects.saveProject();
        _exit(!saved && program.screen.boxes.size() == 1 ? 42 : 1);
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 42);
    EXPECT_EQ(textOf(project), kOld);
    expectNoLitter();
}

// Saves in a loop until it is killed, with a description that contains the round.
void saveForEver(const fs::path& project) {
    SystemFileLayer files;
    test::Program program(files);
    program.application.start(project.string());
    NodeTree& tree = program.application.frmSECSEditor.liveTree();
    for (int round = 0;; ++round) {
        tree.at(2)->setText("Round " + std::to_string(round));
        program.application.projects.saveProject();
    }
}

TEST_F(SaveFaults, AtAnyKillLeaveAWholeFileAndNoLitterAfterTheNextSave) {
    const std::string tail = "S1F1: S1 F1 W H<->E.\r\n\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n";
    for (int kill = 0; kill < 40; ++kill) {
        const pid_t child = fork();
        if (child == 0)
            saveForEver(project);
        // Spread over the duration of a few saves.
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + 731 * kill));
        ::kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string text = textOf(project);
        ASSERT_TRUE(text == kOld ||
                    (text.starts_with("\r\n###[PROJECT INFORMATION]\r\n") && text.ends_with(tail)))
            << text;
    }
    SystemFileLayer files;
    test::Program program(files);
    program.application.start(project.string());
    EXPECT_TRUE(program.application.projects.saveProject());
    expectNoLitter();
}

} // namespace
} // namespace zb
