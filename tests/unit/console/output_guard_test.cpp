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
    writeFile(path(), "behind");
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

} // namespace
} // namespace zb::test
