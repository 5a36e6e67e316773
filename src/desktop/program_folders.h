#pragma once

#include "shell/application.h"

namespace zb {

/// The program's own folder where it can be written, else the user's documents folder; and where old versions
/// of projects go.
ApplicationFolders programFolders();

} // namespace zb
