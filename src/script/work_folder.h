#pragma once

#include "platform/temporary_folder.h"

#include <filesystem>

namespace zb {

/// A fresh empty folder that goes, with all in it, when this object does. Those that killed scripts of the
/// same user left are removed before.
class WorkFolder {
public:
    /// Throws std::filesystem::filesystem_error when it cannot be created.
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const std::filesystem::path& path() const { return folder_.path(); }

private:
    TemporaryFolder folder_;
};

} // namespace zb
