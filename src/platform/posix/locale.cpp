#include "platform/locale.h"

#include <cstdlib>

namespace zb {

std::string localeName() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return {};
}

} // namespace zb
