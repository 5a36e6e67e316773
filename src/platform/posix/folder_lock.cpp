#include "platform/folder_lock.h"

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zb {

FolderLock::FolderLock(const std::filesystem::path& folder, std::chrono::milliseconds longestWait)
    : descriptor_(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    // Short, so that one who asks often does not always come before those who wait.
    constexpr std::chrono::milliseconds kTurn{1};
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (descriptor_ >= 0) {
        held_ = ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
        if (held_)
            return;
        if (errno == EINTR)
            continue;
        if (errno != EWOULDBLOCK)
            return;
        if (std::chrono::steady_clock::now() >= end) {
            busy_ = true;
            return;
        }
        std::this_thread::sleep_for(kTurn);
    }
}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

} // namespace zb
