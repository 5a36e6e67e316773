#pragma once

#include "platform/folder_lock.h"
#include "platform/result.h"
#include "project/project_history.h"

#include <chrono>
#include <filesystem>
#include <string_view>

namespace zb {

/// Replaces a project file, and keeps what was in it as a version. Every project file that is written over
/// is written over by this class. While an object of it exists, no other one changes a project of the same
/// folder: what was read after it was made is still there when it writes, unless a foreign program wrote.
class ProjectFileWriter {
public:
    /// Waits at most so long for others to finish.
    ProjectFileWriter(FileLayer& files, const std::filesystem::path& stateFolder,
                      std::filesystem::path projectFile, std::chrono::milliseconds longestWait);

    /// Another program was writing all the time.
    bool isBusy() const { return lock_.isBusy(); }
    /// The error names the file and the failed step; the old content is then complete.
    Result<void> write(std::string_view bytes);
    /// Whether the version before the last `write` could be kept. If not, the file was written nevertheless.
    const Result<void>& kept() const { return kept_; }

private:
    FileLayer& files_;
    ProjectHistory history_;
    std::filesystem::path projectFile_;
    FolderLock lock_;
    Result<void> kept_;
};

} // namespace zb
