#include "platform/this_host.h"

#include <array>

#include <unistd.h>

namespace zb {

std::string hostName() {
    std::array<char, 256> name{};
    // A name that is cut off has no zero at its end.
    if (::gethostname(name.data(), name.size() - 1) != 0)
        return {};
    return name.data();
}

} // namespace zb
