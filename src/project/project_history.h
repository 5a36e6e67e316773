#pragma once

#include "platform/result.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class FileLayer;

/// The previous versions of project files. Each project has its own folder, found by name and path; a project
/// that was moved is recognised by its content. The numbers of versions keep rising, and versions are thinned
/// out by age (see version_thinning.h). Only the user can read them.
class ProjectHistory {
public:
    struct Version {
        int number = 0;
        std::uintmax_t bytes = 0;
        std::filesystem::file_time_type time;
        std::filesystem::path path;
    };

    /// An empty folder keeps nothing.
    ProjectHistory(FileLayer& files, std::filesystem::path stateFolder)
        : files_(files), stateFolder_(std::move(stateFolder)) {}

    /// Keeps what is in the project file now, unless it is empty or the newest version already.
    Result<void> keep(const std::filesystem::path& projectFile);
    /// Keeps work on the project that is in no file, as the bytes of a project file; the same otherwise.
    Result<void> keepWork(const std::filesystem::path& projectFile, std::string_view bytes);
    /// Remembers what was saved, so that the project is known again at another place.
    void noteSaved(const std::filesystem::path& projectFile, std::string_view bytes);
    /// Oldest first.
    std::vector<Version> versions(const std::filesystem::path& projectFile) const;
    /// Puts a version back beside the project file under a new name, which it gives. It has the rights of the
    /// project file; without one only the user can read it.
    Result<std::filesystem::path> restore(const std::filesystem::path& projectFile, int number);

private:
    std::filesystem::path placeOf(const std::filesystem::path& projectFile) const;
    std::filesystem::path folderOf(const std::filesystem::path& projectFile) const;
    std::filesystem::path folderBeforeMove(const std::filesystem::path& projectFile) const;
    Result<std::filesystem::path> ownFolder(const std::filesystem::path& projectFile);
    Result<void> giveRights(const std::filesystem::path& from, const std::filesystem::path& to);

    FileLayer& files_;
    std::filesystem::path stateFolder_;
};

} // namespace zb
