#pragma once

#include "platform/result.h"

#include <filesystem>

namespace zb {

/// Puts a copy of the sample project, which lies within the program, into a new folder "Etcher" below the
/// given one, or "Etcher-2" and so on where that stands already. Gives the project file. After an error
/// nothing of the copy stays.
Result<std::filesystem::path> copyExample(const std::filesystem::path& folder);

} // namespace zb
