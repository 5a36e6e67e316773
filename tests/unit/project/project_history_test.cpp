#include "project/project_history.h"

#include "platform/file_layer.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>

namespace zb {
namespace {

class History : public testing::Test {
protected:
    void save(const std::string& content) {
        ASSERT_TRUE(history.keep(project).ok());
        test::writeFile(project, content);
    }
    std::vector<std::string> contents() {
        std::vector<std::string> all;
        for (const auto& version : history.versions(project))
            all.push_back(test::readFile(version.path));
        return all;
    }

    test::TemporaryFolder folder;
    SystemFileLayer files;
    ProjectHistory history{files, folder / "state"};
    std::filesystem::path project = folder / "Line.zbp";
};

TEST_F(History, KeepsWhatTheNextSaveReplaces) {
    save("one");
    save("two");
    save("three");
    EXPECT_EQ(contents(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(History, KeepsTheNewestTenAndGoesOnCounting) {
    for (int version = 1; version <= 14; ++version)
        save("content " + std::to_string(version));
    const auto kept = history.versions(project);
    ASSERT_EQ(kept.size(), 10U);
    EXPECT_EQ(kept.front().number, 4);
    EXPECT_EQ(kept.back().number, 13);
    EXPECT_EQ(test::readFile(kept.back().path), "content 13");
}

unsigned modeOf(const std::filesystem::path& path) {
    return static_cast<unsigned>(std::filesystem::status(path).permissions() & std::filesystem::perms::mask);
}

TEST_F(History, RapidSavesLeaveTheOldVersions) {
    save("of last week");
    save("one");
    std::filesystem::last_write_time(history.versions(project).front().path,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(170));
    for (int version = 1; version <= 20; ++version)
        save("content " + std::to_string(version));
    const auto kept = contents();
    ASSERT_EQ(kept.size(), 11U);
    EXPECT_EQ(kept.front(), "of last week");
    EXPECT_EQ(kept.back(), "content 19");
}

TEST_F(History, OnlyTheUserCanReadVersions) {
    save("one");
    std::filesystem::permissions(project, std::filesystem::perms(0644));
    save("two");
    const auto versions = history.versions(project);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(modeOf(versions.front().path), 0600U);
    EXPECT_EQ(modeOf(versions.front().path.parent_path()), 0700U);
    EXPECT_EQ(modeOf(folder / "state/history"), 0700U);
    EXPECT_EQ(modeOf(folder / "state"), 0700U);
}

TEST_F(History, ARestoredVersionHasTheRightsOfTheProject) {
    save("one");
    save("two");
    for (const unsigned mode : {0600U, 0664U, 0440U}) {
        std::filesystem::permissions(project, std::filesystem::perms(mode));
        const auto restored = history.restore(project, 1);
        ASSERT_TRUE(restored.ok());
        EXPECT_EQ(modeOf(*restored), mode);
    }
    std::filesystem::remove(project);
    EXPECT_EQ(modeOf(*history.restore(project, 1)), 0600U);
}

TEST_F(History, GoesWithAProjectThatIsMoved) {
    save("one");
    save("two");
    history.noteSaved(project, "two");
    std::filesystem::create_directories(folder / "moved");
    std::filesystem::rename(project, folder / "moved/Line.zbp");
    project = folder / "moved/Line.zbp";
    EXPECT_EQ(contents(), std::vector<std::string>{"one"});
    save("three");
    EXPECT_EQ(contents(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(History, StaysWithAProjectThatIsCopied) {
    save("one");
    save("two");
    history.noteSaved(project, "two");
    test::writeFile(folder / "Copy.zbp", "two");
    EXPECT_TRUE(history.versions(folder / "Copy.zbp").empty());
    ASSERT_TRUE(history.keep(folder / "Copy.zbp").ok());
    EXPECT_EQ(contents(), std::vector<std::string>{"one"});
}

TEST_F(History, KeepsNothingTwiceInARow) {
    save("same");
    save("same");
    save("same");
    EXPECT_EQ(contents(), std::vector<std::string>{"same"});
}

TEST_F(History, KeepsNoEmptyFile) {
    save("");
    save("one");
    EXPECT_TRUE(contents().empty());
}

TEST_F(History, DistinguishesProjectsWithOneName) {
    std::filesystem::create_directories(folder / "other");
    test::writeFile(folder / "other/Line.zbp", "elsewhere");
    ASSERT_TRUE(history.keep(folder / "other/Line.zbp").ok());
    save("one");
    save("two");
    EXPECT_EQ(contents(), std::vector<std::string>{"one"});
}

TEST_F(History, KeepsProjectsWithTheLongestNames) {
    project = folder / (std::string(251, 'n') + ".zbp");
    save("one");
    save("two");
    EXPECT_EQ(contents(), std::vector<std::string>{"one"});
    EXPECT_TRUE(history.restore(project, 1).ok());
}

TEST_F(History, RestoresUnderANewName) {
    save("one");
    save("two");
    const auto first = history.restore(project, 1);
    ASSERT_TRUE(first.ok());
    EXPECT_EQ(first->filename(), "Line_version1.zbp");
    EXPECT_EQ(test::readFile(*first), "one");
    const auto second = history.restore(project, 1);
    ASSERT_TRUE(second.ok());
    EXPECT_EQ(second->filename(), "Line_version1_2.zbp");
    EXPECT_EQ(test::readFile(project), "two");
}

TEST_F(History, HasNoVersionThatWasNotKept) {
    save("one");
    const auto missing = history.restore(project, 7);
    ASSERT_FALSE(missing.ok());
    EXPECT_EQ(missing.error().number, ENOENT);
}

TEST_F(History, KeepsNothingWithoutAFolder) {
    ProjectHistory none(files, {});
    test::writeFile(project, "one");
    EXPECT_TRUE(none.keep(project).ok());
    EXPECT_TRUE(none.versions(project).empty());
}

TEST_F(History, ARestoredVersionGoesThroughNoLink) {
    save("one");
    save("two");
    const std::filesystem::path link = folder / "Line_version1.zbp";
    std::filesystem::create_symlink(folder / "elsewhere", link);
    const auto restored = history.restore(project, 1);
    ASSERT_TRUE(restored.ok());
    EXPECT_EQ(restored->filename(), "Line_version1_2.zbp");
    EXPECT_FALSE(std::filesystem::exists(folder / "elsewhere"));
}

} // namespace
} // namespace zb
