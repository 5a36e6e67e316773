#pragma once

#include "platform/result.h"

#include <string>

namespace zb {

class FileLayer;

/// Whether a build may write to `path`, or why not. An existing file is emptied by the test; where there is
/// none, one is made and removed again.
Result<void> checkFileAccess(FileLayer& files, const std::string& path);

/// The same test without emptying, for files whose content must survive a later failure of the save.
Result<void> checkFileAccessKeeping(FileLayer& files, const std::string& path);

/// What is said of a file that cannot be written, on one line.
std::string describeFileFault(const FileError& error);

/// Deletes the file when there is one, read-only or not. A link is deleted itself, its target stays.
Result<void> deleteFileIfExists(FileLayer& files, const std::string& path);

} // namespace zb
