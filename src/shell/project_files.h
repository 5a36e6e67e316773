#pragma once

#include <string>
#include <string_view>

namespace zb {

struct ModuleState;

/// Makes the project's folder and its sub folders "ZeltoPlugIn" and "ZeltoInfo" where they are missing, one
/// level each. On a failure it shows why and answers false; folders made before stay.
bool makeProjectFolders(ModuleState& state);

/// The type that the header of a project file's text tells: 1, or 2 when it says so and does not end there.
int projectTypeOf(std::string_view projectText);

/// Sets `ProjectType` from a project file; a file that cannot be read gives 1. Answers whether it could be
/// read.
bool readProjectType(ModuleState& state, const std::string& path);

/// Whether a file stands there; a folder is none.
bool isFile(const std::string& path);

/// A project path taken apart at its last separator: the folder before it, and behind it the name less its
/// last four characters. A relative path is made absolute first. A file in the root has the root as folder.
struct ProjectPlace {
    std::string folder;
    std::string name;
};
ProjectPlace splitProjectPath(const std::string& path);

} // namespace zb
