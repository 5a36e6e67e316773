#pragma once

#include "platform/result.h"

#include <string>

namespace zb {

class FileLayer;
struct ModuleState;

/// Whether a build may write to `path`. An existing file is emptied by the test; where there is none, one is
/// made and removed again. A failure is shown, and answers false.
bool checkFileAccess(ModuleState& state, const std::string& path);

/// The same test without emptying: for files whose content must outlast a save that fails later.
bool checkFileAccessKeeping(ModuleState& state, const std::string& path);

/// Deletes the file when there is one, read-only or not. A link goes itself, what it leads to stays.
Result<void> deleteFileIfExists(FileLayer& files, const std::string& path);

/// The box that tells why a file cannot be written.
void showFileError(ModuleState& state, const std::string& path, const FileError& error);

} // namespace zb
