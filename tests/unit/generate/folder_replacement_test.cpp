#include "generate/folder_replacement.h"
#include "platform/folder_lock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace zb::generate {
namespace {

namespace fs = std::filesystem;

class FolderReplacement : public testing::Test {
protected:
    std::string folder() const { return (temporary_ / "ZeltoPlugIn/cpp").string(); }
    std::string file(const std::string& name) const { return test::readFile(folder() + "/" + name); }

    test::TemporaryFolder temporary_;
};

TEST_F(FolderReplacement, WritesAllFilesAndNothingElse) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}, {"messages/b.h", "2"}}));
    EXPECT_EQ(file("a.h"), "1");
    EXPECT_EQ(file("messages/b.h"), "2");
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "3"}}));
    EXPECT_EQ(file("a.h"), "3");
    EXPECT_FALSE(fs::exists(folder() + "/messages"));
    const fs::path parent = fs::path(folder()).parent_path();
    EXPECT_EQ(std::distance(fs::directory_iterator(parent), fs::directory_iterator()), 1);
}

TEST_F(FolderReplacement, KeepsTheFilesOfTheUser) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    fs::create_directories(folder() + "/mine");
    test::writeFile(folder() + "/mine/Handlers.user.h", "of the user");
    test::writeFile(folder() + "/other.txt", "x");
    ASSERT_TRUE(replaceFolder(folder(), {{"b.h", "2"}, {"mine/Handlers.user.h", "of the generator"}}));
    EXPECT_EQ(file("mine/Handlers.user.h"), "of the user");
    EXPECT_FALSE(fs::exists(folder() + "/other.txt"));
    EXPECT_FALSE(isUserFile("user.h"));
    EXPECT_FALSE(isUserFile(".user.h"));
}

TEST_F(FolderReplacement, LeavesFoldersThatHoldNoPlugIn) {
    fs::create_directories(folder());
    test::writeFile(folder() + "/thesis.txt", "years of work");
    const Result<void> result = replaceFolder(folder(), {{"a.h", "1"}});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().description, "the folder holds files that are no plug-in");
    EXPECT_EQ(file("thesis.txt"), "years of work");
}

TEST_F(FolderReplacement, LeavesTheFolderWhenAFileCannotBeWritten) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    EXPECT_FALSE(replaceFolder(folder(), {{"a.h", "2"}, {"a.h/below", "3"}}));
    EXPECT_EQ(file("a.h"), "1");
}

TEST_F(FolderReplacement, FindsTheFolderOfAKilledRunAgain) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    test::writeFile(folder() + "/Own.user.h", "own");
    fs::rename(folder(), temporary_ / "ZeltoPlugIn/.cpp.former");
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "2"}}));
    EXPECT_EQ(file("a.h"), "2");
    EXPECT_EQ(file("Own.user.h"), "own");
}

TEST_F(FolderReplacement, LeavesOtherFoldersThatHaveTheNamesOfItsOwn) {
    for (const char* name : {".cpp.new", ".cpp.former"}) {
        const fs::path other = temporary_ / "ZeltoPlugIn" / name;
        fs::create_directories(other);
        test::writeFile(other / "thesis.txt", "years of work");
        const Result<void> result = replaceFolder(folder(), {{"a.h", "1"}});
        ASSERT_FALSE(result);
        EXPECT_EQ(result.error().description,
                  std::string("the folder ") + name + " beside it holds files that are no plug-in");
        EXPECT_EQ(test::readFile(other / "thesis.txt"), "years of work");
        fs::remove_all(other);
    }
    fs::create_directory(temporary_ / "other");
    fs::create_directory_symlink(temporary_ / "other", temporary_ / "ZeltoPlugIn/.cpp.new");
    EXPECT_FALSE(replaceFolder(folder(), {{"a.h", "1"}}));
    EXPECT_TRUE(fs::is_empty(temporary_ / "other"));
}

TEST_F(FolderReplacement, KeepsTheRightsOfTheFolder) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    for (const auto mode : {fs::perms(0700), fs::perms(0750), fs::perms(0775)}) {
        fs::permissions(folder(), mode);
        ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "2"}}));
        EXPECT_EQ(fs::status(folder()).permissions(), mode);
    }
}

TEST_F(FolderReplacement, AFileOfTheUserStaysTheSameOne) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    const fs::path own = fs::path(folder()) / "Own.user.h";
    test::writeFile(own, "own");
    fs::permissions(own, fs::perms(0600));
    fs::create_hard_link(own, temporary_ / "second name");
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "2"}}));
    EXPECT_TRUE(fs::equivalent(own, temporary_ / "second name"));
    EXPECT_EQ(fs::status(own).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::hard_link_count(own), 2U);
}

TEST_F(FolderReplacement, KeepsLinksOfTheUserToFilesAndFolders) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    fs::create_directory(temporary_ / "mine");
    fs::create_directory_symlink(temporary_ / "mine", folder() + "/Mine.user.d");
    fs::create_symlink("missing", folder() + "/Missing.user.h");
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "2"}}));
    EXPECT_EQ(fs::read_symlink(folder() + "/Mine.user.d"), temporary_ / "mine");
    EXPECT_EQ(fs::read_symlink(folder() + "/Missing.user.h"), "missing");
    EXPECT_TRUE(fs::exists(temporary_ / "mine"));
}

TEST_F(FolderReplacement, DoesNotGoOnWhileAnotherProgramWrites) {
    ASSERT_TRUE(replaceFolder(folder(), {{"a.h", "1"}}));
    const FolderLock other(fs::path(folder()).parent_path(), std::chrono::milliseconds(0));
    ASSERT_TRUE(other.isHeld());
    const Result<void> result = replaceFolder(folder(), {{"a.h", "2"}}, std::chrono::milliseconds(50));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().description, "another program keeps writing in the folder around it");
    EXPECT_EQ(file("a.h"), "1");
}

} // namespace
} // namespace zb::generate
