#pragma once

#include <string>
#include <vector>

namespace zb {

/// The machine's drives as shown in a list: a fixed one as its path + " [" + volume name + "]", a removable
/// one as its path alone. The root is first.
std::vector<std::string> listDrives();

/// The entry of a drive list that contains a folder; empty when there is none.
std::string driveOf(const std::vector<std::string>& drives, const std::string& folder);

} // namespace zb
