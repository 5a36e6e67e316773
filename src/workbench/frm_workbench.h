#pragma once

#include "controls/simple_controls.h"
#include "controls/window.h"
#include "workbench/compare_pane.h"
#include "workbench/go_pane.h"
#include "workbench/history_pane.h"
#include "workbench/keys_pane.h"
#include "workbench/library_entries.h"
#include "workbench/log_pane.h"
#include "workbench/marks_pane.h"
#include "workbench/model_filter.h"
#include "workbench/modeler_more.h"
#include "workbench/notice_bar.h"
#include "workbench/problems_pane.h"
#include "workbench/recent_entries.h"
#include "workbench/rename_offer.h"
#include "workbench/search_pane.h"
#include "workbench/tree_more.h"

#include <functional>
#include <string>
#include <vector>

namespace zb {

class CompareDoor;
class frmSECSEditor;
class frmTRModeler;
class ProjectDoor;
struct ModuleState;

/// What the panes work on.
struct WorkbenchServices {
    ModuleState& state;
    Window& mainWindow;
    frmSECSEditor& editor;
    frmTRModeler& modeler;
    ProjectDoor& project;
    CompareDoor& compare;
    /// Show the documents; the modeler only when the messages are without a fault.
    /// @{
    std::function<void()> showEditor;
    std::function<void()> showModeler;
    /// @}
    /// Opens the project file at this path in place of the open project, as the command Open does.
    std::function<void(const std::string& path)> openProject;
    /// Shows the document in which recordings run through the model.
    std::function<void()> showRehearsal;
};

/// The workbench: a strip at the lower edge of the main window, and panes above it of which at most one is
/// open. The strip has a button for each pane, the notices, Undo and Redo. A click in the strip leaves the
/// active window and its focus as they are.
class frmWorkbench final : public Window {
public:
    frmWorkbench(Desktop& desktop, WorkbenchServices services);
    ~frmWorkbench() override;

    /// Shows the strip; the main window is shown with it.
    void showStrip();
    const WorkbenchServices& services() const { return services_; }

    /// The project was changed, or its changes were undone.
    void projectChanged();
    /// Another project is open.
    void projectReplaced();

    /// In the order of their buttons.
    const std::vector<WorkbenchPane*>& panes() const { return panes_; }
    /// Null while all are closed.
    WorkbenchPane* openPane() const;
    void closePane();
    void closeByFrame() override { closePane(); }

    /// Undo or redo is possible, as the name of the step says ("Delete S5F2"); empty disables the button.
    /// @{
    void showUndo(const std::string& step);
    void showRedo(const std::string& step);
    /// @}

private:
    WorkbenchServices services_;
    std::vector<WorkbenchPane*> panes_;

public:
    Label lblPane{*this, "lblPane"};
    Button cmdClosePane{*this, "cmdClosePane", {}};

    // One line for each pane.
    HistoryPane history{*this};
    LogPane log{*this};
    ProblemsPane problems{*this};
    KeysPane keys{*this};
    MarksPane marks{*this};
    ComparePane compare{*this};
    GoPane go{*this};
    SearchPane search{*this};

    TreeMore treeMore;
    MenuEntry mnuWhereUsed{*this, "mnuWhereUsed", "&Where Used", &treeMore.mnuTreeMore};

    ModelFilter modelFilter{*this};
    ModelerMore modelerMore{*this, services_.modeler};

    NoticeBar notices{*this};
    Button cmdRehearsal{*this, "cmdRehearsal", "Rehearsal"};
    Button cmdUndo{*this, "cmdUndo", "Undo"};
    Button cmdRedo{*this, "cmdRedo", "Redo"};

    RenameOffer renames{*this};
    LibraryEntries libraryEntries{*this};
    RecentEntries recentEntries{*this};

private:
    void addRehearsalKey();

    friend class WorkbenchPane;
    /// The number of the pane, from 1.
    std::size_t add(WorkbenchPane& pane);
    void makeRoomFor(const WorkbenchPane& opening);
    void closed();
};

} // namespace zb
