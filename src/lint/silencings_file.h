#pragma once

#include "lint/silencings.h"
#include "platform/result.h"

#include <functional>
#include <string>

namespace zb {

class FileLayer;

/// The silencings beside a project; none when there is no such file. An error is that of the system.
Result<Silencings> readSilencings(const std::string& projectPath);

/// Reads the file beside the project, changes what it holds, and replaces it. A file without a line is not
/// created. The error is that of the system; the file is unchanged then.
Result<Silencings> changeSilencings(FileLayer& files, const std::string& projectPath,
                                    const std::function<void(Silencings&)>& change);

} // namespace zb
