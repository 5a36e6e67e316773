#include "console/output_guard.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zb::test {
namespace {

struct OutputGuardTest : ::testing::Test {
    std::string path() const { return (folder / "out.smd").string(); }
    TemporaryFolder folder;
};

TEST_F(OutputGuardTest, NoticesOtherBytesOfTheSameSize) {
    writeFile(path(), "before");
    const OutputGuard guard(path());
    EXPECT_TRUE(guard.isUnchanged());
    writeFile(path(), "other");
    EXPECT_FALSE(guard.isUnchanged());
}

TEST_F(OutputGuardTest, NoticesAFileThatComesOrGoes) {
    const OutputGuard missing(path());
    EXPECT_TRUE(missing.isUnchanged());
    writeFile(path(), "new");
    EXPECT_FALSE(missing.isUnchanged());
    const OutputGuard there(path());
    std::filesystem::remove(path());
    EXPECT_FALSE(there.isUnchanged());
}

TEST_F(OutputGuardTest, NoticesFilesOfAFolderThatChangeComeOrGo) {
    for (const char* name : {"same.sml", "other.sml", "gone.sml", "other.txt"})
        writeFile(folder / name, "before");
    const FolderGuard guard(folder.path(), ".sml");
    writeFile(folder / "other.sml", "other");
    writeFile(folder / "new.sml", "before");
    std::filesystem::remove(folder / "gone.sml");
    EXPECT_TRUE(guard.isUnchanged("same.sml"));
    EXPECT_TRUE(guard.isUnchanged("missing.sml"));
    for (const char* name : {"other.sml", "gone.sml", "new.sml"})
        EXPECT_FALSE(guard.isUnchanged(name)) << name;
}

TEST_F(OutputGuardTest, AFolderThatIsMissingHasNoFiles) {
    const FolderGuard guard(folder / "later", ".sml");
    EXPECT_TRUE(guard.isUnchanged("a.sml"));
    std::filesystem::create_directory(folder / "later");
    writeFile(folder / "later/a.sml", "new");
    EXPECT_FALSE(guard.isUnchanged("a.sml"));
}

} // namespace
} // namespace zb::test
