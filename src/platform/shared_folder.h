#pragma once

#include <filesystem>

namespace zb {

/// Whether programs on other machines may use the folder, too: it is on a file system of a network, such as
/// NFS, SMB or one in user space. False when that cannot be found out.
bool isSharedFolder(const std::filesystem::path& folder);

} // namespace zb
