#include "shell/frm_main.h"

#include "controls/desktop.h"
#include "platform/text.h"

#include <array>
#include <utility>

namespace zb {

namespace {

constexpr std::array<std::string_view, 7> kProjectButtons{"Save",      "Print",  "SMD",    "TMD",
                                                          "DriverGen", "Editor", "Modeler"};

/// The effect of the entry, and its key.
std::string toolTipOf(const MenuEntry& entry) {
    const std::string meaning(before(entry.caption(), "("));
    return entry.shortcut().empty() ? meaning : meaning + " (" + entry.shortcut() + ")";
}

} // namespace

frmMain::frmMain(Desktop& desktop, ModuleState& state, ProjectCommands& commands)
    : Window(desktop, "frmMain"), ProjectMenu(*this, commands), state_(state) {
    setCaption(std::string(kApplicationTitle));
    wireMenus(commands);
    buildToolbar();
    for (const char* panel : {"ProjectName", "Status", "ProjectType", "SECSLibrary"})
        stbMain.addPanel(panel);
}

void frmMain::wireMenus(ProjectCommands& commands) {
    mnuProject.onOpen = [this] {
        if (!isBlank(state_.ProjectName))
            return;
        for (MenuEntry* entry : {&mnuSave, &mnuSaveAs, &mnuPrint})
            entry->setEnabled(false);
    };
    // A save shows no hourglass in this window.
    mnuSave.onClick = [this, &commands] { commands.run(ProjectCommand::Save, *this); };
    mnuSaveAs.onClick = [this, &commands] { commands.run(ProjectCommand::SaveAs, *this); };
    runBusy(mnuSMD, commands, ProjectCommand::BuildSmd);
    runBusy(mnuTMD, commands, ProjectCommand::BuildTmd);
    runBusy(mnuBuildZeltoPlugIn, commands, ProjectCommand::BuildPlugIn);
    runBusy(mnuOption, commands, ProjectCommand::Option);
    runBusy(mnuEditor, commands, ProjectCommand::Editor);
    runBusy(mnuModeler, commands, ProjectCommand::Modeler);
    mnuAbout.onClick = [this, &commands] { commands.run(ProjectCommand::About, *this); };
}

void frmMain::buildToolbar() {
    const std::array<std::pair<const char*, MenuEntry*>, 9> buttons{{
        {"New", &mnuNew},
        {"Open", &mnuOpen},
        {"Save", &mnuSave},
        {"Print", &mnuPrint},
        {"SMD", &mnuSMD},
        {"TMD", &mnuTMD},
        {"DriverGen", &mnuBuildZeltoPlugIn},
        {"Editor", &mnuEditor},
        {"Modeler", &mnuModeler},
    }};
    for (const auto& [key, entry] : buttons)
        tbrMain.addButton(key, toolTipOf(*entry));
    tbrMain.onButtonClick = [buttons](ToolbarButton& pressed) {
        for (const auto& [key, entry] : buttons) {
            if (pressed.key() == key)
                return fire(entry->onClick);
        }
    };
}

void frmMain::disableProjectButtons() {
    for (const std::string_view key : kProjectButtons)
        tbrMain.button(key).setEnabled(false);
    tbrMain.button("Editor").setValue(0);
}

void frmMain::enableProjectButtons() {
    for (const std::string_view key : kProjectButtons)
        tbrMain.button(key).setEnabled(true);
}

void frmMain::showEditorState() {
    tbrMain.button("Editor").setValue(1);
    tbrMain.button("SMD").setEnabled(true);
    tbrMain.button("Modeler").setValue(0);
    tbrMain.button("TMD").setEnabled(false);
}

void frmMain::showModelerState() {
    tbrMain.button("Editor").setValue(0);
    tbrMain.button("SMD").setEnabled(false);
    tbrMain.button("Modeler").setValue(1);
    tbrMain.button("TMD").setEnabled(true);
}

void frmMain::showSaved(bool saved) {
    saved_ = saved;
    const bool differs = !saved_ && !state_.ProjectName.empty();
    setTitleNote(differs ? state_.ProjectName + "*" : state_.ProjectName);
}

void frmMain::updateProjectPanels() {
    showSaved(saved_);
    stbMain.setText("ProjectName", state_.ProjectName);
    stbMain.setText("Status", state_.ProjectPath);
    stbMain.setText("ProjectType", state_.ProjectType == 1 ? "Host" : "Equipment");
}

void frmMain::setLibraryPanel(std::string_view library) {
    stbMain.setText("SECSLibrary", library);
}

} // namespace zb
