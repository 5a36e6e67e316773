#include "platform/file_layer.h"

#include <cerrno>
#include <csignal>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zb {

namespace {

constexpr unsigned kPermissions = 07777;

Result<void> outcome(int answer) {
    if (answer != 0)
        return systemError(errno);
    return {};
}

FileStatus read(const struct stat& status) {
    FileKind kind = FileKind::Other;
    if (S_ISREG(status.st_mode))
        kind = FileKind::Regular;
    else if (S_ISDIR(status.st_mode))
        kind = FileKind::Folder;
    else if (S_ISLNK(status.st_mode))
        kind = FileKind::Link;
    return {kind, status.st_mode & kPermissions, status.st_uid, status.st_gid,
            static_cast<unsigned long>(status.st_nlink)};
}

template<typename Call>
auto untilNotInterrupted(Call call) {
    auto answer = call();
    while (answer == -1 && errno == EINTR)
        answer = call();
    return answer;
}

} // namespace

Result<int> SystemFileLayer::create(const std::filesystem::path& path, unsigned mode) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    const int descriptor = untilNotInterrupted([&] { return ::open(path.c_str(), kFlags, mode); });
    if (descriptor < 0)
        return systemError(errno);
    return descriptor;
}

Result<int> SystemFileLayer::openToWrite(const std::filesystem::path& path) {
    const int descriptor = untilNotInterrupted([&] { return ::open(path.c_str(), O_WRONLY | O_CLOEXEC); });
    if (descriptor < 0)
        return systemError(errno);
    return descriptor;
}

Result<void> SystemFileLayer::truncate(int descriptor, std::size_t length) {
    return outcome(untilNotInterrupted([&] { return ::ftruncate(descriptor, static_cast<off_t>(length)); }));
}

Result<std::size_t> SystemFileLayer::write(int descriptor, std::string_view bytes) {
    const ssize_t count =
        untilNotInterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (count < 0)
        return systemError(errno);
    return static_cast<std::size_t>(count);
}

Result<FileStatus> SystemFileLayer::statusOf(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        return systemError(errno);
    return read(status);
}

Result<void> SystemFileLayer::setMode(int descriptor, unsigned mode) {
    return outcome(::fchmod(descriptor, mode));
}

Result<void> SystemFileLayer::setOwner(int descriptor, unsigned owner, unsigned group) {
    return outcome(::fchown(descriptor, owner, group));
}

Result<void> SystemFileLayer::sync(int descriptor) {
    return outcome(untilNotInterrupted([&] { return ::fsync(descriptor); }));
}

Result<void> SystemFileLayer::close(int descriptor) {
    // An interrupted close has closed: a second one could close a descriptor that another thread just got.
    return ::close(descriptor) == 0 || errno == EINTR ? Result<void>() : Result<void>(systemError(errno));
}

Result<void> SystemFileLayer::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    return outcome(::rename(from.c_str(), to.c_str()));
}

Result<void> SystemFileLayer::remove(const std::filesystem::path& path) {
    return outcome(::unlink(path.c_str()));
}

Result<FileStatus> SystemFileLayer::status(const std::filesystem::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        return systemError(errno);
    return read(status);
}

Result<std::filesystem::path> SystemFileLayer::readLink(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::path target = std::filesystem::read_symlink(path, error);
    if (error)
        return systemError(error.value());
    return target;
}

Result<void> SystemFileLayer::checkWritable(const std::filesystem::path& path) {
    return outcome(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

Result<void> SystemFileLayer::makeFolder(const std::filesystem::path& path, unsigned mode) {
    return outcome(::mkdir(path.c_str(), mode));
}

Result<void> SystemFileLayer::syncFolder(const std::filesystem::path& path) {
    const std::filesystem::path folder = path.empty() ? std::filesystem::path(".") : path;
    const int descriptor =
        untilNotInterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (descriptor < 0)
        return systemError(errno);
    Result<void> synced = sync(descriptor);
    ::close(descriptor);
    return synced;
}

Result<std::vector<std::string>> SystemFileLayer::names(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? std::filesystem::path(".") : folder, error);
    while (!error && entry != std::filesystem::directory_iterator()) {
        names.push_back(entry->path().filename().string());
        entry.increment(error);
    }
    if (error)
        return systemError(error.value());
    return names;
}

long SystemFileLayer::processId() {
    return ::getpid();
}

bool SystemFileLayer::isProcessAlive(long processId) {
    if (processId <= 0 || processId > std::numeric_limits<pid_t>::max())
        return false;
    return ::kill(static_cast<pid_t>(processId), 0) == 0 || errno != ESRCH;
}

} // namespace zb
