#pragma once

#include <filesystem>

namespace zb {

/// Gives each of two folders of one file system the name of the other, in one step: others never see one of
/// the names without a folder. False when this cannot be done, for example since the file system does not
/// offer it; nothing is changed then.
bool exchangeFolders(const std::filesystem::path& one, const std::filesystem::path& other);

} // namespace zb
