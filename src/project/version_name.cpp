#include "project/version_name.h"

#include <charconv>

namespace zb {

std::optional<VersionName> versionName(const std::string& text) {
    const std::size_t at = text.rfind('@');
    if (at == std::string::npos || at == 0)
        return std::nullopt;
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + at + 1, end, number);
    if (error != std::errc() || stop != end || number <= 0)
        return std::nullopt;
    return VersionName{text.substr(0, at), number};
}

} // namespace zb
