// Preloaded into zbc: makes one call of the C library fail, or ends the process there, so that a test can put
// a fault at each call in turn. Only calls on files below ATTACK_ROOT count.
//
// ATTACK_AT      the number of the call that is hit, from 1; 0 hits none
// ATTACK_FAULT   an errno name, "SHORT" (writes half), "FULL" (writes half, then the disk is full), "KILL",
//                or "STOP" (waits to be continued)
// ATTACK_COUNT   a file that gets one line a call: what a run without a fault prints numbers the calls

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

std::string_view setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

int numberOf(std::string_view fault) {
    if (fault == "ENOSPC")
        return ENOSPC;
    if (fault == "EDQUOT")
        return EDQUOT;
    return fault == "EINTR" ? EINTR : EIO;
}

template<typename Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

ssize_t realWrite(int descriptor, const void* bytes, size_t count) {
    static const auto kCall = real<ssize_t (*)(int, const void*, size_t)>("write");
    return kCall(descriptor, bytes, count);
}

void note(const char* call, const char* path) {
    const std::string_view file = setting("ATTACK_COUNT");
    if (file.empty())
        return;
    static const auto kOpen = real<int (*)(const char*, int, ...)>("open");
    static const auto kClose = real<int (*)(int)>("close");
    const int descriptor = kOpen(std::string(file).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const std::string line = std::string(call) + " " + path + "\n";
    if (descriptor >= 0) {
        if (realWrite(descriptor, line.data(), line.size()) < 0)
            std::abort();
        kClose(descriptor);
    }
}

bool isBelowRoot(std::string_view path) {
    const std::string_view root = setting("ATTACK_ROOT");
    return !root.empty() && path.substr(0, root.size()) == root;
}

std::string pathOf(int descriptor) {
    char path[PATH_MAX] = {};
    const ssize_t length =
        ::readlink(("/proc/self/fd/" + std::to_string(descriptor)).c_str(), path, sizeof path - 1);
    return length < 0 ? std::string() : std::string(path, static_cast<size_t>(length));
}

long calls = 0;
bool diskIsFull = false;

enum class Hit { No, Fails, Short };

std::string absolute(std::string_view path) {
    char here[PATH_MAX] = {};
    if (path.substr(0, 1) == "/" || ::getcwd(here, sizeof here) == nullptr)
        return std::string(path);
    return std::string(here) + "/" + std::string(path);
}

// Counts a call; sets errno when it is the one that fails.
Hit hit(const char* call, std::string_view name) {
    const std::string path = absolute(name);
    if (!isBelowRoot(path))
        return Hit::No;
    const std::string_view fault = setting("ATTACK_FAULT");
    if (diskIsFull && std::strcmp(call, "write") == 0) {
        errno = ENOSPC;
        return Hit::Fails;
    }
    note(call, path.c_str());
    if (++calls != std::atol(std::string(setting("ATTACK_AT")).c_str()))
        return Hit::No;
    if (fault == "KILL")
        ::raise(SIGKILL);
    if (fault == "STOP") {
        ::raise(SIGSTOP);
        return Hit::No;
    }
    if (fault == "SHORT" || fault == "FULL") {
        diskIsFull = fault == "FULL";
        return std::strcmp(call, "write") == 0 ? Hit::Short : Hit::No;
    }
    errno = numberOf(fault);
    return Hit::Fails;
}

mode_t modeOf(int flags, va_list arguments) {
    return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    static const auto kCall = real<int (*)(const char*, int, ...)>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return hit("open", path) == Hit::Fails ? -1 : kCall(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    static const auto kCall = real<int (*)(const char*, int, ...)>("open64");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return hit("open", path) == Hit::Fails ? -1 : kCall(path, flags, mode);
}

ssize_t read(int descriptor, void* bytes, size_t count) {
    static const auto kCall = real<ssize_t (*)(int, void*, size_t)>("read");
    return hit("read", pathOf(descriptor)) == Hit::Fails ? -1 : kCall(descriptor, bytes, count);
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
    const Hit result = hit("write", pathOf(descriptor));
    if (result == Hit::Fails)
        return -1;
    return realWrite(descriptor, bytes, result == Hit::Short && count > 1 ? count / 2 : count);
}

int close(int descriptor) {
    static const auto kCall = real<int (*)(int)>("close");
    const Hit result = hit("close", pathOf(descriptor));
    const int number = errno;
    const int answer = kCall(descriptor); // it closes all the same
    if (result != Hit::Fails)
        return answer;
    errno = number;
    return -1;
}

int fsync(int descriptor) {
    static const auto kCall = real<int (*)(int)>("fsync");
    return hit("fsync", pathOf(descriptor)) == Hit::Fails ? -1 : kCall(descriptor);
}

int ftruncate(int descriptor, off_t length) noexcept {
    static const auto kCall = real<int (*)(int, off_t)>("ftruncate");
    return hit("ftruncate", pathOf(descriptor)) == Hit::Fails ? -1 : kCall(descriptor, length);
}

int fchmod(int descriptor, mode_t mode) noexcept {
    static const auto kCall = real<int (*)(int, mode_t)>("fchmod");
    return hit("fchmod", pathOf(descriptor)) == Hit::Fails ? -1 : kCall(descriptor, mode);
}

int rename(const char* from, const char* to) noexcept {
    static const auto kCall = real<int (*)(const char*, const char*)>("rename");
    return hit("rename", from) == Hit::Fails ? -1 : kCall(from, to);
}

int unlink(const char* path) noexcept {
    static const auto kCall = real<int (*)(const char*)>("unlink");
    return hit("unlink", path) == Hit::Fails ? -1 : kCall(path);
}

int mkdir(const char* path, mode_t mode) noexcept {
    static const auto kCall = real<int (*)(const char*, mode_t)>("mkdir");
    return hit("mkdir", path) == Hit::Fails ? -1 : kCall(path, mode);
}

} // extern "C"
