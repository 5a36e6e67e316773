#include "shell/project_lifecycle.h"

#include "controls/desktop.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_text.h"
#include "project/recent_projects.h"
#include "shell/application.h"
#include "shell/file_error_box.h"
#include "shell/option_settings.h"

#include <cerrno>
#include <filesystem>
#include <tuple>
#include <utility>

namespace zb {

namespace fs = std::filesystem;

namespace {

// A name that nothing has yet: an earlier copy may be all that is left of another day.
fs::path freePath(const fs::path& folder, const std::string& name) {
    std::error_code ignored;
    fs::path path = folder / (name + ".zbp");
    for (int number = 2; fs::exists(fs::symlink_status(path, ignored)); ++number)
        path = folder / (name + "_" + std::to_string(number) + ".zbp");
    return path;
}

} // namespace

bool ProjectLifecycle::newProject() {
    if (askToSave() == Goes::Nowhere)
        return false;
    frmNewProject& dialog = app_.frmNewProject;
    dialog.load();
    for (;;) {
        dialog.requestNew(app_.ProjectPath);
        if (dialog.ProjectName.empty())
            break;
        app_.ProjectName = dialog.ProjectName;
        app_.ProjectPath = dialog.ProjectPath;
        app_.takeProjectType(dialog.ProjectType);
        app_.frmMain.updateProjectPanels();
        if (!makeFolders())
            continue;
        app_.frmSECSEditor.newEditorProject();
        app_.frmTRModeler.newModelerProject();
        app_.restartHistories();
        noteOpened();
        return true;
    }
    app_.ProjectName.clear();
    app_.ProjectPath.clear();
    app_.takeProjectType(1);
    app_.frmMain.updateProjectPanels();
    app_.work.projectClosed();
    return false;
}

bool ProjectLifecycle::openProject(const std::string& path) {
    const std::pair before(app_.ProjectName, app_.ProjectPath);
    if (!isBlank(path))
        takePlace(path);
    else if (!askWhatToOpen())
        return false;
    makeFolders();
    const std::pair place(app_.ProjectName, app_.ProjectPath);
    // As long as it is read, the project in the windows is the one from before.
    std::tie(app_.ProjectName, app_.ProjectPath) = before;
    Opened opened;
    std::optional<Result<LoadedProject>> file = load({place.second, place.first}, opened);
    if (!file)
        return false;
    std::tie(app_.ProjectName, app_.ProjectPath) = place;
    // A file that cannot be read opens as an empty project, which must not take its place.
    unread_.reset();
    if (!*file && file->error().number != ENOENT)
        unread_ = {app_.projectFilePath(), file->error()};
    showProject(*file ? std::move(*file).value() : LoadedProject());
    noteOpened(opened);
    return true;
}

bool ProjectLifecycle::openFile(const std::string& path) {
    const std::pair before(app_.ProjectName, app_.ProjectPath);
    takePlace(path);
    if (!openProject(path)) {
        std::tie(app_.ProjectName, app_.ProjectPath) = before;
        return false;
    }
    app_.frmMain.enableProjectButtons();
    app_.showEditor();
    return true;
}

void ProjectLifecycle::takePlace(const std::string& path) {
    auto [folder, name] = splitProjectPath(path);
    app_.ProjectName = std::move(name);
    app_.ProjectPath = std::move(folder);
}

bool ProjectLifecycle::openRecent(const std::string& path) {
    if (!isFile(path)) {
        RecentProjects(app_.settings).remove(path);
        app_.desktop.post({path + " is no longer there"});
        return false;
    }
    return askToSave() == Goes::On && openProject(path);
}

void ProjectLifecycle::openRecovered(const std::string& path, Project project) {
    takePlace(path);
    makeFolders();
    unread_.reset();
    MessageTree tree = project.messages.tree();
    showProject({std::move(project), std::move(tree)});
    app_.markUnsaved();
    app_.showEditor();
    app_.frmMain.enableProjectButtons();
    noteOpened();
}

void ProjectLifecycle::noteOpened(const Opened& opened) {
    app_.work.projectOpened(opened.work);
    app_.versions.projectOpened(opened.file);
    app_.frmCompare.forget();
    app_.frmRehearsal.forget();
    app_.comparisons.projectOpened();
    noteRecent();
}

void ProjectLifecycle::noteRecent() {
    if (const std::string path = app_.projectFilePath(); isFile(path))
        RecentProjects(app_.settings).add(path);
}

void ProjectLifecycle::showProject(LoadedProject loaded) {
    app_.ProjectType = projectTypeOf(loaded.project.side);
    app_.frmMain.updateProjectPanels();
    app_.frmSECSEditor.openEditorProject(std::move(loaded.tree));
    app_.frmTRModeler.openModelerProject(std::move(loaded.project));
    app_.restartHistories();
}

// All that takes long is done here, so that the windows show the project soon after the last step.
std::optional<Result<LoadedProject>> ProjectLifecycle::load(const ProjectPlace& place, Opened& opened) {
    constexpr double kWatched = 0.1;
    constexpr double kLoaded = 0.85;
    const std::string path = place.folder.empty() ? std::string() : place.projectFile();
    std::optional<Result<LoadedProject>> loaded;
    const auto work = [&](const Progress& progress) {
        // Before it is read: a change of another program meanwhile is not lost.
        if (!path.empty())
            opened.file.emplace().take(path);
        progress.part(0, kWatched).at(1, 1);
        loaded = loadProjectFile(path, progress.part(kWatched, kLoaded));
        if (*loaded)
            opened.work = WorkKeeper::fingerprintOf(loaded->value(), app_.codePage);
        progress.at(1, 1);
    };
    if (!app_.desktop.screen().doLongWork("Opening " + place.name, work))
        loaded.reset();
    return loaded;
}

bool ProjectLifecycle::makeFolders() {
    const Result<void> made = makeProjectFolders(app_.ProjectPath);
    if (!made)
        app_.desktop.showBox(describeFolderFault(made.error()));
    return made.ok();
}

bool ProjectLifecycle::askWhatToOpen() {
    if (askToSave() == Goes::Nowhere)
        return false;
    const bool projectIsOpen = !isBlank(app_.ProjectName);
    const std::string path =
        app_.desktop.pickFile({"Open Project", "Zeltobench Project File(*.zbp)|*.zbp", "zbp",
                               projectIsOpen ? app_.ProjectPath : app_.folders().application});
    if (isBlank(path))
        return false;
    takePlace(path);
    return true;
}

bool ProjectLifecycle::parseProjectPath(std::string path) {
    if (path.empty())
        return false;
    if (path.front() == '"') {
        path.erase(0, 1);
        if (path.ends_with('"'))
            path.pop_back();
    }
    const auto warn = [&](std::string text) {
        app_.desktop.showBox(
            {std::move(text), "Open Zeltobench Project", BoxIcon::Exclamation, BoxButtons::OK});
    };
    if (!path.ends_with("zbp")) {
        warn("Invalid Zeltobench project file(" + path + ")");
        return false;
    }
    auto [folder, name] = splitProjectPath(path);
    if (isFile(joinPath(folder, name + ".zbp"))) {
        app_.ProjectName = std::move(name);
        app_.ProjectPath = std::move(folder);
        return true;
    }
    warn("Cannot find project file(" + path + "),\r\ntherefore Zeltobench opens a blank project!");
    writeSetting(app_.settings, kRecentProject, "");
    app_.ProjectName.clear();
    app_.ProjectPath.clear();
    return false;
}

bool ProjectLifecycle::saveProject() {
    const std::string path = app_.projectFilePath();
    if (unread_ && unread_->path == path) {
        showFileError(app_.desktop, path, unread_->error);
        return false;
    }
    if (const Result<void> access = checkProjectFile(app_.files, path); !access) {
        showFileError(app_.desktop, path, access.error());
        return false;
    }
    // The text is whole before the file is replaced in one step: a fault, or a stop of the machine, leaves
    // the whole old file.
    const std::string text = projectText();
    const bool replaces = app_.versions.isChangedOnDisk(path);
    const ProjectSave save = replaceProjectFile(app_.files, historyFolder(), path, text);
    if (!save.written) {
        showFileError(app_.desktop, path, save.written.error());
        return false;
    }
    if (!save.kept)
        reportUnkeptVersion(save.kept.error());
    writeSetting(app_.settings, kRecentProject, path);
    app_.work.projectSaved(text);
    app_.versions.saved(path, text, replaces && save.kept);
    noteRecent();
    app_.markSaved();
    app_.desktop.post(
        {"Saved " + fs::path(path).filename().string() + ", " + app_.desktop.screen().timeOfDay()});
    app_.comparisons.projectSaved();
    return true;
}

std::string ProjectLifecycle::projectText() {
    app_.frmSECSEditor.buildMessageText(WalkMode::SaveProject);
    const bool hasSection = !app_.frmSECSEditor.liveTree().empty();
    const ProjectMessages messages =
        hasSection ? ProjectMessages(app_.SECSMessageStore->allTexts()) : ProjectMessages();
    return composeStart(sideOf(app_.ProjectType), messages) + app_.frmTRModeler.saveModelerProject();
}

void ProjectLifecycle::reportUnkeptVersion(const FileError& error) {
    // Once: the cause, such as a full disk, seldom disappears by itself.
    if (std::exchange(unkeptReported_, true))
        return;
    app_.desktop.showBox(
        {"The project was saved, but its previous version could not be kept:\r\n" + error.description,
         {},
         BoxIcon::Exclamation,
         BoxButtons::OK});
}

void ProjectLifecycle::saveProjectAs() {
    frmNewProject& dialog = app_.frmNewProject;
    dialog.load();
    for (bool done = false; !done;) {
        dialog.requestSaveAs(app_.ProjectPath, app_.ProjectType);
        if (dialog.ProjectName.empty())
            return;
        app_.ProjectName = dialog.ProjectName;
        app_.ProjectPath = dialog.ProjectPath;
        if (dialog.ProjectType != app_.ProjectType)
            dropModel();
        app_.takeProjectType(dialog.ProjectType);
        done = makeFolders();
        app_.frmMain.updateProjectPanels();
    }
    saveProject();
}

std::string ProjectLifecycle::historyFolder() const {
    const ApplicationFolders& folders = app_.folders();
    if (folders.scratch.empty())
        return folders.state;
    const fs::path inner = fs::path(app_.projectFilePath()).lexically_relative(folders.scratch);
    return inner.empty() || *inner.begin() == ".." ? folders.state : std::string();
}

// The model of the other side means nothing here, so that no undo brings it back.
void ProjectLifecycle::dropModel() {
    app_.frmTRModeler.clearAllTRMsgDef();
    app_.restartHistories();
}

ProjectLifecycle::Goes ProjectLifecycle::askToSave() {
    if (isBlank(app_.ProjectName))
        return Goes::On;
    const Answer answer = app_.desktop.showBox(
        {"Do you want to save current project", {}, BoxIcon::Question, BoxButtons::YesNoCancel});
    if (answer == Answer::Cancel)
        return Goes::Nowhere;
    app_.work.promptBegins();
    if (answer == Answer::Yes && !saveProject())
        app_.work.saveFailedAtPrompt();
    return Goes::On;
}

bool ProjectLifecycle::mayGoOn() {
    return askToSave() == Goes::On;
}

ProjectLifecycle::Exit ProjectLifecycle::confirmExit() {
    return askToSave() == Goes::Nowhere ? Exit::Stay : Exit::Leave;
}

Result<std::string> ProjectLifecycle::keepRecoveryCopy() {
    if (app_.folders().state.empty())
        return systemError(ENOENT);
    const fs::path folder = fs::path(app_.folders().state) / "recovery";
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error)
        fs::permissions(folder, fs::perms::owner_all, error);
    if (error)
        return systemError(error.value());
    const fs::path path = freePath(folder, app_.ProjectName);
    if (const Result<void> kept = replacePrivateFile(app_.files, path, encodeUtf16(projectText())); !kept)
        return kept.error();
    return path.string();
}

void ProjectLifecycle::reportOutOfMemory() {
    std::string text = "There is not enough memory for this command.";
    if (!isBlank(app_.ProjectName)) {
        const Result<std::string> copy = keepRecoveryCopy();
        text += copy ? "\r\nThe project, as it is now, has been kept in " + *copy
                     : "\r\nThe project could not be kept: " + copy.error().description;
    }
    app_.desktop.showBox({text, {}, BoxIcon::Critical, BoxButtons::OK});
}

} // namespace zb
