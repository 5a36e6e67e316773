#include "platform/scratch_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

namespace zb {

namespace fs = std::filesystem;

namespace {

std::string prefixOf(const fs::path& target, std::string_view kind) {
    // Longer names would make the name longer than a file name may be.
    constexpr std::size_t kMostOfName = 200;
    std::string name = target.filename().string();
    std::size_t end = std::min(name.size(), kMostOfName);
    while (end > 0 && end < name.size() && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U)
        --end;
    return "." + name.substr(0, end) + "." + std::string(kind) + "-";
}

} // namespace

FileError namingFile(const std::string& what, const fs::path& path, const FileError& error) {
    return {error.number, "Cannot " + what + " " + path.string() + ": " + error.description};
}

fs::path scratchPath(FileLayer& layer, const fs::path& target, std::string_view kind) {
    return target.parent_path() / (prefixOf(target, kind) + std::to_string(layer.processId()));
}

std::vector<fs::path> staleScratch(FileLayer& layer, const fs::path& target, std::string_view kind) {
    std::vector<fs::path> stale;
    const Result<std::vector<std::string>> names = layer.names(target.parent_path());
    if (!names)
        return stale;
    const std::string prefix = prefixOf(target, kind);
    for (const std::string& name : *names) {
        if (!name.starts_with(prefix))
            continue;
        long process = 0;
        const char* const end = name.data() + name.size();
        const auto [last, error] = std::from_chars(name.data() + prefix.size(), end, process);
        const bool named = error == std::errc() && last == end && process > 0;
        if (named && (process == layer.processId() || !layer.isProcessAlive(process)))
            stale.push_back(target.parent_path() / name);
    }
    return stale;
}

Result<void> writeAll(FileLayer& layer, int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const Result<std::size_t> count = layer.write(descriptor, bytes);
        if (!count || *count == 0)
            return count ? systemError(ENOSPC) : count.error();
        bytes.remove_prefix(std::min(*count, bytes.size()));
    }
    return {};
}

ScratchFile::~ScratchFile() {
    if (descriptor_)
        static_cast<void>(layer_.close(*descriptor_));
    if (created_)
        static_cast<void>(layer_.remove(path_));
}

Result<void> ScratchFile::create(unsigned mode) {
    const Result<int> descriptor = layer_.create(path_, mode);
    if (!descriptor)
        return namingFile("create", path_, descriptor.error());
    created_ = true;
    descriptor_ = *descriptor;
    return {};
}

Result<void> ScratchFile::write(std::string_view bytes, const Progress& progress) {
    constexpr std::size_t kPiece = std::size_t{8} << 20U;
    for (std::size_t done = 0; done < bytes.size(); done += kPiece) {
        progress.at(done, bytes.size());
        if (const Result<void> written = writeAll(layer_, *descriptor_, bytes.substr(done, kPiece)); !written)
            return namingFile("write", path_, written.error());
    }
    progress.at(1, 1);
    return {};
}

Result<void> ScratchFile::finish() {
    if (const Result<void> synced = layer_.sync(*descriptor_); !synced)
        return namingFile("write", path_, synced.error());
    const Result<void> closed = layer_.close(*descriptor_);
    descriptor_.reset();
    if (!closed)
        return namingFile("write", path_, closed.error());
    return {};
}

Result<void> ScratchFile::rename(const fs::path& target) {
    if (const Result<void> renamed = layer_.rename(path_, target); !renamed)
        return namingFile("replace", target, renamed.error());
    created_ = false;
    return {};
}

} // namespace zb
