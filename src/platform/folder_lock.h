#pragma once

#include <filesystem>

namespace zb {

/// Keeps other programs from changing a folder's files while this object exists. The lock is on the folder
/// itself, so that it leaves no file. If the lock cannot be had within a second, the program goes on without
/// it: a stopped program must not stop this one.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int descriptor_;
};

} // namespace zb
