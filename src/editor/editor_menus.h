#pragma once

#include "controls/menu.h"

#include <string>

namespace zb {

class Window;

/// The commands that change the shape of the message tree. The window has them twice, under "mnu..." in its
/// menu bar and under "mnuPop..." in the tree's pop-up.
class StructureEntries {
public:
    /// The commands on what stands go below `edit`, those that make something new below `insert`.
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

/// The library menu: its five entries show by a check which library is open.
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
