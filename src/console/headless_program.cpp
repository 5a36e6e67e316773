#include "console/headless_program.h"

#include "console/loaded_project.h"
#include "messages/smd/smd_reader.h"
#include "model/sequence_lines.h"
#include "platform/user_folders.h"
#include "shell/project_files.h"

#include <filesystem>

namespace zb {

HeadlessProgram::HeadlessProgram(const std::string& path, const LoadedProject& project, Generator& generator)
    : application_(screen_, settings_, files_, generator, {{}, stateFolder().string()}) {
    const ProjectPlace place = splitProjectPath(path);
    application_.ProjectName = place.name;
    application_.ProjectPath = place.folder;
    application_.codePage = project.codePage;
    application_.ProjectType = projectTypeOf(project.text);
    std::error_code error;
    canSave_ = std::filesystem::equivalent(application_.projectFilePath(), path, error);
    if (canSave_) {
        application_.frmSECSEditor.openEditorProject();
        application_.frmTRModeler.openModelerProject();
        return;
    }
    readSmdText(application_.frmSECSEditor.liveTree(), project.text, application_.frmSECSEditor);
    application_.frmTRModeler.newModelerProject();
    application_.TRModelStore->loadModelText(project.text);
    application_.frmTRModeler.sequenceView().show(readSequences(project.text));
}

void HeadlessProgram::fillMessageStore() {
    // What a save walk would write goes nowhere.
    std::string sections;
    application_.projectSections = &sections;
    application_.frmSECSEditor.saveEditorProject();
    application_.projectSections = nullptr;
}

} // namespace zb
