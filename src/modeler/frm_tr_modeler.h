#pragma once

#include "messages/module_state.h"
#include "messages/project_commands.h"
#include "messages/standard_menus.h"
#include "modeler/model_sections.h"
#include "platform/stores/window.h"

#include <string>

namespace zb {

/// The window of the transaction model. It keeps the model's part of the project file and leads to the shared
/// commands.
class frmTRModeler final : public Window {
public:
    frmTRModeler(ModuleState& state, ProjectCommands& commands);

    void newModelerProject();
    /// Reads the model from the project's file; a file that cannot be read gives an empty model.
    void openModelerProject();
    /// The model's sections of the project file.
    std::string saveModelerProject();
    /// Drops all transaction definitions.
    void clearAllTRMsgDef();

private:
    ModuleState& state_;
    StandardMenus menus_;
    ModelSections sections_;
};

} // namespace zb
