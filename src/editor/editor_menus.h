#pragma once

#include "controls/menu.h"

#include <string>

namespace zb {

class Window;

/// The commands that change the structure of the message tree. The window has them twice, as "mnu..." in its
/// menu bar and as "mnuPop..." in the tree's pop-up.
class StructureEntries {
public:
    /// The commands on existing nodes are below `edit`, those that create nodes below `insert`.
    StructureEntries(Window& window, const std::string& prefix, Control& edit, Control& insert);

    MenuEntry cut;
    MenuEntry copy;
    MenuEntry pastePrevious;
    MenuEntry pasteNext;
    MenuEntry pasteChild;
    MenuEntry remove;
    MenuEntry duplicate;
    MenuEntry item;
    MenuEntry child;
};

/// The library menu: a check mark on one of its five entries shows the loaded library.
class LibraryMenu {
public:
    LibraryMenu(Window& window, Control& above);

    MenuEntry mnuSECSMessageLibrary;
    MenuEntry mnuLIBGEM;
    MenuEntry mnuLIBSEMI;
    MenuEntry mnuLIBSMD;
    MenuEntry mnuLIBMDF;
    MenuEntry mnuLIBSML;
};

} // namespace zb
