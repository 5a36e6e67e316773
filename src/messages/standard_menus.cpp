#include "messages/standard_menus.h"

#include "platform/stores/window.h"

namespace zb {

StandardMenus::StandardMenus(Window& window, ProjectCommands& commands)
    : mnuProject(window, "mnuProject", "Project(&P)"), mnuNew(window, "mnuNew", "New(&N)", &mnuProject),
      mnuOpen(window, "mnuOpen", "Open(&O)", &mnuProject), mnuSave(window, "mnuSave", "Save(&S)", &mnuProject),
      mnuSaveAs(window, "mnuSaveAs", "SaveAs(&E)", &mnuProject), mnuPrint(window, "mnuPrint", "Print(&P)", &mnuProject),
      mnuExit(window, "mnuExit", "Exit(&X)", &mnuProject), mnuBuild(window, "mnuBuild", "Build(&B)"),
      mnuBuildSMD(window, "mnuBuildSMD", "SECS Message Definitions(&S)", &mnuBuild),
      mnuTMD(window, "mnuTMD", "Transaction Modeling Definitions(&T)", &mnuBuild),
      mnuBuildZeltoPlugIn(window, "mnuBuildZeltoPlugIn", "ZeltoDriver Interface PlugIn(&P)", &mnuBuild),
      mnuTools(window, "mnuTools", "Tools(&T)"), mnuOption(window, "mnuOption", "Option(&O)", &mnuTools),
      mnuWindow(window, "mnuWindow", "Window(&W)"), mnuEditor(window, "mnuEditor", "SECSEditor(&E)", &mnuWindow),
      mnuModeler(window, "mnuModeler", "TRModeler(&M)", &mnuWindow), mnuHelp(window, "mnuHelp", "Help(&H)"),
      mnuAbout(window, "mnuAbout", "About(&A)", &mnuHelp), window_(window), commands_(commands) {
    runBusy(mnuNew, &ProjectCommands::commandNew);
    runBusy(mnuOpen, &ProjectCommands::commandOpen);
    runBusy(mnuSave, &ProjectCommands::commandSave);
    runBusy(mnuSaveAs, &ProjectCommands::commandSaveAs);
    mnuExit.onClick = [this] { commands_.commandExit(); };
    runBusy(mnuBuildSMD, &ProjectCommands::commandBuildSmd);
    runBusy(mnuBuildZeltoPlugIn, &ProjectCommands::commandBuildPlugIn);
    runBusy(mnuOption, &ProjectCommands::commandOption);
    mnuAbout.onClick = [this] { commands_.commandAbout(window_); };
    mnuNew.setShortcut("Ctrl+N");
    mnuOpen.setShortcut("Ctrl+O");
    mnuSave.setShortcut("Ctrl+S");
    mnuPrint.withSeparatorAbove();
    mnuExit.withSeparatorAbove();
}

void StandardMenus::runBusy(MenuEntry& entry, void (ProjectCommands::*command)(Window&)) {
    entry.onClick = [this, command] {
        const BusyPointer busy(window_);
        (commands_.*command)(window_);
    };
}

} // namespace zb
