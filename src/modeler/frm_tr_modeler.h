#pragma once

#include "modeler/frm_add_sequence.h"
#include "modeler/model_sections.h"
#include "modeler/model_views.h"
#include "modeler/modeler_controls.h"
#include "modeler/modeler_state.h"

#include <string>
#include <string_view>

namespace zb {

class frmTRItem;
class frmTRMessage;

/// The window in which the transaction model is seen and edited. Its trees and its table are views of the
/// store; the rows of the sequences are the document.
class frmTRModeler final : public ModelerControls, public ModelViews {
public:
    frmTRModeler(ModelerState& state, ProjectCommands& commands);

    /// The dialogs that the commands lead to; they are made behind the window and outlive no command.
    void useDialogs(frmTRMessage& messages, frmTRItem& items);

    void newModelerProject();
    /// Reads the model from the project's file; a file that cannot be read gives an empty model.
    void openModelerProject();
    /// The model's sections of the project file.
    std::string saveModelerProject();
    /// Drops all transaction definitions.
    void clearAllTRMsgDef();

    void displayAddedTRMessage(std::string_view name) override;
    void displayUpdatedTRMessage(std::string_view name) override;
    void displayAddedTRItem(std::string_view message, std::string_view item) override;
    void displayUpdatedTRItem(std::string_view message, std::string_view item) override;

private:
    void makeStore();

    ModelerState& state_;
    ModelSections sections_;
    frmAddSequence addSequence_;
    frmTRMessage* messageDialog_ = nullptr;
    frmTRItem* itemDialog_ = nullptr;
};

} // namespace zb
