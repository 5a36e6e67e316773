#pragma once

#include "platform/file_layer.h"
#include "platform/result.h"

#include <filesystem>
#include <string_view>

namespace zb {

/// Writes a file in its place, for a file that must stay the same one: it has several names, or rights that
/// no new file could be given.
///
/// Before the first byte is written, a guard beside the file, `.NAME.zbguard-PROCESS`, holds the old and the
/// new content on the disk. If writing fails, the old content is put back; where even that fails, the guard
/// stays and the error names it. If the process is stopped, `finishGuardedWrite` completes its work.
Result<void> writeGuarded(FileLayer& layer, const std::filesystem::path& target, std::string_view bytes);

/// Completes what a stopped process began: a file of which a part is new becomes new as a whole. A file that
/// another program has changed since is left alone. To be called before the file is read. What cannot be
/// done now is left for the next time. A link is not followed: the guard of a file is beside the file itself.
void finishGuardedWrite(FileLayer& layer, const std::filesystem::path& target);

} // namespace zb
