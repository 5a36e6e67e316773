#include "shell/application.h"

#include "platform/locale.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "shell/option_settings.h"

namespace zb {

Application::Application(Screen& screen, SettingsStore& settingsOfProgram, FileLayer& filesOfProgram,
                         Generator& generator, ApplicationFolders folders)
    : DesktopOfProgram(screen), ModelerState(programDesktop, settingsOfProgram, filesOfProgram),
      frmMain(*this, *this), frmSECSEditor(*this, *this),
      frmFind(programDesktop, [this]() -> NodeTree& { return frmSECSEditor.liveTree(); }),
      frmTRModeler(*this, *this), frmTRMessage(*this, frmTRModeler), frmTRItem(*this, frmTRModeler),
      frmNewProject(*this, folders.application), frmOption(programDesktop, settingsOfProgram),
      frmResult(programDesktop), frmAbout(programDesktop), projects(*this),
      builds(*this, {frmSECSEditor, [this]() -> NodeTree& { return frmSECSEditor.liveTree(); }, frmTRModeler,
                     [this] { showModeler(); }}),
      generator_(generator), folders_(std::move(folders)) {
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
    frmMain.show();
    if (projects.parseProjectPath(trim(commandLine)) || projects.parseProjectPath(getRecentProject(settings)))
        openStartedProject();
    else
        frmMain.disableProjectButtons();
}

void Application::openStartedProject() {
    projects.openProject(projectFilePath());
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
    if (!ProjectName.empty() && !isBlank(frmSECSEditor.walkForModeler())) {
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
    const auto windows = desktop.windows();
    for (Window* window : windows) {
        if (window != &frmMain)
            window->hide();
    }
    frmMain.hide();
    SECSMessageStore = std::make_unique<zb::SECSMessageStore>();
    TRModelStore.reset();
}

void Application::commandNew(Window& /*over*/) {
    if (!projects.newProject())
        return;
    frmMain.enableProjectButtons();
    showEditor();
}

void Application::commandOpen(Window& /*over*/) {
    if (!projects.openProject())
        return;
    frmMain.enableProjectButtons();
    showEditor();
}

void Application::commandSave(Window& /*over*/) {
    projects.saveProject();
}

void Application::commandSaveAs(Window& /*over*/) {
    projects.saveProjectAs();
}

void Application::commandExit() {
    exit();
}

void Application::commandBuildSmd(Window& /*over*/) {
    builds.buildSmd();
}

void Application::commandBuildTmd(Window& /*over*/) {
    builds.buildTmd();
}

void Application::commandBuildPlugIn(Window& /*over*/) {
    if (!builds.buildSmd() || !builds.buildTmd())
        return;
    const std::string result = saveAndGenerate();
    frmResult.clearOldData();
    frmResult.addErrorMsg(result);
    // This kind of plug-in is built into a solution of its own, where its result is looked at.
    if (readSetting(settings, kPlugInType) != "5")
        frmResult.showModal();
}

std::string Application::saveAndGenerate() {
    projects.saveProject();
    return generator_.generate(projectFilePath());
}

void Application::commandOption(Window& /*over*/) {
    frmOption.request();
}

void Application::commandEditor(Window& /*over*/) {
    showEditor();
}

void Application::commandModeler(Window& /*over*/) {
    showModeler();
}

void Application::commandAbout(Window& /*over*/) {
    frmAbout.showModal();
}

} // namespace zb
