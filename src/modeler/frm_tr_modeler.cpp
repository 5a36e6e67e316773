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

void frmTRModeler::makeStore() {
    state_.TRModelStore = std::make_unique<TRModelStore>();
    state_.TRModelStore->setProjectType(state_.ProjectType);
}

void frmTRModeler::newModelerProject() {
    makeStore();
    sections_.clear();
    if (state_.ProjectType == 2)
        state_.TRModelStore->clearTRMessages();
}

void frmTRModeler::openModelerProject() {
    const BusyPointer busy(*this);
    makeStore();
    const auto bytes = readBytes(state_.projectFilePath());
    const std::string text = bytes ? decodeProject(*bytes).text : std::string();
    state_.TRModelStore->loadModelText(text);
    sections_ = ModelSections::parse(text);
}

std::string frmTRModeler::saveModelerProject() {
    const BusyPointer busy(*this);
    return sections_.compose(state_.TRModelStore ? state_.TRModelStore->saveModel() : std::string());
}

void frmTRModeler::clearAllTRMsgDef() {
    if (state_.TRModelStore)
        state_.TRModelStore->clearTRMessages();
    sections_.clear();
}

void frmTRModeler::displayAddedTRMessage(std::string_view /*name*/) {}
void frmTRModeler::displayUpdatedTRMessage(std::string_view /*name*/) {}
void frmTRModeler::displayAddedTRItem(std::string_view /*message*/, std::string_view /*item*/) {}
void frmTRModeler::displayUpdatedTRItem(std::string_view /*message*/, std::string_view /*item*/) {}

} // namespace zb
