#include "console/printable.h"

namespace zb {

std::string counted(std::size_t number, std::string_view what) {
    return std::to_string(number) + " " + std::string(what) + (number == 1 ? "" : "s");
}

} // namespace zb
