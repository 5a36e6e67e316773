#include "project/module_state.h"

#include "project/project_files.h"

namespace zb {

void ModuleState::takeProjectType(int type) {
    ProjectType = type;
    if (TRModelStore)
        TRModelStore->setProjectType(type);
}

ProjectView ModuleState::view() const {
    return {sideOf(ProjectType), *SECSMessageStore, TRModelStore.get(), sequences};
}

std::string ModuleState::projectFilePath() const {
    return ProjectPath.empty() ? std::string() : ProjectPlace{ProjectPath, ProjectName}.projectFile();
}

std::string ModuleState::smdFilePath() const {
    return ProjectPlace{ProjectPath, ProjectName}.builtFile(".smd");
}

std::string ModuleState::mdfFilePath() const {
    return ProjectPlace{ProjectPath, ProjectName}.builtFile(".mdf");
}

std::string ModuleState::tmdFilePath() const {
    return ProjectPlace{ProjectPath, ProjectName}.builtFile(".tmd");
}

} // namespace zb
