#pragma once

#include "platform/folder_lock.h"

#include <filesystem>
#include <memory>
#include <string>

namespace zb {

/// A new empty folder among the system's temporary files, which only this user can enter. Its path has no
/// links in it. It is locked for as long as this object exists, by which others see that it is in use; it
/// is not removed.
class TemporaryFolder {
public:
    /// The name is the prefix and six characters. Folders of such names that belong to this user and are in
    /// use by no process, as a killed one leaves them, are removed first. Throws
    /// std::filesystem::filesystem_error when none can be made.
    explicit TemporaryFolder(const std::string& prefix);

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    std::unique_ptr<FolderLock> lock_;
};

/// Removes a folder with all that is in it, also where rights were taken away. Links are not followed.
void removeFolder(const std::filesystem::path& folder);

} // namespace zb
