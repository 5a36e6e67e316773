#pragma once

#include "platform/progress.h"
#include "platform/result.h"
#include "project/project.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace zb {

class FileLayer;

/// A project file, read and decoded once.
struct ProjectFile {
    Project project;
    std::string text;  ///< of the whole file
    std::string fault; ///< why the file is no project; empty when it is one
};

/// Reads a project file. The error is the system's when the file cannot be read.
Result<ProjectFile> readProjectFile(const std::string& path, const Progress& progress = {});

/// All of a project that windows show, made without them.
struct LoadedProject {
    Project project;
    MessageTree tree;
};
/// Reads a project file as far as that can be done on any thread.
Result<LoadedProject> loadProjectFile(const std::string& path, const Progress& progress);

/// Whether a project file can be replaced, or why not. What cannot be read opened as an empty project, and
/// could not be kept as a version either.
Result<void> checkProjectFile(FileLayer& files, const std::string& path);
/// What came of a save. The file may have been written although its last version could not be kept.
struct ProjectSave {
    Result<void> written;
    Result<void> kept;
};

/// Replaces a project file by this text in one step, after its last version has been kept below the state
/// folder. Another program that writes a project of the same folder is waited for, though a stopped one does
/// not stop the save.
ProjectSave replaceProjectFile(FileLayer& files, const std::filesystem::path& stateFolder,
                               const std::string& path, std::string_view text);

/// Makes the project's folder and its sub folders "ZeltoPlugIn" and "ZeltoInfo" where they are missing, one
/// level each. Folders that were made before a failure stay.
Result<void> makeProjectFolders(const std::string& projectFolder);
/// What is said of a folder that cannot be made; it has more than one line.
std::string describeFolderFault(const FileError& error);

/// Whether there is a file; a folder is none.
bool isFile(const std::string& path);

/// A project path taken apart at its last separator: the folder before it, and after it the name less its
/// last four characters. A relative path is made absolute first. A file in the root has the root as folder.
struct ProjectPlace {
    std::string folder;
    std::string name;

    std::string projectFile() const;
    /// The file that a build makes; `ending` begins with a point.
    std::string builtFile(std::string_view ending) const;
};
ProjectPlace splitProjectPath(const std::string& path);

/// The separator of the file system, with which project paths are built and split.
char pathSeparator();
/// `folder` + separator + `name`; after the root, which is a separator already, `name` alone.
std::string joinPath(const std::string& folder, const std::string& name);

} // namespace zb
