#pragma once

#include "controls/menu.h"

namespace zb {

class frmWorkbench;

/// The commands of the library's list, in a pop-up of its own.
class LibraryEntries {
public:
    explicit LibraryEntries(frmWorkbench& workbench);

    PopupMenu mnuLibraryMore;
    MenuEntry mnuLibraryAdd;
    MenuEntry mnuLibraryReplace;
    MenuEntry mnuLibraryCompare;

private:
    void opened();
    void replace();
    void compare();

    frmWorkbench& workbench_;
};

} // namespace zb
