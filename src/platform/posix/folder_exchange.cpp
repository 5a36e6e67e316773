#include "platform/folder_exchange.h"

#include "platform/file_layer.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zb {

bool exchangeFolders(const std::filesystem::path& one, const std::filesystem::path& other) {
#ifdef RENAME_EXCHANGE
    return renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
#else
    static_cast<void>(one);
    static_cast<void>(other);
    return false;
#endif
}

void giveFolderRights(const std::filesystem::path& from, const std::filesystem::path& to) {
    constexpr unsigned kOfGroup = 02070;
    constexpr unsigned kOfOwner = 04700;
    struct stat old {};
    struct stat now {};
    if (::lstat(from.c_str(), &old) != 0 || ::lstat(to.c_str(), &now) != 0)
        return;
    unsigned mode = old.st_mode & 07777U;
    if (now.st_uid != old.st_uid || now.st_gid != old.st_gid) {
        const bool isGiven = ::lchown(to.c_str(), old.st_uid, old.st_gid) == 0 ||
                             ::lchown(to.c_str(), now.st_uid, old.st_gid) == 0;
        if (!isGiven)
            mode &= ~kOfGroup;
    }
    // Without its list the mode of the old folder can mean more rights than it gave.
    SystemFileLayer files;
    if (!files.copyAccess(from, to))
        mode &= kOfOwner;
    static_cast<void>(::chmod(to.c_str(), mode));
}

} // namespace zb
