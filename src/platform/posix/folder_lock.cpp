#include "platform/folder_lock.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zb {

FolderLock::FolderLock(const std::filesystem::path& folder)
    : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    constexpr int kTries = 100;
    for (int i = 0; descriptor_ >= 0 && i < kTries; ++i) {
        if (::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

} // namespace zb
