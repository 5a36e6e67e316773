#include "project/project_files.h"
#include "project/project_text.h"
#include "shell/application.h"
#include "shell/file_error_box.h"
#include "shell/option_settings.h"
#include "shell/project_lifecycle.h"

#include <filesystem>
#include <utility>

namespace zb {

namespace {

// Where the versions of a project are kept; empty for one that goes with its folder.
std::string historyFolderFor(const ApplicationFolders& folders, const std::string& path) {
    namespace fs = std::filesystem;
    if (folders.scratch.empty())
        return folders.state;
    const fs::path inner = fs::path(path).lexically_relative(folders.scratch);
    return inner.empty() || *inner.begin() == ".." ? folders.state : std::string();
}

} // namespace

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
    const ProjectSave save =
        replaceProjectFile(app_.files, historyFolderFor(app_.folders(), path), path, text);
    if (!save.written) {
        showFileError(app_.desktop, path, save.written.error());
        return false;
    }
    if (!save.kept)
        reportUnkeptVersion(save.kept.error());
    writeSetting(app_.settings, kRecentProject, path);
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

} // namespace zb
