#pragma once

#include <filesystem>

namespace zb {

/// Gives each of two folders of one file system the name of the other, in one step: others never see one of
/// the names without a folder. False when this cannot be done, for example since the file system does not
/// offer it; nothing is changed then.
bool exchangeFolders(const std::filesystem::path& one, const std::filesystem::path& other);

/// Gives a folder that shall replace another one its mode, group, access control list and user attributes,
/// and its owner where the system allows it. What it cannot have is left out: nobody gets a right that the
/// other folder does not give.
void giveFolderRights(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace zb
