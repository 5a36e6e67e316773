#include "controls/standard_menus.h"

#include "controls/window.h"

namespace zb {

void runBusy(MenuEntry& entry, ProjectCommands& commands, ProjectCommand command) {
    entry.onClick = [&window = entry.window(), &commands, command] {
        const BusyPointer busy(window);
        commands.run(command, window);
    };
}

ProjectMenu::ProjectMenu(Window& window, ProjectCommands& commands)
    : mnuProject(window, "mnuProject", "Project(&P)"), mnuNew(window, "mnuNew", "New(&N)", &mnuProject),
      mnuOpen(window, "mnuOpen", "Open(&O)", &mnuProject),
      mnuSave(window, "mnuSave", "Save(&S)", &mnuProject),
      mnuSaveAs(window, "mnuSaveAs", "SaveAs(&E)", &mnuProject),
      mnuPrint(window, "mnuPrint", "Print(&P)", &mnuProject),
      mnuExit(window, "mnuExit", "Exit(&X)", &mnuProject) {
    runBusy(mnuNew, commands, ProjectCommand::New);
    runBusy(mnuOpen, commands, ProjectCommand::Open);
    runBusy(mnuSave, commands, ProjectCommand::Save);
    runBusy(mnuSaveAs, commands, ProjectCommand::SaveAs);
    mnuExit.onClick = [&window, &commands] { commands.run(ProjectCommand::Exit, window); };
    mnuNew.setShortcut("Ctrl+N");
    mnuOpen.setShortcut("Ctrl+O");
    mnuSave.setShortcut("Ctrl+S");
    mnuPrint.withSeparatorAbove();
    mnuExit.withSeparatorAbove();
}

CommandMenus::CommandMenus(Window& window, ProjectCommands& commands)
    : mnuBuild(window, "mnuBuild", "Build(&B)"),
      mnuBuildSMD(window, "mnuBuildSMD", "SECS Message Definitions(&S)", &mnuBuild),
      mnuTMD(window, "mnuTMD", "Transaction Modeling Definitions(&T)", &mnuBuild),
      mnuBuildZeltoPlugIn(window, "mnuBuildZeltoPlugIn", "ZeltoDriver Interface PlugIn(&P)", &mnuBuild),
      mnuTools(window, "mnuTools", "Tools(&T)"), mnuOption(window, "mnuOption", "Option(&O)", &mnuTools),
      mnuWindow(window, "mnuWindow", "Window(&W)"),
      mnuEditor(window, "mnuEditor", "SECSEditor(&E)", &mnuWindow),
      mnuModeler(window, "mnuModeler", "TRModeler(&M)", &mnuWindow), mnuHelp(window, "mnuHelp", "Help(&H)"),
      mnuAbout(window, "mnuAbout", "About(&A)", &mnuHelp) {
    runBusy(mnuBuildSMD, commands, ProjectCommand::BuildSmd);
    runBusy(mnuBuildZeltoPlugIn, commands, ProjectCommand::BuildPlugIn);
    runBusy(mnuOption, commands, ProjectCommand::Option);
    mnuAbout.onClick = [&window, &commands] { commands.run(ProjectCommand::About, window); };
}

} // namespace zb
