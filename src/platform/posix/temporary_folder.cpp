#include "platform/temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPattern = "XXXXXX";

bool isOwnFolder(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

bool hasNameOf(const fs::path& path, const std::string& prefix) {
    const std::string name = path.filename().string();
    return name.starts_with(prefix) && name.size() == prefix.size() + kPattern.size();
}

fs::path systemFolder() {
    std::error_code error;
    fs::path folder = fs::temp_directory_path(error);
    if (!error)
        folder = fs::canonical(folder, error);
    const char* chosen = std::getenv("TMPDIR");
    if (error)
        throw fs::filesystem_error("no folder for temporary files", chosen == nullptr ? "/tmp" : chosen,
                                   error);
    return folder;
}

void removeUnused(const fs::path& among, const std::string& prefix) {
    std::error_code error;
    for (fs::directory_iterator entry(among, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (!hasNameOf(entry->path(), prefix) || !isOwnFolder(entry->path()))
            continue;
        // Held until the folder is removed: a process that has just created it and not locked it yet notices
        // that it was removed.
        const FolderLock lock(entry->path(), std::chrono::milliseconds(0));
        if (!lock.isBusy())
            removeFolder(entry->path());
    }
}

} // namespace

TemporaryFolder::TemporaryFolder(const std::string& prefix) {
    const fs::path among = systemFolder();
    removeUnused(among, prefix);
    do {
        std::string pattern = (among / (prefix + std::string(kPattern))).string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw fs::filesystem_error("no folder to work in", pattern,
                                       std::error_code(errno, std::generic_category()));
        path_ = pattern;
        lock_ = std::make_unique<FolderLock>(path_, std::chrono::milliseconds(0));
    } while (lock_->isBusy() || !isOwnFolder(path_));
}

void removeFolder(const fs::path& folder) {
    std::error_code ignored;
    // What is in a folder that cannot be read could not be removed.
    for (auto entry =
             fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied, ignored);
         !ignored && entry != fs::end(entry); entry.increment(ignored)) {
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(folder, ignored);
}

} // namespace zb
