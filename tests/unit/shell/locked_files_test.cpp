#include "platform/text_file.h"
#include "support/ordinary_user.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;

const std::string kContent = encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                                         "* Are you there\r\nS1F1: S1 F1 W H<->E.\r\n");

/// Projects whose permissions exclude their user.
class LockedFiles : public testing::Test {
protected:
    LockedFiles() {
        fs::create_directories(projectFolder / "ZeltoInfo");
        fs::create_directories(projectFolder / "ZeltoPlugIn");
        test::writeFile(project, kContent);
    }
    ~LockedFiles() override { fs::permissions(projectFolder, fs::perms(0755)); }

    void expectRefusedSave(unsigned mode) {
        fs::permissions(project, fs::perms(mode));
        {
            const test::OrdinaryUser user(folder.path());
            test::Program program(files, (folder / "state").string());
            program.application.start(project.string());
            EXPECT_EQ(program.application.ProjectName, "Line");
            EXPECT_TRUE(program.screen.boxes.empty());
            EXPECT_FALSE(program.application.projects.saveProject());
            ASSERT_EQ(program.screen.boxes.size(), 1U);
            EXPECT_EQ(program.screen.boxes.front().text, "Permission denied(13)");
            EXPECT_EQ(program.screen.boxes.front().title, "Zeltobench - Line.zbp");
        }
        fs::permissions(project, fs::perms(0600));
        EXPECT_EQ(test::readFile(project), kContent);
        EXPECT_EQ(test::namesIn(projectFolder),
                  (std::set<std::string>{"Line.zbp", "ZeltoInfo", "ZeltoPlugIn"}));
    }

    SystemFileLayer files;
    test::TemporaryFolder folder;
    fs::path projectFolder = folder / "Line";
    fs::path project = projectFolder / "Line.zbp";
};

TEST_F(LockedFiles, StayAsTheyAreWhenNobodyMayReadOrWriteThem) {
    expectRefusedSave(0000);
}

TEST_F(LockedFiles, StayAsTheyAreWhenTheyMayOnlyBeRead) {
    expectRefusedSave(0444);
}

// It was opened as an empty project, whose save would replace what could not be read.
TEST_F(LockedFiles, StayAsTheyAreWhenTheyMayOnlyBeWritten) {
    expectRefusedSave(0222);
}

TEST_F(LockedFiles, StayAsTheyAreInAReadOnlyFolder) {
    fs::permissions(projectFolder, fs::perms(0555));
    expectRefusedSave(0644);
}

TEST_F(LockedFiles, OpenAsEmptyProjectsWhenTheyCannotBeRead) {
    fs::permissions(project, fs::perms(0000));
    const test::OrdinaryUser user(folder.path());
    test::Program program(files);
    program.application.start(project.string());
    EXPECT_EQ(program.application.ProjectType, 1);
    EXPECT_EQ(program.application.frmSECSEditor.liveTree().count(), 0);
}

TEST_F(LockedFiles, KeepNewProjectsOutOfAReadOnlyFolder) {
    fs::permissions(projectFolder, fs::perms(0555));
    const test::OrdinaryUser user(folder.path());
    test::Program program(files);
    program.application.ProjectName = "New";
    program.application.ProjectPath = (projectFolder / "New").string();
    program.application.projects.openProject(program.application.projectFilePath());
    ASSERT_EQ(program.screen.boxes.size(), 1U);
    EXPECT_EQ(program.screen.boxes.front().text, "Cannot make directories!\r\nPermission denied\r\n(13)");
}

} // namespace
} // namespace zb
