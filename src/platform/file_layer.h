#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace zb {

enum class FileKind { Regular, Folder, Link, Other };

/// The status of a file.
struct FileStatus {
    FileKind kind = FileKind::Other;
    unsigned mode = 0; // the permission bits
    unsigned owner = 0;
    unsigned group = 0;
    unsigned long names = 1; // how many names lead to it
};

/// The system calls of writing files, one function each, so that a test can inject a fault into any of them.
/// Every error has the number and text of the system.
class FileLayer {
public:
    virtual ~FileLayer() = default;

    /// Creates a file that must not exist yet and opens it for writing; returns its descriptor.
    virtual Result<int> create(const std::filesystem::path& path, unsigned mode) = 0;
    /// Opens a file that exists for writing, from its first byte on; its content stays until it is written
    /// over.
    virtual Result<int> openToWrite(const std::filesystem::path& path) = 0;
    /// Truncates an open file to this number of bytes.
    virtual Result<void> truncate(int descriptor, std::size_t length) = 0;
    /// Writes at the descriptor's position; returns the number of bytes written, which may be smaller than
    /// requested.
    virtual Result<std::size_t> write(int descriptor, std::string_view bytes) = 0;
    virtual Result<FileStatus> statusOf(int descriptor) = 0;
    virtual Result<void> setMode(int descriptor, unsigned mode) = 0;
    virtual Result<void> setOwner(int descriptor, unsigned owner, unsigned group) = 0;
    /// Gives a file the access control list of another one, or takes away its own when the other has none,
    /// and the attributes that users set. Where the file system knows neither, there is nothing to do.
    virtual Result<void> copyAccess(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    virtual Result<void> sync(int descriptor) = 0;
    virtual Result<void> close(int descriptor) = 0;

    virtual Result<void> rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    /// Removes one file, never a folder.
    virtual Result<void> remove(const std::filesystem::path& path) = 0;
    /// The status of the path itself: links are not followed.
    virtual Result<FileStatus> status(const std::filesystem::path& path) = 0;
    virtual Result<std::filesystem::path> readLink(const std::filesystem::path& path) = 0;
    /// Whether this process may write the file; the error contains the reason.
    virtual Result<void> checkWritable(const std::filesystem::path& path) = 0;
    /// Creates one level; a missing parent is an error, and so is anything that already exists there.
    virtual Result<void> makeFolder(const std::filesystem::path& path, unsigned mode) = 0;
    /// Syncs the entries of the folder to the disk.
    virtual Result<void> syncFolder(const std::filesystem::path& path) = 0;
    virtual Result<std::vector<std::string>> names(const std::filesystem::path& folder) = 0;

    virtual long processId() = 0;
    virtual bool isProcessAlive(long processId) = 0;
};

/// The real implementation.
class SystemFileLayer : public FileLayer {
public:
    Result<int> create(const std::filesystem::path& path, unsigned mode) override;
    Result<std::size_t> write(int descriptor, std::string_view bytes) override;
    Result<FileStatus> statusOf(int descriptor) override;
    Result<void> setMode(int descriptor, unsigned mode) override;
    Result<void> setOwner(int descriptor, unsigned owner, unsigned group) override;
    Result<int> openToWrite(const std::filesystem::path& path) override;
    Result<void> truncate(int descriptor, std::size_t length) override;
    Result<void> copyAccess(const std::filesystem::path& from, const std::filesystem::path& to) override;
    Result<void> sync(int descriptor) override;
    Result<void> close(int descriptor) override;
    Result<void> rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    Result<void> remove(const std::filesystem::path& path) override;
    Result<FileStatus> status(const std::filesystem::path& path) override;
    Result<std::filesystem::path> readLink(const std::filesystem::path& path) override;
    Result<void> checkWritable(const std::filesystem::path& path) override;
    Result<void> makeFolder(const std::filesystem::path& path, unsigned mode) override;
    Result<void> syncFolder(const std::filesystem::path& path) override;
    Result<std::vector<std::string>> names(const std::filesystem::path& folder) override;
    long processId() override;
    bool isProcessAlive(long processId) override;
};

} // namespace zb
