#include "console/cli/printable.h"

#include <algorithm>

namespace zb {

std::string printable(std::string_view text) {
    constexpr unsigned char kDelete = 0x7F;
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(),
        [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte < ' ' || byte == kDelete;
        },
        ' ');
    return line;
}

} // namespace zb
