#pragma once

#include "messages/message_store.h"
#include "platform/code_page.h"
#include "project/project_view.h"

#include <memory>
#include <string>

namespace zb {

class FileLayer;
class SettingsStore;

/// The slots and services of one running program that all its windows share. The application owns them; tests
/// make as many as they like, side by side.
struct ModuleState {
    ModuleState(SettingsStore& settingsOfProgram, FileLayer& filesOfProgram)
        : settings(settingsOfProgram), files(filesOfProgram) {}

    SettingsStore& settings;
    FileLayer& files;
    CodePage codePage{1252};

    /// The base name of the open project; blank when no project is open.
    std::string ProjectName;
    /// The folder of the project, without a separator at its end.
    std::string ProjectPath;
    /// 1 is a host project, 2 an equipment project.
    int ProjectType = 1;
    /// Changes the type of the open project, and of its model.
    void takeProjectType(int type);

    /// The messages of the last walk over the tree. Never null.
    std::unique_ptr<zb::SECSMessageStore> SECSMessageStore = std::make_unique<zb::SECSMessageStore>();
    /// Null until a project has been created or opened; replaced by the next one.
    std::unique_ptr<zb::TRModelStore> TRModelStore;
    /// The sequences of the open project; the modeler window shows and changes them.
    Sequences sequences;
    /// What the file of the open project holds of sections that this program does not know.
    ForeignSections foreign;

    /// What the checks and documents of the transaction model look at.
    ProjectView view() const;

    /// The files of a project. `projectFilePath` is empty when `ProjectPath` is; the others check nothing.
    /// @{
    std::string projectFilePath() const;
    std::string smdFilePath() const;
    std::string mdfFilePath() const;
    std::string tmdFilePath() const;
    /// @}
};

} // namespace zb
