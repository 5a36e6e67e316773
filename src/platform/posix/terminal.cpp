#include "platform/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace zb {

bool wantsColours() {
    const char* refusal = std::getenv("NO_COLOR");
    const char* kind = std::getenv("TERM");
    const bool isRefused = refusal != nullptr && *refusal != '\0';
    return !isRefused && kind != nullptr && std::string_view(kind) != "dumb" && ::isatty(STDOUT_FILENO) == 1;
}

} // namespace zb
