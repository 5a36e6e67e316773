#include "shell/disk_watch.h"

#include "platform/text_file.h"

#include <functional>

namespace zb {

namespace fs = std::filesystem;

namespace {

std::size_t hashOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

} // namespace

DiskWatch::Stamp DiskWatch::statusOf(const std::string& path) {
    Stamp stamp;
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return stamp;
    stamp.size = fs::file_size(path, error);
    stamp.time = fs::last_write_time(path, error);
    stamp.exists = !error;
    return stamp;
}

void DiskWatch::take(const std::string& path) {
    const auto bytes = readBytes(path);
    takeWritten(path, bytes ? std::string_view(*bytes) : std::string_view());
}

void DiskWatch::takeWritten(const std::string& path, std::string_view bytes) {
    path_ = path;
    stamp_ = statusOf(path);
    stamp_.size = bytes.size();
    stamp_.hash = hashOf(bytes);
}

DiskWatch::State DiskWatch::look(Thoroughly thoroughly) const {
    const Stamp now = statusOf(path_);
    if (!now.exists)
        return stamp_.exists ? State::Gone : State::Same;
    if (!stamp_.exists)
        return State::Changed;
    if (now.size != stamp_.size)
        return State::Changed;
    if (now.time == stamp_.time && thoroughly == Thoroughly::No)
        return State::Same;
    const auto bytes = readBytes(path_);
    // What cannot be read now is reported by the save that needs it.
    return !bytes || hashOf(*bytes) == stamp_.hash ? State::Same : State::Changed;
}

} // namespace zb
