#pragma once

#include "platform/file_layer.h"
#include "platform/progress.h"
#include "platform/result.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// The error with what was being done to which file before the system's words.
FileError namingFile(const std::string& what, const std::filesystem::path& path, const FileError& error);

/// `.NAME.KIND-PROCESS` beside a file: the name of something that this process needs while it writes the
/// file. A very long name is cut.
std::filesystem::path scratchPath(FileLayer& layer, const std::filesystem::path& target,
                                  std::string_view kind);
/// Those of a file that were left by processes which no longer run, or by this one.
std::vector<std::filesystem::path> staleScratch(FileLayer& layer, const std::filesystem::path& target,
                                                std::string_view kind);

/// Writes all bytes to an open file.
Result<void> writeAll(FileLayer& layer, int descriptor, std::string_view bytes);

/// A file made for a short time. It is closed, and removed unless it was kept or took another name.
class ScratchFile {
public:
    ScratchFile(FileLayer& layer, std::filesystem::path path) : layer_(layer), path_(std::move(path)) {}
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::filesystem::path& path() const { return path_; }
    int descriptor() const { return descriptor_.value(); }

    /// Nothing may have this name yet.
    Result<void> create(unsigned mode);
    Result<void> write(std::string_view bytes, const Progress& progress = {});
    /// What was written outlasts a hard stop of the machine.
    Result<void> finish();
    /// Gives it the name of another file, which it replaces.
    Result<void> rename(const std::filesystem::path& target);
    /// It stays when this object goes.
    void keep() { created_ = false; }

private:
    FileLayer& layer_;
    std::filesystem::path path_;
    std::optional<int> descriptor_;
    bool created_ = false;
};

} // namespace zb
