#include "platform/file_access.h"

#include "platform/file_layer.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace zb {
namespace {

/// Another program creates the file just before this one.
class CrowdedFolder final : public SystemFileLayer {
public:
    Result<int> create(const std::filesystem::path& path, unsigned mode) override {
        test::writeFile(path, "of the other");
        return SystemFileLayer::create(path, mode);
    }
};

TEST(FileAccess, AFileThatAnotherProgramCreatesMeanwhileCanBeWritten) {
    const test::TemporaryFolder folder;
    CrowdedFolder files;
    const std::string path = (folder / "P.tmd").string();
    const Result<void> access = checkFileAccessKeeping(files, path);
    EXPECT_TRUE(access) << access.error().description;
    EXPECT_EQ(test::readFile(path), "of the other");
}

} // namespace
} // namespace zb
