#include "platform/standard_descriptors.h"

#include <cerrno>
#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace zb {

void fillStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF)
            continue;
        // The lowest that is free is the one wanted. For reading only, so that writing reports its failure.
        if (::open("/dev/null", O_RDONLY) < 0)
            return;
    }
}

} // namespace zb
