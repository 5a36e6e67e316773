#include "controls/desktop.h"
#include "platform/text.h"
#include "project/project_files.h"
#include "shell/application.h"
#include "shell/option_settings.h"
#include "shell/project_lifecycle.h"

#include <cerrno>

namespace zb {

bool ProjectLifecycle::openProject(const std::string& path) {
    if (isBlank(path) && !askWhatToOpen())
        return false;
    makeFolders();
    Result<ProjectFile> file = readProjectFile(app_.projectFilePath());
    // A file that cannot be read opens as an empty project, which must not take its place.
    unread_.reset();
    if (!file && file.error().number != ENOENT)
        unread_ = {app_.projectFilePath(), file.error()};
    Project project = file ? std::move(file).value().project : Project();
    app_.ProjectType = projectTypeOf(project.side);
    app_.frmMain.updateProjectPanels();
    app_.frmSECSEditor.openEditorProject(project.messages);
    app_.frmTRModeler.openModelerProject(std::move(project));
    return true;
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
    auto [folder, name] = splitProjectPath(path);
    app_.ProjectName = std::move(name);
    app_.ProjectPath = std::move(folder);
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

} // namespace zb
