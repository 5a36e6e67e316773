#include "platform/text_file.h"
#include "shell/option_settings.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;

std::string contentWith(const std::string& message) {
    return encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n* \r\n" + message +
                       ": S1 F1 W H<->E.\r\n");
}

/// A user who cancels the reading of projects.
struct CancelledOpening : testing::Test {
    CancelledOpening() {
        for (const char* name : {"Here", "There"}) {
            fs::create_directories(folder / name);
            test::writeFile(projectFile(name), contentWith(name));
        }
    }

    fs::path projectFile(const std::string& name) const { return folder / (name + "/" + name + ".zbp"); }

    void cancelEachWork() {
        program.screen.longWork = [this](const std::function<void(const Progress&)>& work) {
            LongWork cancelled;
            cancelled.cancel();
            ++works;
            EXPECT_THROW(work(Progress(cancelled)), Cancelled);
            return false;
        };
    }

    Application& application() { return program.application; }

    SystemFileLayer files;
    test::TemporaryFolder folder;
    test::Program program{files, (folder / "state").string()};
    int works = 0;
};

TEST_F(CancelledOpening, LeavesTheProjectThatWasOpen) {
    application().start(projectFile("Here").string());
    Node& message = *application().frmSECSEditor.liveTree().find("Here");
    message.setText("Here: S1 F3 W H<->E");
    cancelEachWork();
    program.screen.answers = {Answer::No};
    program.screen.picks = {projectFile("There").string()};
    EXPECT_FALSE(application().projects.openProject());

    EXPECT_EQ(works, 1);
    EXPECT_EQ(application().ProjectName, "Here");
    EXPECT_EQ(application().ProjectPath, (folder / "Here").string());
    EXPECT_EQ(application().frmSECSEditor.liveTree().find("Here"), &message);
    EXPECT_EQ(application().frmSECSEditor.cboSECSMessage.entries(), std::vector<std::string>{"Here"});
    EXPECT_TRUE(application().projects.saveProject());
    EXPECT_NE(test::readFile(projectFile("Here")), contentWith("Here"));
    EXPECT_EQ(test::readFile(projectFile("There")), contentWith("There"));
}

TEST_F(CancelledOpening, LeavesNoProjectAtTheStart) {
    writeSetting(program.settings, kRecentProject, projectFile("There").string());
    cancelEachWork();
    application().start("");

    EXPECT_EQ(works, 1);
    EXPECT_EQ(application().ProjectName, "");
    EXPECT_EQ(application().ProjectPath, "");
    EXPECT_FALSE(application().frmSECSEditor.visible());
    EXPECT_FALSE(application().frmMain.tbrMain.button("Save").enabled());
    EXPECT_EQ(getRecentProject(program.settings), projectFile("There").string());
}

} // namespace
} // namespace zb
