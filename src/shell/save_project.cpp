#include "project/project_files.h"
#include "project/project_text.h"
#include "shell/application.h"
#include "shell/file_error_box.h"
#include "shell/option_settings.h"
#include "shell/project_lifecycle.h"

namespace zb {

bool ProjectLifecycle::saveProject() {
    const std::string path = app_.projectFilePath();
    if (const Result<void> access = checkProjectFile(app_.files, path); !access) {
        showFileError(app_.desktop, path, access.error());
        return false;
    }
    app_.frmSECSEditor.buildMessageText(WalkMode::SaveProject);
    const bool hasSection = !app_.frmSECSEditor.liveTree().empty();
    const ProjectMessages messages =
        hasSection ? ProjectMessages(app_.SECSMessageStore->allTexts()) : ProjectMessages();
    // The text is whole before the file is replaced in one step: a fault, or a stop of the machine, leaves
    // the whole old file.
    const std::string text =
        composeStart(sideOf(app_.ProjectType), messages) + app_.frmTRModeler.saveModelerProject();
    const Result<void> written = replaceProjectFile(app_.files, app_.folders().state, path, text);
    if (!written) {
        showFileError(app_.desktop, path, written.error());
        return false;
    }
    writeSetting(app_.settings, kRecentProject, path);
    return true;
}

} // namespace zb
