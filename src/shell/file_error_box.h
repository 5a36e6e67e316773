#pragma once

#include "platform/result.h"

#include <string>

namespace zb {

class Desktop;

/// The box that says why a file cannot be written.
void showFileError(Desktop& desktop, const std::string& path, const FileError& error);

} // namespace zb
