#include "platform/folder_exchange.h"

#include <cstdio>
#include <fcntl.h>

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

} // namespace zb
