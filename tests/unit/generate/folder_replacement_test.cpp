#include "generate/folder_replacement.h"
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

} // namespace
} // namespace zb::generate
