#pragma once

#include <optional>
#include <string>

namespace zb {

/// A kept version of a project file, written as "Etcher.zbp@3".
struct VersionName {
    std::string path;
    int number = 0; ///< from 1
};

/// Nothing for any other text.
std::optional<VersionName> versionName(const std::string& text);

} // namespace zb
