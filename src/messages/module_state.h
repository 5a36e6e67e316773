#pragma once

#include "messages/message_store.h"
#include "platform/code_page.h"

#include <memory>
#include <string>

namespace zb {

class Desktop;
class FileLayer;
class SettingsStore;

/// The slots and services of one running program that all its rooms share. The application owns them; tests
/// make as many as they like, side by side.
struct ModuleState {
    ModuleState(Desktop& desktopOfProgram, SettingsStore& settingsOfProgram, FileLayer& filesOfProgram)
        : desktop(desktopOfProgram), settings(settingsOfProgram), files(filesOfProgram) {}

    Desktop& desktop;
    SettingsStore& settings;
    FileLayer& files;
    CodePage codePage{1252};

    /// The open project's base name; blank when no project is open.
    std::string ProjectName;
    /// The project's folder, without a separator at its end.
    std::string ProjectPath;
    /// 1 is a host project, 2 an equipment project.
    int ProjectType = 1;

    /// The messages of the last walk over the tree. Never null.
    std::unique_ptr<zb::SECSMessageStore> SECSMessageStore = std::make_unique<zb::SECSMessageStore>();

    /// While a project is saved: where its sections gather before the file is replaced in one step; else
    /// null.
    std::string* projectSections = nullptr;

    /// The files that a project owns. `projectFilePath` is empty when `ProjectPath` is; the others test
    /// nothing.
    std::string projectFilePath() const;
    std::string smdFilePath() const;
    std::string mdfFilePath() const;
    std::string tmdFilePath() const;
};

/// The file system's separator, with which project paths are built and split.
char pathSeparator();
/// `folder` + separator + `name`; behind the root, which is a separator already, `name` alone.
std::string joinPath(const std::string& folder, const std::string& name);

} // namespace zb
