#include "platform/file_replacer.h"

#include <cerrno>
#include <optional>
#include <string>

#include "platform/guarded_write.h"
#include "platform/scratch_file.h"

namespace zb {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kKind = "zbtmp";
constexpr unsigned kNewFileMode = 0666; // reduced by the process's mask
constexpr unsigned kPrivateMode = 0600;

// Followed before the temporary is made: it must be in the folder, and so on the disk, of what gets
// replaced.
Result<fs::path> followLinks(FileLayer& layer, fs::path path) {
    constexpr int kMostLinks = 40;
    for (int followed = 0; followed < kMostLinks; ++followed) {
        const Result<FileStatus> status = layer.status(path);
        if (!status || status->kind != FileKind::Link)
            return path;
        const Result<fs::path> target = layer.readLink(path);
        if (!target)
            return namingFile("follow the link", path, target.error());
        path = path.parent_path() / *target;
    }
    return namingFile("follow the link", path, systemError(ELOOP));
}

void removeStaleTemporaries(FileLayer& layer, const fs::path& target) {
    for (const fs::path& stale : staleScratch(layer, target, kKind)) {
        // Best effort: one that cannot be removed does no harm.
        static_cast<void>(layer.remove(stale));
    }
}

// The old file's status; nothing when it does not exist yet.
Result<std::optional<FileStatus>> inspectTarget(FileLayer& layer, const fs::path& target) {
    const Result<FileStatus> status = layer.status(target);
    if (!status) {
        if (status.error().number == ENOENT)
            return std::optional<FileStatus>();
        return namingFile("write", target, status.error());
    }
    if (status->kind == FileKind::Folder)
        return namingFile("write", target, systemError(EISDIR));
    if (status->kind != FileKind::Regular)
        return namingFile("write", target, FileError{EINVAL, "Not a regular file"});
    if (const Result<void> writable = layer.checkWritable(target); !writable)
        return namingFile("write", target, writable.error());
    return std::optional<FileStatus>(*status);
}

// The group gets the rights that the mode gives it, so that it must be the same one. The owner is kept as
// well where the system allows, which it does for administrators only.
Result<bool> takeOwner(FileLayer& layer, const ScratchFile& file, const FileStatus& old) {
    const Result<FileStatus> now = layer.statusOf(file.descriptor());
    if (!now)
        return namingFile("read the mode of", file.path(), now.error());
    if (now->owner == old.owner && now->group == old.group)
        return true;
    return layer.setOwner(file.descriptor(), old.owner, old.group).ok() ||
           layer.setOwner(file.descriptor(), now->owner, old.group).ok();
}

// Bits that make a program run with its owner's rights belong to the old owner.
unsigned modeFor(const FileStatus& now, const FileStatus& old) {
    constexpr unsigned kRunAsOwner = 06000;
    return now.owner == old.owner && now.group == old.group ? old.mode : old.mode & ~kRunAsOwner;
}

// Gives a new file the rights of the old one. False when it cannot have exactly the same.
Result<bool> takeRights(FileLayer& layer, const ScratchFile& file, const fs::path& target,
                        const FileStatus& old) {
    Result<bool> owned = takeOwner(layer, file, old);
    if (!owned || !*owned)
        return owned;
    if (!layer.copyAccess(target, file.path()))
        return false;
    // Only when it differs, since some file systems have no modes and refuse the call. After the owner, since
    // a new owner clears mode bits.
    const Result<FileStatus> now = layer.statusOf(file.descriptor());
    if (!now)
        return namingFile("read the mode of", file.path(), now.error());
    const unsigned mode = modeFor(*now, old);
    if (now->mode == mode)
        return true;
    if (const Result<void> done = layer.setMode(file.descriptor(), mode); !done)
        return namingFile("set the mode of", file.path(), done.error());
    return true;
}

struct NewContent {
    std::string_view bytes;
    unsigned newMode; // of a file that was not there yet
    Progress progress;
};

// False when no file beside the old one can take its place.
Result<bool> writeBeside(FileLayer& layer, const fs::path& target, const std::optional<FileStatus>& old,
                         const NewContent& content) {
    ScratchFile temporary(layer, scratchPath(layer, target, kKind));
    // A file that only some users may read must not be open to others while it is written.
    if (const Result<void> created = temporary.create(old ? kPrivateMode : content.newMode); !created)
        return created.error();
    if (const Result<void> filled = temporary.write(content.bytes, content.progress); !filled)
        return filled.error();
    if (old) {
        if (Result<bool> taken = takeRights(layer, temporary, target, *old); !taken || !*taken)
            return taken;
    }
    Result<void> done = temporary.finish();
    if (done)
        done = temporary.rename(target);
    return done ? Result<bool>(true) : Result<bool>(done.error());
}

Result<void> replace(FileLayer& layer, const fs::path& path, const NewContent& content) {
    const Result<fs::path> target = followLinks(layer, path);
    if (!target)
        return target.error();
    const Result<std::optional<FileStatus>> old = inspectTarget(layer, *target);
    if (!old)
        return old.error();
    removeStaleTemporaries(layer, *target);
    if (*old)
        finishGuardedWrite(layer, *target);
    const bool hasOtherNames = *old && (*old)->names > 1;
    const Result<bool> written =
        hasOtherNames ? Result<bool>(false) : writeBeside(layer, *target, *old, content);
    if (!written)
        return written.error();
    if (!*written)
        return writeGuarded(layer, *target, content.bytes);
    // The new content is there under its name. Should the sync of the name fail and the machine stop at
    // once, the old content comes back whole, which is no reason to call the save a failure.
    static_cast<void>(layer.syncFolder(target->parent_path()));
    return {};
}

} // namespace

Result<void> replaceFile(FileLayer& layer, const fs::path& path, std::string_view bytes,
                         const Progress& progress) {
    return replace(layer, path, {bytes, kNewFileMode, progress});
}

Result<void> replacePrivateFile(FileLayer& layer, const fs::path& path, std::string_view bytes) {
    return replace(layer, path, {bytes, kPrivateMode, {}});
}

Result<void> replaceFile(const fs::path& path, std::string_view bytes) {
    SystemFileLayer layer;
    return replaceFile(layer, path, bytes);
}

} // namespace zb
