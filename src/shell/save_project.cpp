#include "outputs/file_access.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_history.h"
#include "shell/application.h"
#include "shell/option_settings.h"
#include "shell/project_lifecycle.h"

#include <cerrno>

namespace zb {

namespace {

std::string projectHeader(int projectType) {
    return "\r\n###[PROJECT INFORMATION]\r\nProjectType=" + std::to_string(projectType) + "\r\n";
}

} // namespace

bool ProjectLifecycle::saveProject() {
    const std::string path = app_.projectFilePath();
    if (!checkFileAccessKeeping(app_, path))
        return false;
    // What cannot be read opened as an empty project, and could not be kept either.
    if (const auto old = readBytes(path); !old && old.error().number != ENOENT) {
        showFileError(app_, path, old.error());
        return false;
    }
    // The sections gather in memory and take the file's place together: a fault between two of them, or a
    // stop of the machine, leaves the whole old file.
    std::string text = projectHeader(app_.ProjectType);
    app_.projectSections = &text;
    const std::string status = app_.frmSECSEditor.saveEditorProject();
    app_.projectSections = nullptr;
    if (isBlank(status))
        text += app_.frmTRModeler.saveModelerProject();
    // A version that cannot be kept is no reason to keep the user from saving.
    static_cast<void>(ProjectHistory(app_.files, app_.folders().state).keep(path));
    if (const Result<void> written = replaceFile(app_.files, path, encodeUtf16(text)); !written) {
        showFileError(app_, path, written.error());
        return false;
    }
    writeSetting(app_.settings, kRecentProject, path);
    return true;
}

} // namespace zb
