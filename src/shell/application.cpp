#include "shell/application.h"

#include "platform/locale.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "shell/option_settings.h"

namespace zb {

namespace {

/// Empty for a command that is named by what the user chose.
std::string stepNameOf(ProjectCommand command) {
    switch (command) {
    case ProjectCommand::Save:
        return "Save";
    case ProjectCommand::SaveAs:
        return "Save as";
    case ProjectCommand::BuildSmd:
        return "Build message definitions";
    case ProjectCommand::BuildTmd:
        return "Build transaction definitions";
    case ProjectCommand::BuildPlugIn:
        return "Build plug-in";
    case ProjectCommand::Modeler:
        return "Change to the modeler";
    default:
        return {};
    }
}

} // namespace

Application::Application(Screen& screen, SettingsStore& settingsOfProgram, FileLayer& filesOfProgram,
                         Generator& generator, ApplicationFolders folders)
    : DesktopOfProgram(screen), ModuleState(settingsOfProgram, filesOfProgram),
      frmMain(desktop, *this, *this), frmSECSEditor(desktop, *this, *this),
      frmFind(desktop, [this]() -> NodeTree& { return frmSECSEditor.liveTree(); }),
      frmTRModeler(desktop, *this, *this), frmTRMessage(desktop, *this, frmTRModeler),
      frmTRItem(desktop, *this, frmTRModeler), frmNewProject(desktop, *this, folders.application),
      frmOption(desktop, settingsOfProgram), frmResult(desktop), frmAbout(desktop),
      frmWorkbench(desktop,
                   {*this, frmMain, frmSECSEditor, frmTRModeler, versions, comparisons,
                    [this] { showEditor(); }, [this] { showModeler(); },
                    [this](const std::string& path) { openRecent(path); }, [this] { frmRehearsal.open(); }}),
      frmCompare(desktop, frmMain, comparisons), frmRehearsal(desktop, comparisons, frmWorkbench),
      projects(*this), builds(*this, {desktop, frmSECSEditor, frmTRModeler, [this] { showModeler(); },
                                      [this] { frmWorkbench.problems.open(); }}),
      work(*this, folders), generator_(generator), folders_(std::move(folders)) {
    frmSECSEditor.setFrame(frmMain);
    frmTRModeler.setFrame(frmMain);
    frmTRModeler.useDialogs(frmTRMessage, frmTRItem);
    frmWorkbench.modelerMore.useDialogs(frmTRMessage, frmTRItem);
    frmMain.onClose = [this] { exit(); };
    frmSECSEditor.onFind = [this] { frmFind.showFind(); };
    frmMain.tbrMain.setContextMenu(&frmWorkbench.recentEntries.mnuRecent);
    frmFind.useTerms(frmWorkbench.search.terms);
    frmSECSEditor.libraryPane.setApplicationFolder(folders_.application);
    frmSECSEditor.libraryPane.setPanel(
        [this](std::string_view library) { frmMain.setLibraryPanel(library); });
    wireHistories();
    loadCodePage();
}

void Application::wireHistories() {
    for (UndoHistory* history : {&editorHistory.steps, &modelerHistory.steps}) {
        desktop.steps().add(*history);
        history->addListener([this] {
            showSteps();
            frmRehearsal.projectStepped();
        });
    }
    modelerHistory.steps.addListener([this] { frmWorkbench.problems.watch.modelStepped(); });
    // Another project is being taken over; its steps begin when it is there.
    editorHistory.onReplaced = [this] { modelerHistory.steps.stop(); };
    desktop.steps().historyOf = [this](const Window& window) { return historyOf(window); };
    desktop.onActivated = [this] {
        showSteps();
        // A menu of the main window may be about to save, which has its own look.
        if (desktop.activeWindow() != &frmMain)
            versions.userReturned();
    };
    frmWorkbench.cmdUndo.onClick = [this] { desktop.steps().move(frmMain, UndoKey::Undo); };
    frmWorkbench.cmdRedo.onClick = [this] { desktop.steps().move(frmMain, UndoKey::Redo); };
}

UndoHistory* Application::historyOf(const Window& window) {
    const bool holdsDocuments = &window == &frmMain || &window == &frmWorkbench;
    const Window* document = holdsDocuments ? desktop.frontDocument(frmMain) : &window;
    if (document == &frmTRModeler)
        return &modelerHistory.steps;
    // What a comparison takes is a step of both windows.
    return document == &frmSECSEditor || document == &frmCompare ? &editorHistory.steps : nullptr;
}

void Application::showSteps() {
    const UndoHistory* history = historyOf(frmMain);
    frmWorkbench.showUndo(history == nullptr ? std::string() : history->undoName());
    frmWorkbench.showRedo(history == nullptr ? std::string() : history->redoName());
    frmWorkbench.projectChanged();
    frmMain.showSaved(editorHistory.steps.isSaved() && modelerHistory.steps.isSaved());
    if (desktop.frontDocument(frmMain) == &frmCompare)
        frmCompare.follow();
}

void Application::restartHistories() {
    frmWorkbench.projectReplaced();
    editorHistory.steps.clear();
    modelerHistory.steps.clear();
    frmWorkbench.problems.projectShown();
}

void Application::markSaved() {
    desktop.steps().closeStep();
    editorHistory.steps.markSaved();
    modelerHistory.steps.markSaved();
}

void Application::markUnsaved() {
    editorHistory.steps.markUnsaved();
}

void Application::loadCodePage() {
    codePage = chooseCodePage(readSetting(settings, kAnsiCodePage), localeName());
    settings.setCodePage(codePage);
}

void Application::start(const std::string& commandLine) {
    ProjectType = 1;
    loadOptionDefaults(settings);
    frmWorkbench.showStrip();
    frmMain.show();
    if (projects.parseProjectPath(trim(commandLine)) || projects.parseProjectPath(getRecentProject(settings)))
        openStartedProject();
    else
        frmMain.disableProjectButtons();
    work.start();
}

void Application::openStartedProject() {
    if (!projects.openProject(projectFilePath())) {
        ProjectName.clear();
        ProjectPath.clear();
        frmMain.disableProjectButtons();
        return;
    }
    frmMain.enableProjectButtons();
    showEditor();
}

void Application::showEditor() {
    frmTRMessage.keepWork();
    frmTRItem.keepWork();
    for (const char* dialog : {"frmTRMessage", "frmTRItem"}) {
        if (Window* window = desktop.find(dialog); window != nullptr)
            window->hide();
    }
    frmMain.showEditorState();
    frmSECSEditor.show();
}

void Application::showModeler() {
    // The modeler reads messages only from the store, which this walk checks and fills.
    if (!ProjectName.empty()) {
        PreparedWalk walk;
        const bool done =
            desktop.screen().doLongWork("Checking " + ProjectName, [&](const Progress& progress) {
                walk = frmSECSEditor.prepareWalk(WalkMode::Modeler, progress);
            });
        if (!done)
            return;
        if (!isBlank(frmSECSEditor.takeWalk(std::move(walk)))) {
            frmMain.showEditorState();
            return;
        }
    }
    frmMain.showModelerState();
    frmTRModeler.show();
}

void Application::exit() {
    if (projects.confirmExit() == ProjectLifecycle::Exit::Stay)
        return;
    ended_ = true;
    work.projectClosed();
    const auto windows = desktop.windows();
    for (Window* window : windows) {
        if (window != &frmMain)
            window->hide();
    }
    frmMain.hide();
    SECSMessageStore = std::make_unique<zb::SECSMessageStore>();
    TRModelStore.reset();
}

void Application::run(ProjectCommand command, Window& /*over*/) {
    desktop.steps().name(stepNameOf(command));
    switch (command) {
    case ProjectCommand::New:
        if (projects.newProject())
            showOpened();
        break;
    case ProjectCommand::Open:
        if (projects.openProject())
            showOpened();
        break;
    case ProjectCommand::Save:
        projects.saveProject();
        break;
    case ProjectCommand::SaveAs:
        projects.saveProjectAs();
        break;
    case ProjectCommand::Exit:
        exit();
        break;
    case ProjectCommand::BuildSmd:
        builds.buildSmd();
        break;
    case ProjectCommand::BuildTmd:
        builds.buildTmd();
        break;
    case ProjectCommand::BuildPlugIn:
        buildPlugIn();
        break;
    case ProjectCommand::Option:
        frmOption.request();
        break;
    case ProjectCommand::Editor:
        showEditor();
        break;
    case ProjectCommand::Modeler:
        showModeler();
        break;
    case ProjectCommand::About:
        frmAbout.showModal();
        break;
    }
}

void Application::openRecent(const std::string& path) {
    const BusyPointer busy(frmMain);
    if (projects.openRecent(path))
        showOpened();
}

void Application::showOpened() {
    frmMain.enableProjectButtons();
    showEditor();
}

void Application::buildPlugIn() {
    if (!builds.buildSmd() || !builds.buildTmd())
        return;
    const std::string result = saveAndGenerate();
    frmResult.clearOldData();
    frmResult.addErrorMsg(result);
    generatedFolder.show(result);
    // This kind of plug-in is built into a separate solution, where its result is shown.
    if (readSetting(settings, kPlugInType) != "5")
        frmResult.showModal();
}

std::string Application::saveAndGenerate() {
    projects.saveProject();
    return generator_.generate(projectFilePath());
}

} // namespace zb
