#include "platform/temporary_folder.h"

#include "support/temporary_folder.h"

#include <cstdlib>
#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

namespace zb {
namespace {

namespace fs = std::filesystem;

// The system's folder of temporary files is one of the test's own.
class TemporaryFolders : public testing::Test {
protected:
    TemporaryFolders() { setenv("TMPDIR", among.path().c_str(), 1); }
    ~TemporaryFolders() override { unsetenv("TMPDIR"); }

    // A process makes a folder with a file in it and is killed.
    void killAfterMaking() const {
        const pid_t child = ::fork();
        if (child == 0) {
            const TemporaryFolder folder("zbc-");
            fs::create_directory(folder.path() / "locked");
            test::writeFile(folder.path() / "locked/file", "x");
            fs::permissions(folder.path() / "locked", fs::perms::none);
            ::raise(SIGKILL);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }

    test::TemporaryFolder among;
};

TEST_F(TemporaryFolders, OnesThatKilledProcessesLeftGoAtTheNextStart) {
    killAfterMaking();
    ASSERT_EQ(test::namesIn(among.path()).size(), 1U);
    const TemporaryFolder next("zbc-");
    EXPECT_EQ(test::namesIn(among.path()), std::set<std::string>{next.path().filename().string()});
}

TEST_F(TemporaryFolders, OnesInUseStay) {
    const TemporaryFolder first("zbc-");
    const TemporaryFolder second("zbc-");
    EXPECT_TRUE(fs::is_directory(first.path()));
    EXPECT_TRUE(fs::is_directory(second.path()));
    EXPECT_NE(first.path(), second.path());
}

TEST_F(TemporaryFolders, WhatOthersMadeStays) {
    fs::create_directory(among / "zbc-longer-than-ours");
    fs::create_directory(among / "abc-123456");
    test::writeFile(among / "zbc-123456", "a file");
    fs::create_directory(among / "target");
    fs::create_directory_symlink(among / "target", among / "zbc-abcdef");
    const TemporaryFolder folder("zbc-");
    EXPECT_EQ(test::namesIn(among.path()),
              (std::set<std::string>{"zbc-longer-than-ours", "abc-123456", "zbc-123456", "target",
                                     "zbc-abcdef", folder.path().filename().string()}));
}

TEST_F(TemporaryFolders, OnlyTheUserCanEnter) {
    const TemporaryFolder folder("zbc-");
    struct stat status {};
    ASSERT_EQ(::stat(folder.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0700U);
}

TEST_F(TemporaryFolders, AMissingOneIsNamed) {
    const std::string missing = (among / "missing").string();
    setenv("TMPDIR", missing.c_str(), 1);
    try {
        const TemporaryFolder folder("zbc-");
        FAIL() << "a folder was made";
    } catch (const fs::filesystem_error& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr(missing));
    }
}

} // namespace
} // namespace zb
