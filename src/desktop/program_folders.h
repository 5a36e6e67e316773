#pragma once

#include "shell/application.h"

namespace zb {

/// The program's folder if it is writable, otherwise the user's documents folder; and the folder of earlier
/// versions of projects.
ApplicationFolders programFolders();

} // namespace zb
