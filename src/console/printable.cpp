#include "console/printable.h"

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

std::string counted(std::size_t number, std::string_view what) {
    return std::to_string(number) + " " + std::string(what) + (number == 1 ? "" : "s");
}

} // namespace zb
