#pragma once

#include "console/verb.h"
#include "platform/code_page.h"
#include "project/project_files.h"

#include <optional>
#include <string>

namespace zb {

/// Reads a project file. Prints on one line why it is no project, and sets the exit status.
std::optional<ProjectFile> loadProject(const std::string& path, ConsoleStreams streams, int& status);

/// The ANSI code page of the user's settings, else of the locale.
CodePage codePageOfUser();

} // namespace zb
