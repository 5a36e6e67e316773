#include "project/project_files.h"

#include "platform/drives.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "support/ended_process.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

namespace zb {
namespace {

struct HeaderCase {
    const char* name;
    const char* text;
    int type;
};

class ProjectHeader : public testing::TestWithParam<HeaderCase> {};

TEST_P(ProjectHeader, NamesTheSide) {
    EXPECT_EQ(projectTypeOf(readSide(GetParam().text)), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ProjectHeader,
    testing::Values(
        HeaderCase{"Empty", "", 1}, HeaderCase{"NoHeader", "a\r\nProjectType=2\r\nb\r\n", 1},
        HeaderCase{"Equipment", "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n", 2},
        HeaderCase{"Host", "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n", 1},
        HeaderCase{"EndsBehindTheType", "###[PROJECT INFORMATION]\r\nProjectType=2\r\n", 1},
        HeaderCase{"EndsWithoutALineEnd", "###[PROJECT INFORMATION]\r\nProjectType=2", 1},
        HeaderCase{"OneBlankLineFollows", "###[PROJECT INFORMATION]\r\nProjectType=2\r\n\r\n", 2},
        HeaderCase{"EndsBehindTheMarker", "###[PROJECT INFORMATION]\r\n", 1},
        HeaderCase{"MarkerWithBlankBehind", "###[PROJECT INFORMATION] \r\nProjectType=2\r\nx\r\n", 1},
        HeaderCase{"BlanksAroundTheName", "###[PROJECT INFORMATION]\r\n  ProjectType  = 2\r\nx\r\n", 2},
        HeaderCase{"ValueOfTheText", "###[PROJECT INFORMATION]\r\nProjectType=2x\r\nx\r\n", 2},
        HeaderCase{"ValueWithAPoint", "###[PROJECT INFORMATION]\r\nProjectType=2.0\r\nx\r\n", 2},
        HeaderCase{"OtherNumber", "###[PROJECT INFORMATION]\r\nProjectType=22\r\nx\r\n", 1},
        HeaderCase{"NoNumber", "###[PROJECT INFORMATION]\r\nProjectType=two\r\nx\r\n", 1},
        HeaderCase{"OtherName", "###[PROJECT INFORMATION]\r\nprojecttype=2\r\nx\r\n", 1},
        HeaderCase{"NoEqualsSign", "###[PROJECT INFORMATION]\r\nProjectType\r\nx\r\n", 1},
        HeaderCase{"SecondEqualsSign", "###[PROJECT INFORMATION]\r\nProjectType=2=1\r\nx\r\n", 2},
        HeaderCase{"LineFeedsAlone", "###[PROJECT INFORMATION]\nProjectType=2\nx\n", 2}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SplitProjectPath, TakesFolderAndNameApart) {
    EXPECT_EQ(splitProjectPath("/a/b/Line.zbp").folder, "/a/b");
    EXPECT_EQ(splitProjectPath("/a/b/Line.zbp").name, "Line");
    EXPECT_EQ(splitProjectPath("/Line.zbp").folder, "/");
    EXPECT_EQ(splitProjectPath("/Line.zbp").name, "Line");
    EXPECT_EQ(splitProjectPath("/a/Linezbp").name, "Lin") << "the last four characters go, whatever they are";
    EXPECT_EQ(splitProjectPath("/a/Line가zbp").name, "Line") << "characters are counted, not bytes";
    EXPECT_EQ(splitProjectPath("/a/zbp").name, "");
}

TEST(SplitProjectPath, MakesRelativePathsAbsolute) {
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(splitProjectPath("Line.zbp").folder, here);
    EXPECT_EQ(splitProjectPath("sub/Line.zbp").folder, here + "/sub");
    EXPECT_EQ(splitProjectPath("Line.zbp").name, "Line");
}

TEST(IsFile, IsFalseForAFolder) {
    const test::TemporaryFolder folder;
    test::writeFile(folder / "a.zbp", "x");
    EXPECT_TRUE(isFile((folder / "a.zbp").string()));
    EXPECT_FALSE(isFile(folder.path().string()));
    EXPECT_FALSE(isFile((folder / "b.zbp").string()));
}

TEST(Drives, BeginWithTheRootAndHoldEveryFolder) {
    const auto drives = listDrives();
    ASSERT_FALSE(drives.empty());
    EXPECT_EQ(drives.front(), "/ [File System]");
    EXPECT_EQ(driveOf(drives, "/"), "/ [File System]");
    EXPECT_EQ(driveOf({"/ [File System]", "/media/usb"}, "/media/usb/x"), "/media/usb");
    EXPECT_EQ(driveOf({"/ [File System]", "/media/usb"}, "/media/usbstick"), "/ [File System]");
}

TEST(ProjectFiles, AReadThroughALinkCompletesTheWriteOfTheFileItself) {
    const test::TemporaryFolder folder;
    const auto project = [](const std::string& name) {
        return encodeUtf16("## [EDIT SMD]\r\n* d\r\n" + name + ": S1 F1 H->E.\r\n");
    };
    const std::string before = project("AA");
    const std::string after = project("BB");
    std::filesystem::create_directory(folder / "other");
    std::filesystem::create_symlink(folder / "a.zbp", folder / "other/b.zbp");
    test::writeFile(folder / "a.zbp", project("BA"));
    const std::string process = test::endedProcess();
    test::writeFile(folder / ("other/.b.zbp.zbguard-" + process),
                    "zbguard 0 " + std::to_string(before.size() + 4) + "\n" + project("BA") + "evil");
    test::writeFile(folder / (".a.zbp.zbguard-" + process), "zbguard " + std::to_string(before.size()) + " " +
                                                                std::to_string(after.size()) + "\n" + before +
                                                                after);
    ASSERT_TRUE(readProjectFile((folder / "other/b.zbp").string()));
    EXPECT_EQ(test::readFile(folder / "a.zbp"), after);
}

} // namespace
} // namespace zb
