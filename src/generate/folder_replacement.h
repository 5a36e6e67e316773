#pragma once

#include "generate/generation.h"
#include "platform/result.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace zb::generate {

/// Whether a file belongs to the user: "Handlers.user.h".
bool isUserFile(std::string_view name);

/// Replaces a folder by these files, or leaves it as it was. Files of the user that were in it are in the new
/// one at the same place, and the folder has the rights that it had. A folder that holds anything but a
/// plug-in and files of the user is refused. Waits so long for another program that writes into the folder
/// around it.
Result<void> replaceFolder(const std::string& folder, const std::vector<GeneratedFile>& files,
                           std::chrono::milliseconds patience = std::chrono::seconds(10));

} // namespace zb::generate
