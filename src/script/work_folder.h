#pragma once

#include <filesystem>
#include <string>

namespace zb {

/// A fresh empty folder that goes, with all in it, when this object does.
class WorkFolder {
public:
    /// Throws std::filesystem::filesystem_error when none can be made.
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace zb
