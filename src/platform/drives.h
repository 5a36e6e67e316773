#pragma once

#include <string>
#include <vector>

namespace zb {

/// The machine's drives as a list shows them: a fixed one as its path + " [" + volume name + "]", a removable
/// one as its path alone. The root comes first.
std::vector<std::string> listDrives();

/// The entry of a drive list that a folder lies on; empty when it lies on none.
std::string driveOf(const std::vector<std::string>& drives, const std::string& folder);

} // namespace zb
