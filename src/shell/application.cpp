#include "shell/application.h"

#include "platform/locale.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "shell/option_settings.h"

namespace zb {

Application::Application(Screen& screen, SettingsStore& settingsOfProgram, FileLayer& filesOfProgram,
                         Generator& generator, ApplicationFolders folders)
    : DesktopOfProgram(screen), ModuleState(settingsOfProgram, filesOfProgram),
      frmMain(desktop, *this, *this), frmSECSEditor(desktop, *this, *this),
      frmFind(desktop, [this]() -> NodeTree& { return frmSECSEditor.liveTree(); }),
      frmTRModeler(desktop, *this, *this), frmTRMessage(desktop, *this, frmTRModeler),
      frmTRItem(desktop, *this, frmTRModeler), frmNewProject(desktop, *this, folders.application),
      frmOption(desktop, settingsOfProgram), frmResult(desktop), frmAbout(desktop),
      frmWorkbench(desktop, {*this, frmMain, frmSECSEditor, frmTRModeler, versions}), projects(*this),
      builds(*this, {desktop, frmSECSEditor, frmTRModeler, [this] { showModeler(); }}), work(*this, folders),
      generator_(generator), folders_(std::move(folders)) {
    frmSECSEditor.setFrame(frmMain);
    frmTRModeler.setFrame(frmMain);
    frmTRModeler.useDialogs(frmTRMessage, frmTRItem);
    frmMain.onClose = [this] { exit(); };
    frmSECSEditor.onFind = [this] { frmFind.showFind(); };
    frmSECSEditor.libraryPane.setApplicationFolder(folders_.application);
    frmSECSEditor.libraryPane.setPanel(
        [this](std::string_view library) { frmMain.setLibraryPanel(library); });
    loadCodePage();
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
    for (const char* dialog : {"frmTRMessage", "frmTRItem"}) {
        if (Window* window = desktop.find(dialog); window != nullptr)
            window->hide();
    }
    frmMain.showEditorState();
    frmSECSEditor.show();
}

void Application::showModeler() {
    // The modeler reads messages only from the store, which this walk checks and fills.
    if (!ProjectName.empty() && !isBlank(frmSECSEditor.buildMessageText(WalkMode::Modeler))) {
        frmMain.showEditorState();
        return;
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
    // This kind of plug-in is built into a separate solution, where its result is shown.
    if (readSetting(settings, kPlugInType) != "5")
        frmResult.showModal();
}

std::string Application::saveAndGenerate() {
    projects.saveProject();
    return generator_.generate(projectFilePath());
}

} // namespace zb
