#include "platform/process_start.h"

#include "platform/text_file.h"

#include <charconv>
#include <string>

namespace zb {

std::optional<std::uint64_t> processStart(long process) {
    const auto status = readBytes("/proc/" + std::to_string(process) + "/stat");
    if (!status)
        return std::nullopt;
    // The second field is the program's name in parentheses, with anything in it; the start is field 22.
    constexpr int kFieldsAfterTheName = 20;
    std::size_t at = status->rfind(')');
    for (int field = 0; field < kFieldsAfterTheName && at != std::string::npos; ++field)
        at = status->find(' ', at + 1);
    if (at == std::string::npos)
        return std::nullopt;
    std::uint64_t start = 0;
    const auto read = std::from_chars(status->data() + at + 1, status->data() + status->size(), start);
    return read.ec == std::errc() ? std::optional(start) : std::nullopt;
}

} // namespace zb
