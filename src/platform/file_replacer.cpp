#include "platform/file_replacer.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

namespace zb {

namespace {

namespace fs = std::filesystem;

constexpr unsigned kNewFileMode = 0666; // less the process's mask
constexpr unsigned kPrivateMode = 0600;

FileError naming(const std::string& what, const fs::path& path, const FileError& error) {
    return {error.number, "Cannot " + what + " " + path.string() + ": " + error.description};
}

// Followed before the temporary is made: it must lie in the folder, and so on the disk, of what gets
// replaced.
Result<fs::path> followLinks(FileLayer& layer, fs::path path) {
    constexpr int kMostLinks = 40;
    for (int followed = 0; followed < kMostLinks; ++followed) {
        const Result<FileStatus> status = layer.status(path);
        if (!status || status->kind != FileKind::link) {
            return path;
        }
        const Result<fs::path> target = layer.readLink(path);
        if (!target) {
            return naming("follow the link", path, target.error());
        }
        path = path.parent_path() / *target;
    }
    return naming("follow the link", path, systemError(ELOOP));
}

std::string temporaryPrefix(const fs::path& target) {
    // Longer names would make the temporary's name longer than a file name may be.
    constexpr std::size_t kMostOfName = 200;
    std::string name = target.filename().string();
    std::size_t end = std::min(name.size(), kMostOfName);
    while (end > 0 && end < name.size() && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return "." + name.substr(0, end) + ".zbtmp-";
}

void removeStaleTemporaries(FileLayer& layer, const fs::path& target) {
    const Result<std::vector<std::string>> names = layer.names(target.parent_path());
    if (!names) {
        return;
    }
    const std::string prefix = temporaryPrefix(target);
    for (const std::string& name : *names) {
        if (!name.starts_with(prefix)) {
            continue;
        }
        long process = 0;
        const char* const end = name.data() + name.size();
        const auto [last, error] = std::from_chars(name.data() + prefix.size(), end, process);
        const bool ours = error == std::errc() && last == end && process > 0;
        if (ours && (process == layer.processId() || !layer.isProcessAlive(process))) {
            // Best effort: what cannot be removed does no harm but to the eye.
            static_cast<void>(layer.remove(target.parent_path() / name));
        }
    }
}

// The old file's status; nothing when there is none yet.
Result<std::optional<FileStatus>> inspectTarget(FileLayer& layer, const fs::path& target) {
    const Result<FileStatus> status = layer.status(target);
    if (!status) {
        if (status.error().number == ENOENT) {
            return std::optional<FileStatus>();
        }
        return naming("write", target, status.error());
    }
    if (status->kind == FileKind::folder) {
        return naming("write", target, systemError(EISDIR));
    }
    if (status->kind != FileKind::regular) {
        return naming("write", target, FileError{EINVAL, "Not a regular file"});
    }
    if (const Result<void> writable = layer.checkWritable(target); !writable) {
        return naming("write", target, writable.error());
    }
    return std::optional<FileStatus>(*status);
}

// The temporary beside the target. Unless it took the target's name, it is closed and removed in the end.
class Temporary {
public:
    Temporary(FileLayer& layer, fs::path target)
        : layer_(layer), target_(std::move(target)),
          path_(target_.parent_path() / (temporaryPrefix(target_) + std::to_string(layer.processId()))) {}
    ~Temporary() {
        if (descriptor_) {
            static_cast<void>(layer_.close(*descriptor_));
        }
        if (created_) {
            static_cast<void>(layer_.remove(path_));
        }
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    Result<void> create(unsigned mode) {
        const Result<int> descriptor = layer_.create(path_, mode);
        if (!descriptor) {
            return naming("create", path_, descriptor.error());
        }
        created_ = true;
        descriptor_ = *descriptor;
        return {};
    }

    Result<void> write(std::string_view bytes) {
        while (!bytes.empty()) {
            const Result<std::size_t> count = layer_.write(*descriptor_, bytes);
            if (!count || *count == 0) {
                return naming("write", path_, count ? systemError(ENOSPC) : count.error());
            }
            bytes.remove_prefix(std::min(*count, bytes.size()));
        }
        return {};
    }

    Result<void> takeAfter(const FileStatus& old) {
        const Result<FileStatus> status = layer_.statusOf(*descriptor_);
        if (!status) {
            return naming("read the mode of", path_, status.error());
        }
        if (status->owner != old.owner || status->group != old.group) {
            keepOwner(*status, old);
        }
        // Only where it differs, since some file systems know no modes and refuse the call. After the owner,
        // since a new owner takes mode bits away.
        const Result<FileStatus> owned = layer_.statusOf(*descriptor_);
        if (owned && owned->mode == old.mode) {
            return {};
        }
        if (const Result<void> done = layer_.setMode(*descriptor_, old.mode); !done) {
            return naming("set the mode of", path_, done.error());
        }
        return {};
    }

    Result<void> finish() {
        if (const Result<void> synced = layer_.sync(*descriptor_); !synced) {
            return naming("write", path_, synced.error());
        }
        const Result<void> closed = layer_.close(*descriptor_);
        descriptor_.reset();
        if (!closed) {
            return naming("write", path_, closed.error());
        }
        if (const Result<void> renamed = layer_.rename(path_, target_); !renamed) {
            return naming("replace", target_, renamed.error());
        }
        created_ = false;
        return {};
    }

private:
    // Best effort: only an administrator may give a file away. The group alone often works.
    void keepOwner(const FileStatus& now, const FileStatus& old) {
        if (!layer_.setOwner(*descriptor_, old.owner, old.group)) {
            static_cast<void>(layer_.setOwner(*descriptor_, now.owner, old.group));
        }
    }

    FileLayer& layer_;
    fs::path target_;
    fs::path path_;
    std::optional<int> descriptor_;
    bool created_ = false;
};

Result<void> writeBeside(FileLayer& layer, const fs::path& target, const std::optional<FileStatus>& old,
                         std::string_view bytes) {
    Temporary temporary(layer, target);
    // A file that only some may read must not be open to others while it is written.
    Result<void> done = temporary.create(old ? kPrivateMode : kNewFileMode);
    if (done) {
        done = temporary.write(bytes);
    }
    if (done && old) {
        done = temporary.takeAfter(*old);
    }
    if (done) {
        done = temporary.finish();
    }
    return done;
}

} // namespace

Result<void> replaceFile(FileLayer& layer, const fs::path& path, std::string_view bytes) {
    const Result<fs::path> target = followLinks(layer, path);
    if (!target) {
        return target.error();
    }
    const Result<std::optional<FileStatus>> old = inspectTarget(layer, *target);
    if (!old) {
        return old.error();
    }
    removeStaleTemporaries(layer, *target);
    if (const Result<void> written = writeBeside(layer, *target, *old, bytes); !written) {
        return written.error();
    }
    // The new content stands under its name. Should the sync of the name fail and the machine stop at once,
    // the old content comes back whole, which is no reason to call the save a failure.
    static_cast<void>(layer.syncFolder(target->parent_path()));
    return {};
}

Result<void> replaceFile(const fs::path& path, std::string_view bytes) {
    SystemFileLayer layer;
    return replaceFile(layer, path, bytes);
}

} // namespace zb
