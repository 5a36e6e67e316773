#include "workbench/compare_pane.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "workbench/compare_door.h"
#include "workbench/frm_workbench.h"

namespace zb {

ComparePane::ComparePane(frmWorkbench& workbench)
    : WorkbenchPane(workbench, "Compare", "Compare the open project with another one") {
    txtComparedWith.setToolTip("A project or a library, a kept version as Etcher.zbp@3, or a file of a git "
                               "revision as HEAD:Etcher.zbp");
    cmdChooseCompared.onClick = [this] { choose(); };
    cmdCompareLibrary.setToolTip(
        "Compare the messages of the open project with the library that the editor lists");
    cmdCompareLibrary.onClick = [this] {
        const LibraryPane& library = this->workbench().services().editor.libraryPane;
        this->workbench().services().compare.compareWithLibrary(library.name(),
                                                                library.library().getMessages());
    };
    cmdCompareWith.onClick = [this] { compare(); };
    txtComparedWith.onKeyUp = [this](KeyEvent key) {
        if (key.code == kKeyEnter)
            compare();
    };
    txtComparedWith.onChange = [this] { cmdCompareWith.setEnabled(!isBlank(txtComparedWith.text())); };
    cmdCompareWith.setEnabled(false);
}

void ComparePane::choose() {
    const std::string& folder = workbench().services().state.ProjectPath;
    const std::string file = window().desktop().pickFile(
        {"Compare with", "Projects and libraries|*.zbp;*.smd;*.mdf;*.sml", "zbp", folder});
    if (!file.empty())
        txtComparedWith.setText(file);
}

void ComparePane::compare() {
    if (!isBlank(txtComparedWith.text()))
        workbench().services().compare.compareWithFile(trim(txtComparedWith.text()));
}

} // namespace zb
