#include "project/project_session.h"

#include "platform/file_layer.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

namespace zb::test {
namespace {

namespace fs = std::filesystem;

using ::testing::IsEmpty;
using ::testing::SizeIs;

struct SessionTest : ::testing::Test {
    // A program that is destroyed without `leave` was killed.
    std::unique_ptr<ProjectSession> program() {
        return std::make_unique<ProjectSession>(files, fs::path(folder.path()));
    }
    std::size_t foldersLeft() const {
        std::error_code error;
        std::size_t count = 0;
        for (fs::directory_iterator at(fs::path(folder.path()) / "sessions", error);
             !error && at != fs::directory_iterator(); at.increment(error))
            ++count;
        return count;
    }

    SystemFileLayer files;
    TemporaryFolder folder;
};

TEST_F(SessionTest, ARegularEndLeavesNothing) {
    const auto first = program();
    ASSERT_TRUE(first->enter("/p/A.zbp"));
    ASSERT_TRUE(first->keepWork("work"));
    EXPECT_EQ(foldersLeft(), 1U);
    first->leave();
    EXPECT_EQ(foldersLeft(), 0U);
}

TEST_F(SessionTest, ARunningProgramIsSeenWithItsProcess) {
    const auto first = program();
    ASSERT_TRUE(first->enter("/p/A.zbp"));
    const auto second = program();
    ASSERT_TRUE(second->enter("/p/A.zbp"));
    const auto others = second->others();
    ASSERT_THAT(others, SizeIs(1));
    EXPECT_TRUE(others[0].isRunning);
    EXPECT_EQ(others[0].project, "/p/A.zbp");
    EXPECT_EQ(others[0].process, files.processId());
    EXPECT_FALSE(others[0].host.empty());
    EXPECT_TRUE(others[0].work.empty());
}

TEST_F(SessionTest, AKilledProgramLeavesItsWork) {
    auto first = program();
    ASSERT_TRUE(first->enter("/p/odd\nname.zbp"));
    ASSERT_TRUE(first->keepWork("old work"));
    ASSERT_TRUE(first->keepWork("work"));
    first.reset();
    const auto second = program();
    const auto others = second->others();
    ASSERT_THAT(others, SizeIs(1));
    EXPECT_FALSE(others[0].isRunning);
    EXPECT_EQ(others[0].project, "/p/odd\nname.zbp");
    EXPECT_EQ(readBytes(others[0].work).value(), "work");
    second->remove(others[0]);
    EXPECT_THAT(second->others(), IsEmpty());
    EXPECT_EQ(foldersLeft(), 0U);
}

TEST_F(SessionTest, AKilledProgramWithoutWorkIsForgotten) {
    auto first = program();
    ASSERT_TRUE(first->enter("/p/A.zbp"));
    ASSERT_TRUE(first->keepWork("work"));
    first->dropWork();
    first.reset();
    EXPECT_THAT(program()->others(), IsEmpty());
    EXPECT_EQ(foldersLeft(), 0U);
}

TEST_F(SessionTest, OfOneProjectOnlyTheNewestWorkStays) {
    for (const char* work : {"older", "newer"}) {
        auto killed = program();
        ASSERT_TRUE(killed->enter("/p/A.zbp"));
        ASSERT_TRUE(killed->keepWork(work));
    }
    // The clock of files may be too coarse for the two.
    for (const auto& entry : fs::directory_iterator(fs::path(folder.path()) / "sessions")) {
        if (readBytes(entry.path() / "work.zbp").value() == "older")
            fs::last_write_time(entry.path() / "work.zbp",
                                fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    const auto others = program()->others();
    ASSERT_THAT(others, SizeIs(1));
    EXPECT_EQ(readBytes(others[0].work).value(), "newer");
    EXPECT_EQ(foldersLeft(), 1U);
}

TEST_F(SessionTest, TheWorkOfARunningProgramIsNotRemoved) {
    const auto first = program();
    ASSERT_TRUE(first->enter("/p/A.zbp"));
    ASSERT_TRUE(first->keepWork("work"));
    const auto second = program();
    ASSERT_THAT(second->others(), SizeIs(1));
    second->remove(second->others()[0]);
    EXPECT_THAT(second->others(), SizeIs(1));
}

TEST_F(SessionTest, OnlyTheUserReadsIt) {
    const auto first = program();
    ASSERT_TRUE(first->enter("/p/A.zbp"));
    ASSERT_TRUE(first->keepWork("work"));
    const fs::path own = first->isEntered()
                             ? fs::directory_iterator(fs::path(folder.path()) / "sessions")->path()
                             : fs::path();
    const auto others = fs::perms::group_all | fs::perms::others_all;
    for (const fs::path& path : {own.parent_path(), own, own / "session", own / "work.zbp"})
        EXPECT_EQ(fs::status(path).permissions() & others, fs::perms::none) << path;
}

TEST_F(SessionTest, WithoutAStateFolderNothingIsKept) {
    ProjectSession none(files, {});
    EXPECT_TRUE(none.enter("/p/A.zbp"));
    EXPECT_FALSE(none.isEntered());
    EXPECT_TRUE(none.keepWork("work"));
    EXPECT_THAT(none.others(), IsEmpty());
}

} // namespace
} // namespace zb::test
