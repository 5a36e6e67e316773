#include "project/project_files.h"
#include "shell/application.h"
#include "shell/project_lifecycle.h"

namespace zb {

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
        return true;
    }
    app_.ProjectName.clear();
    app_.ProjectPath.clear();
    app_.takeProjectType(1);
    app_.frmMain.updateProjectPanels();
    return false;
}

} // namespace zb
