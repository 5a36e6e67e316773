#include "workbench/frm_workbench.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"

#include <algorithm>
#include <utility>

namespace zb {

frmWorkbench::frmWorkbench(Desktop& desktop, WorkbenchServices services)
    : Window(desktop, "frmWorkbench"), services_(std::move(services)), treeMore(*this, services_.editor) {
    setCaption("Workbench");
    for (Button* button : {&cmdRehearsal, &cmdUndo, &cmdRedo, &cmdClosePane})
        button->setLeavesFocus();
    showUndo({});
    showRedo({});
    cmdRehearsal.setToolTip("Run recorded messages through the model of the open project (Ctrl+R)");
    cmdRehearsal.onClick = [this] { services_.showRehearsal(); };
    addRehearsalKey();
    cmdClosePane.setToolTip("Close the pane (Esc)");
    cmdClosePane.setVisible(false);
    cmdClosePane.onClick = [this] { closePane(); };
    setCancelButton(cmdClosePane);
    mnuWhereUsed.withSeparatorAbove();
    mnuWhereUsed.onClick = [this] { search.whereUsed(); };
    modelerMore.onWhereUsed = [this](ModelerMore::UsesOf what) { search.whereUsed(what); };
    notices.onPosted = [this](const std::string& time, const std::string& text) { log.add(time, text); };
    treeMore.mnuShowMarks.onClick = [this] { marks.open(); };
    desktop.showNoticesIn(&notices);
}

frmWorkbench::~frmWorkbench() {
    desktop().showNoticesIn(nullptr);
}

void frmWorkbench::addRehearsalKey() {
    KeyCommand shows;
    shows.key = {'R', kControlKey};
    shows.where = "everywhere";
    shows.purpose = "Shows the rehearsal of recorded messages";
    shows.run = [this] {
        services_.showRehearsal();
        return true;
    };
    desktop().keys().add(std::move(shows));
}

void frmWorkbench::showStrip() {
    desktop().showPart(*this);
}

void frmWorkbench::projectChanged() {
    go.projectChanged();
    renames.review();
    modelFilter.refresh();
    services_.editor.libraryPane.showInProject();
}

void frmWorkbench::projectReplaced() {
    go.projectChanged();
    search.forget();
    renames.forget();
    services_.editor.libraryPane.showInProject();
}

std::size_t frmWorkbench::add(WorkbenchPane& pane) {
    panes_.push_back(&pane);
    return panes_.size();
}

WorkbenchPane* frmWorkbench::openPane() const {
    const auto found =
        std::find_if(panes_.begin(), panes_.end(), [](const WorkbenchPane* pane) { return pane->isOpen(); });
    return found == panes_.end() ? nullptr : *found;
}

void frmWorkbench::closePane() {
    if (WorkbenchPane* pane = openPane(); pane != nullptr)
        pane->close();
}

void frmWorkbench::makeRoomFor(const WorkbenchPane& opening) {
    for (WorkbenchPane* pane : panes_) {
        if (pane == &opening || !pane->isOpen())
            continue;
        pane->pane.setVisible(false);
        pane->button.setChecked(false);
    }
    lblPane.setText(opening.title());
    cmdClosePane.setVisible(true);
}

// The keyboard goes back to where the user worked before.
void frmWorkbench::closed() {
    cmdClosePane.setVisible(false);
    lblPane.setText({});
    if (desktop().activeWindow() != this)
        return;
    Window* document = desktop().frontDocument(services_.mainWindow);
    desktop().activate(document != nullptr ? *document : services_.mainWindow);
}

namespace {

/// Shown after each step, and typing goes on in the same one: no text is made for what is shown already.
void showStep(Button& button, std::string_view way, std::string_view nothing, std::string_view step) {
    const std::string_view shown = button.toolTip();
    const bool isShown = step.empty() ? shown == nothing
                                      : shown.size() == way.size() + step.size() && shown.starts_with(way) &&
                                            shown.ends_with(step);
    if (!isShown)
        button.setToolTip(step.empty() ? std::string(nothing) : std::string(way) + std::string(step));
    button.setEnabled(!step.empty());
}

} // namespace

void frmWorkbench::showUndo(const std::string& step) {
    showStep(cmdUndo, "Undo: ", "Nothing to undo", step);
}

void frmWorkbench::showRedo(const std::string& step) {
    showStep(cmdRedo, "Redo: ", "Nothing to redo", step);
}

} // namespace zb
