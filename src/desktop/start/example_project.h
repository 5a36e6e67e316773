#pragma once

#include "platform/result.h"

#include <filesystem>

namespace zb {

/// Copies the sample project, which is a resource of the program, into a new folder "Etcher" below the given
/// one, or "Etcher-2" and so on when that exists. Returns the project file. After an error nothing of the
/// copy remains.
Result<std::filesystem::path> copyExample(const std::filesystem::path& folder);

} // namespace zb
