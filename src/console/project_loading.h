#pragma once

#include "console/verb.h"
#include "platform/code_page.h"
#include "project/project_files.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace zb {

/// Reads a project file. Prints on one line why it is no project, and sets the exit status.
std::optional<ProjectFile> loadProject(const std::string& path, ConsoleStreams streams, int& status);

/// Prints on one line that a project was written without its last version being kept.
void reportUnkeptVersion(std::ostream& err, const std::string& project, const FileError& error);

/// The ANSI code page of the user's settings, or else of the locale.
CodePage codePageOfUser();

} // namespace zb
