#pragma once

#include "messages/project_commands.h"
#include "platform/stores/menu.h"

#include <string>

namespace zb {

/// The menus that a document window shares with the others: project, build, option, window and help. They lead to the
/// shared commands, of which the long ones show the hourglass on the window while they run. A window adds its own
/// menus between them; the order in the menu bar is that of declaration.
class StandardMenus {
public:
    StandardMenus(Window& window, ProjectCommands& commands);

    /// Runs a shared command from an entry, with the hourglass on the window. The windows wire the entries that
    /// mean something in them alone: the modeler's TMD build, the way to the other window.
    void runBusy(MenuEntry& entry, void (ProjectCommands::*command)(Window&));

    MenuEntry mnuProject;
    MenuEntry mnuNew;
    MenuEntry mnuOpen;
    MenuEntry mnuSave;
    MenuEntry mnuSaveAs;
    MenuEntry mnuPrint; ///< the system does not print
    MenuEntry mnuExit;
    MenuEntry mnuBuild;
    MenuEntry mnuBuildSMD;
    MenuEntry mnuTMD;
    MenuEntry mnuBuildZeltoPlugIn;
    MenuEntry mnuTools;
    MenuEntry mnuOption;
    MenuEntry mnuWindow;
    MenuEntry mnuEditor;
    MenuEntry mnuModeler;
    MenuEntry mnuHelp;
    MenuEntry mnuAbout;

private:
    Window& window_;
    ProjectCommands& commands_;
};

} // namespace zb
