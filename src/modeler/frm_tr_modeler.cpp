#include "modeler/frm_tr_modeler.h"

#include "platform/stores/desktop.h"
#include "platform/text_file.h"

namespace zb {

frmTRModeler::frmTRModeler(ModelerState& state, ProjectCommands& commands)
    : ModelerControls(state.desktop, commands), state_(state), addSequence_(state) {
    setCaption("TRModeler");
    menus.runBusy(menus.mnuTMD, &ProjectCommands::commandBuildTmd);
    menus.runBusy(menus.mnuEditor, &ProjectCommands::commandEditor);
}

void frmTRModeler::useDialogs(frmTRMessage& messages, frmTRItem& items) {
    messageDialog_ = &messages;
    itemDialog_ = &items;
}

void frmTRModeler::newModelerProject() {
    sections_.clear();
}

void frmTRModeler::openModelerProject() {
    const BusyPointer busy(*this);
    const auto bytes = readBytes(state_.projectFilePath());
    sections_ = bytes ? ModelSections::parse(decodeProject(*bytes).text) : ModelSections();
}

std::string frmTRModeler::saveModelerProject() {
    const BusyPointer busy(*this);
    return sections_.compose();
}

void frmTRModeler::clearAllTRMsgDef() {
    sections_.clear();
}

void frmTRModeler::displayAddedTRMessage(std::string_view /*name*/) {}
void frmTRModeler::displayUpdatedTRMessage(std::string_view /*name*/) {}
void frmTRModeler::displayAddedTRItem(std::string_view /*message*/, std::string_view /*item*/) {}
void frmTRModeler::displayUpdatedTRItem(std::string_view /*message*/, std::string_view /*item*/) {}

} // namespace zb
