#pragma once

#include "platform/result.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace zb {

class FileLayer;

/// The previous versions of project files. Each project has a folder of its own, told apart by name and
/// place; the newest ten versions are kept, with numbers that go on rising.
class ProjectHistory {
public:
    static constexpr std::size_t kMostVersions = 10;

    struct Version {
        int number = 0;
        std::uintmax_t bytes = 0;
        std::filesystem::file_time_type time;
        std::filesystem::path path;
    };

    /// An empty folder keeps nothing.
    ProjectHistory(FileLayer& files, std::filesystem::path stateFolder)
        : files_(files), stateFolder_(std::move(stateFolder)) {}

    /// Keeps what stands in the project file now, unless it is empty or the newest version already.
    Result<void> keep(const std::filesystem::path& projectFile);
    /// Oldest first.
    std::vector<Version> versions(const std::filesystem::path& projectFile) const;
    /// Puts a version back beside the project file under a new name, which it gives.
    Result<std::filesystem::path> restore(const std::filesystem::path& projectFile, int number);

private:
    std::filesystem::path folderOf(const std::filesystem::path& projectFile) const;

    FileLayer& files_;
    std::filesystem::path stateFolder_;
};

} // namespace zb
