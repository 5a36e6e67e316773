#include "workbench/library_entries.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "workbench/compare_door.h"
#include "workbench/frm_workbench.h"

namespace zb {

LibraryEntries::LibraryEntries(frmWorkbench& workbench)
    : mnuLibraryMore(workbench, "mnuLibraryMore"),
      mnuLibraryAdd(workbench, "mnuLibraryAdd", "&Add to the project", &mnuLibraryMore),
      mnuLibraryReplace(workbench, "mnuLibraryReplace", "&Replace from library", &mnuLibraryMore),
      mnuLibraryCompare(workbench, "mnuLibraryCompare", "&Compare with library", &mnuLibraryMore),
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
    mnuLibraryAdd.setShortcut("Enter");
    mnuLibraryAdd.onClick = [this] { workbench_.services().editor.libraryPane.addSelected(); };
    mnuLibraryReplace.onClick = [this] { replace(); };
    mnuLibraryCompare.onClick = [this] { compare(); };
}

void LibraryEntries::opened() {
    const LibraryPane& library = workbench_.services().editor.libraryPane;
    const bool hasProject = !isBlank(workbench_.services().state.ProjectName);
    mnuLibraryAdd.setEnabled(hasProject && !library.selectedMessages().empty());
    mnuLibraryReplace.setEnabled(!library.selectedInProject().empty());
    mnuLibraryCompare.setEnabled(hasProject && !library.selectedMessages().empty());
}

void LibraryEntries::replace() {
    workbench_.services().editor.libraryPane.replaceSelected();
}

void LibraryEntries::compare() {
    const LibraryPane& library = workbench_.services().editor.libraryPane;
    workbench_.services().compare.compareWithMessages(library.name(), library.selectedMessages());
}

} // namespace zb
