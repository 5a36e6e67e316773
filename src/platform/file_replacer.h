#pragma once

#include <filesystem>
#include <string_view>

#include "platform/file_layer.h"
#include "platform/progress.h"
#include "platform/result.h"

namespace zb {

/// Replaces a file by the bytes, so that at every moment either the old or the new content is there, whole.
/// Every file of the user that the program writes is written by this function.
///
/// A link is followed first, and its target is replaced. The bytes go to a temporary file
/// `.NAME.zbtmp-PROCESS` next to the target, are synced, and take the target's name. An old file's mode,
/// group, access control list and user attributes are kept, and its owner when the system allows it; nobody
/// gets a right that the old file did not give. A file that has several names, or whose rights a new file
/// cannot have, is written in place under a guard (see guarded_write.h).
///
/// After an error the old file is unchanged, and no temporary file remains. Temporary files of the same
/// target from a process that no longer runs are removed. The error has the number of the system, and a
/// sentence that names the file and the failed step. It is also an error when the target is not a regular
/// file, or one that the user may not write.
///
/// Throws Cancelled as long as the old file is there, which then stays.
Result<void> replaceFile(FileLayer& layer, const std::filesystem::path& path, std::string_view bytes,
                         const Progress& progress = {});
/// The same; a file that was not there yet can be read by this user alone.
Result<void> replacePrivateFile(FileLayer& layer, const std::filesystem::path& path, std::string_view bytes);
/// The same as the first, on the real system.
Result<void> replaceFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace zb
