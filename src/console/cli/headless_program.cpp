#include "console/cli/headless_program.h"

#include "shell/project_files.h"
#include "shell/project_history.h"

namespace zb {

HeadlessProgram::HeadlessProgram(const std::string& projectPath, const CodePage& codePage,
                                 Generator& generator)
    : application_(screen_, settings_, files_, generator, {{}, stateFolder().string()}) {
    const ProjectPlace place = splitProjectPath(projectPath);
    application_.ProjectName = place.name;
    application_.ProjectPath = place.folder;
    application_.codePage = codePage;
    readProjectType(application_, projectPath);
    application_.frmSECSEditor.openEditorProject();
    application_.frmTRModeler.openModelerProject();
}

void HeadlessProgram::fillMessageStore() {
    // What a save walk would write goes nowhere.
    std::string sections;
    application_.projectSections = &sections;
    application_.frmSECSEditor.saveEditorProject();
    application_.projectSections = nullptr;
}

} // namespace zb
