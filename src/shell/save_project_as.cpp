#include "project/project_files.h"
#include "shell/application.h"
#include "shell/project_lifecycle.h"

namespace zb {

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
            app_.frmTRModeler.clearAllTRMsgDef();
        app_.takeProjectType(dialog.ProjectType);
        done = makeFolders();
        app_.frmMain.updateProjectPanels();
    }
    saveProject();
}

} // namespace zb
