#pragma once

#include <chrono>
#include <filesystem>

namespace zb {

/// Keeps other programs that take the same lock from changing a folder's files while this object exists. The
/// lock is on the folder itself, so that it leaves no file, and it goes with the process.
class FolderLock {
public:
    /// Waits at most so long for another program to give the lock back.
    FolderLock(const std::filesystem::path& folder, std::chrono::milliseconds longestWait);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Another program had the lock all the time, and this one does not have it. A folder that cannot be
    /// locked at all (there is none, or its file system has no locks) is not busy.
    bool isBusy() const { return busy_; }
    /// This object has the lock.
    bool isHeld() const { return held_; }

private:
    int descriptor_;
    bool busy_ = false;
    bool held_ = false;
};

} // namespace zb
