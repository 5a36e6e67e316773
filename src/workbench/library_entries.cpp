#include "workbench/library_entries.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "workbench/frm_workbench.h"

namespace zb {

LibraryEntries::LibraryEntries(frmWorkbench& workbench)
    : mnuLibraryMore(workbench, "mnuLibraryMore"),
      mnuLibraryReplace(workbench, "mnuLibraryReplace", "&Replace from library", &mnuLibraryMore),
      workbench_(workbench) {
    List& list = workbench.services().editor.lvwSource;
    mnuLibraryMore.setLeavesFocus();
    mnuLibraryMore.onOpen = [this] { opened(); };
    list.setContextMenu(&mnuLibraryMore);
    list.onMouseDown = [&list](int button, ListRow* row) {
        constexpr int kRight = 2;
        if (button == kRight && row != nullptr && !row->selected())
            list.select(row);
    };
    mnuLibraryReplace.onClick = [this] { replace(); };
}

void LibraryEntries::opened() {
    mnuLibraryReplace.setEnabled(!workbench_.services().editor.libraryPane.selectedInProject().empty());
}

void LibraryEntries::replace() {
    workbench_.services().editor.libraryPane.replaceSelected();
}

} // namespace zb
