#pragma once

#include "controls/bars.h"
#include "controls/menu.h"
#include "controls/project_commands.h"
#include "controls/standard_menus.h"
#include "controls/window.h"
#include "project/module_state.h"

#include <functional>

namespace zb {

/// The main window: which commands are enabled, and what the status bar shows.
class frmMain final : public Window, public ProjectMenu {
public:
    frmMain(Desktop& desktop, ModuleState& state, ProjectCommands& commands);

    /// Only New and Open are enabled.
    void disableProjectButtons();
    /// A project is open.
    void enableProjectButtons();
    void showEditorState();
    void showModelerState();
    /// Updates the panels of the project from the project's state.
    void updateProjectPanels();
    /// The title shows whether the project differs from its file.
    void showSaved(bool saved);
    void setLibraryPanel(std::string_view library);

    /// Closes the program unless the user cancels.
    std::function<void()> onClose;
    void closeByFrame() override { fire(onClose); }

    MenuEntry mnuBuild{*this, "mnuBuild", "Build(&B)"};
    MenuEntry mnuSMD{*this, "mnuSMD", "SECS Message Definitions(&S)", &mnuBuild};
    MenuEntry mnuTMD{*this, "mnuTMD", "Transaction Modeling Definitions(&T)", &mnuBuild};
    MenuEntry mnuBuildZeltoPlugIn{*this, "mnuBuildZeltoPlugIn", "ZeltoDriver Interface PlugIn(&P)",
                                  &mnuBuild};
    MenuEntry mnuTools{*this, "mnuTools", "Tools(&T)"};
    MenuEntry mnuOption{*this, "mnuOption", "Option(&O)", &mnuTools};
    MenuEntry mnuWindow{*this, "mnuWindow", "Window(&W)"};
    MenuEntry mnuEditor{*this, "mnuEditor", "SECSEditor(&E)", &mnuWindow};
    MenuEntry mnuModeler{*this, "mnuModeler", "TRModeler(&M)", &mnuWindow};
    MenuEntry mnuHelp{*this, "mnuHelp", "Help(&H)"};
    MenuEntry mnuAbout{*this, "mnuAbout", "About(&A)", &mnuHelp};
    Toolbar tbrMain{*this, "tbrMain"};
    StatusBar stbMain{*this, "stbMain"};

private:
    void buildToolbar();
    void wireMenus(ProjectCommands& commands);

    ModuleState& state_;
    bool saved_ = true;
};

} // namespace zb
