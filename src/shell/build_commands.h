#pragma once

#include "outputs/definition_document.h"

#include <functional>
#include <string>

namespace zb {

class Desktop;
class ModelerControls;
class Progress;
class frmSECSEditor;
struct ModuleState;
struct TmdContent;

/// What the builds need of the windows.
struct BuildWindows {
    Desktop& desktop;
    frmSECSEditor& editor;
    ModelerControls& modeler;
    std::function<void()> showModeler;
    /// Opens the pane that lists what is wrong with the project.
    std::function<void()> showProblems;
};

/// The builds, reachable from all windows. The user can cancel one that takes long, and files and windows are
/// then as they were.
class BuildCommands {
public:
    BuildCommands(ModuleState& state, BuildWindows windows) : state_(state), windows_(std::move(windows)) {}

    /// Builds the SMD file, or the MDF file when the option `MessageFormat` is "mdf". A build that fails
    /// leaves the target empty. True on success.
    bool buildSmd();
    /// Checks the transaction model and builds the TMD file. A project with no transaction model builds as a
    /// success, with no file. True on success, and also when the file could not be written: then nothing is
    /// shown and no file is left.
    bool buildTmd();

private:
    bool buildSmdTo(const std::string& target, DefinitionForm form);
    bool writeDefinitions(const std::string& target, DefinitionForm form);
    bool reportDefinitions(const std::string& target);
    bool buildTmdTo(const std::string& target);
    /// False when the user has cancelled it.
    bool runLongWork(const std::string& target, const std::function<void(const Progress&)>& work);
    void postBuilt(const std::string& target, const std::string& content);
    void reportTmd(const std::string& target, const TmdContent& content);

    ModuleState& state_;
    BuildWindows windows_;
};

} // namespace zb
