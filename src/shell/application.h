#pragma once

#include "controls/desktop.h"
#include "controls/project_commands.h"
#include "editor/editor_history.h"
#include "editor/frm_find.h"
#include "editor/frm_sec_editor.h"
#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/modeler_history.h"
#include "outputs/generator.h"
#include "project/module_state.h"
#include "shell/build_commands.h"
#include "shell/comparisons.h"
#include "shell/content_replacement.h"
#include "shell/frm_about.h"
#include "shell/frm_main.h"
#include "shell/frm_new_project.h"
#include "shell/frm_option.h"
#include "shell/frm_result.h"
#include "shell/generated_folder.h"
#include "shell/project_lifecycle.h"
#include "shell/project_versions.h"
#include "shell/work_keeper.h"
#include "workbench/frm_compare.h"
#include "workbench/frm_rehearsal.h"
#include "workbench/frm_workbench.h"

#include <string>

namespace zb {

/// The folders of a program.
struct ApplicationFolders {
    std::string application;  ///< start folder of dialogs while no project is open
    std::string state;        ///< folder of the previous versions of projects; empty keeps none
    std::string scratch = {}; ///< projects below it go with it, and have no versions kept; empty is nowhere
};

/// The desktop is made before the windows on it.
struct DesktopOfProgram {
    explicit DesktopOfProgram(Screen& screen) : desktop(screen) {}
    Desktop desktop;
};

/// One running program: it owns one of everything. Any number can exist side by side.
class Application final : public DesktopOfProgram, public ModuleState, private ProjectCommands {
public:
    Application(Screen& screen, SettingsStore& settingsOfProgram, FileLayer& filesOfProgram,
                Generator& generator, ApplicationFolders folders);

    /// Loads the main window: opens a project from the command line, otherwise the recent one, otherwise
    /// none.
    void start(const std::string& commandLine);
    /// Whether the main window has been closed.
    bool ended() const { return ended_; }
    const ApplicationFolders& folders() const { return folders_; }
    /// The code page of the settings, otherwise of the locale; call it again when the setting has changed.
    void loadCodePage();

    void showEditor();
    void showModeler();

    /// The last steps of a plug-in build: saves the project and runs the generator, whose text it returns.
    std::string saveAndGenerate();

    zb::frmMain frmMain;
    zb::frmSECSEditor frmSECSEditor;
    zb::frmFind frmFind;
    zb::frmTRModeler frmTRModeler;
    zb::frmTRMessage frmTRMessage;
    zb::frmTRItem frmTRItem;
    zb::frmNewProject frmNewProject;
    zb::frmOption frmOption;
    zb::frmResult frmResult;
    zb::frmAbout frmAbout;
    zb::frmWorkbench frmWorkbench;
    zb::frmCompare frmCompare;
    zb::frmRehearsal frmRehearsal;
    GeneratedFolder generatedFolder{frmWorkbench, frmResult};

    EditorHistory editorHistory{frmSECSEditor};
    ModelerHistory modelerHistory{frmTRModeler};

    ProjectLifecycle projects;
    BuildCommands builds;
    WorkKeeper work;
    ProjectVersions versions{*this};
    ContentReplacement content{*this};
    Comparisons comparisons{*this};

    /// A project was created or opened: nothing that was done before can be undone.
    void restartHistories();
    /// The project is in its file as it is now.
    void markSaved();
    /// What is shown as the open project is not what its file holds.
    void markUnsaved();
    /// The steps that Undo and Redo work on in the window: those of its document, and in a window that holds
    /// documents those of the document in front. Null for none.
    UndoHistory* historyOf(const Window& window);

private:
    void wireHistories();
    /// Shows which steps can be undone and redone in the document in front, and whether all is saved.
    void showSteps();
    void openStartedProject();
    void exit();

    void run(ProjectCommand command, Window& over) override;
    void showOpened();
    void openRecent(const std::string& path);
    void buildPlugIn();

    Generator& generator_;
    ApplicationFolders folders_;
    bool ended_ = false;
};

} // namespace zb
