#include "platform/text_file.h"
#include "unit/platform/faulty_file_layer.h"
#include "unit/shell/program.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;

class BuildFault : public testing::TestWithParam<const char*> {
protected:
    BuildFault() {
        fs::create_directories(target.parent_path());
        fs::create_directories(folder / "Line/ZeltoPlugIn");
        test::writeFile(project,
                        encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                                    "* Are you there\r\nS1F1: S1 F1 W H<->E.\r\n"));
        test::writeFile(target, "old");
    }

    test::TemporaryFolder folder;
    fs::path project = folder / "Line/Line.zbp";
    fs::path target = folder / "Line/ZeltoInfo/Line.smd";
};

TEST_P(BuildFault, IsReportedAndLeavesNoHalfFile) {
    test::FaultyFileLayer files(GetParam(), ENOSPC);
    test::Program program(files);
    program.application.start(project.string());
    EXPECT_FALSE(program.application.builds.buildSmd());
    EXPECT_GT(files.faults(), 0) << "the fault was never met";
    ASSERT_EQ(program.screen.boxes.size(), 1U);
    EXPECT_EQ(program.screen.boxes.front().text, "No space left on device(28)");
    EXPECT_EQ(program.screen.boxes.front().title, "Zeltobench - Line.smd");
    const std::string left = test::readFile(target);
    EXPECT_TRUE(left.empty() || left == "old") << left;
    EXPECT_EQ(test::namesIn(target.parent_path()), std::set<std::string>{"Line.smd"});
}

INSTANTIATE_TEST_SUITE_P(EachCall, BuildFault,
                         testing::Values("create", "write", "laterWrite", "nothingWritten", "sync", "close",
                                         "rename", "checkWritable"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(BuildFault, OfAMissingPathIsShownInItsOwnWords) {
    for (const int number : {ENOENT, ENOTDIR}) {
        test::FaultyFileLayer files("write", number);
        test::Program program(files);
        program.application.start(project.string());
        EXPECT_FALSE(program.application.builds.buildSmd());
        ASSERT_EQ(program.screen.boxes.size(), 1U);
        EXPECT_EQ(program.screen.boxes.front().text,
                  "You cannot save this file because the file path is not found.");
    }
}

TEST_F(BuildFault, OfAFullDiskEndsThePlugInBuildBeforeTheSave) {
    test::FaultyFileLayer files("write", ENOSPC);
    test::Program program(files);
    program.application.start(project.string());
    fire(program.application.frmMain.mnuBuildZeltoPlugIn.onClick);
    EXPECT_EQ(program.screen.boxes.size(), 1U);
    EXPECT_EQ(program.application.frmResult.rtbResult.text(), "");
}

} // namespace
} // namespace zb
