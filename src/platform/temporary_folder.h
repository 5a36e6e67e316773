#pragma once

#include <filesystem>
#include <string>

namespace zb {

/// Makes a new empty folder among the system's temporary files, which only this user can enter. Its name
/// begins with the prefix. The path has no links in it. Throws std::filesystem::filesystem_error when none
/// can be made.
std::filesystem::path makeTemporaryFolder(const std::string& prefix);

} // namespace zb
