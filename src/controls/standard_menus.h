#pragma once

#include "controls/menu.h"
#include "controls/project_commands.h"

namespace zb {

// The menus that the document windows share. Their entries run the shared commands; long commands show the
// hourglass on the window. The order in a menu bar is the order of declaration, so a window with own menus
// between Project and Build declares the two halves separately.

/// Makes an entry run a shared command, with the hourglass on the entry's window.
void runBusy(MenuEntry& entry, ProjectCommands& commands, ProjectCommand command);

class ProjectMenu {
public:
    ProjectMenu(Window& window, ProjectCommands& commands);

    MenuEntry mnuProject;
    MenuEntry mnuNew;
    MenuEntry mnuOpen;
    MenuEntry mnuSave;
    MenuEntry mnuSaveAs;
    MenuEntry mnuPrint; ///< not supported: nothing is printed
    MenuEntry mnuExit;
};

/// Build, option, window and help. The windows connect the entries that are specific to them: the modeler's
/// TMD build, the change to the other window.
class CommandMenus {
public:
    CommandMenus(Window& window, ProjectCommands& commands);

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
};

/// Both halves, for a window with no menus between them.
class StandardMenus : public ProjectMenu, public CommandMenus {
public:
    StandardMenus(Window& window, ProjectCommands& commands)
        : ProjectMenu(window, commands), CommandMenus(window, commands), commands_(commands) {}

    void runBusy(MenuEntry& entry, ProjectCommand command) { zb::runBusy(entry, commands_, command); }

private:
    ProjectCommands& commands_;
};

} // namespace zb
