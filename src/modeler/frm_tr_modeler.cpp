#include "modeler/frm_tr_modeler.h"

#include "platform/stores/desktop.h"
#include "platform/text_file.h"

namespace zb {

frmTRModeler::frmTRModeler(ModuleState& state, ProjectCommands& commands)
    : Window(state.desktop, "frmTRModeler"), state_(state), menus_(*this, commands) {
    setCaption("TRModeler");
    menus_.runBusy(menus_.mnuTMD, &ProjectCommands::commandBuildTmd);
    menus_.runBusy(menus_.mnuEditor, &ProjectCommands::commandEditor);
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

} // namespace zb
