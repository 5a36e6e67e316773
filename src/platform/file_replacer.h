#pragma once

#include <filesystem>
#include <string_view>

#include "platform/file_layer.h"
#include "platform/result.h"

namespace zb {

/// Replaces a file by the bytes, so that at every moment either the old or the new content is there, whole.
/// Every file of the user that the program writes is written by this function.
///
/// A link is followed first, and what it leads to is replaced. The bytes go to a temporary
/// `.NAME.zbtmp-PROCESS` beside the target, are synced, and take the target's name. An old file's mode,
/// group, access control list and the attributes that users set stay, and its owner where the system allows;
/// nobody gets a right that the old file did not give. A file that has several names, or whose rights no new
/// file can be given, is written in its place under a guard (see guarded_write.h).
///
/// After an error the old file is as it was, and no temporary stays. Temporaries of the same target that a
/// process left behind which no longer runs are removed. The error has the system's number, and a sentence
/// that names the file and what failed. It is an error, too, when the target is no regular file, or one that
/// the user may not write.
Result<void> replaceFile(FileLayer& layer, const std::filesystem::path& path, std::string_view bytes);
/// The same; a file that was not there yet can be read by this user alone.
Result<void> replacePrivateFile(FileLayer& layer, const std::filesystem::path& path, std::string_view bytes);
/// The same as the first, on the real system.
Result<void> replaceFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace zb
