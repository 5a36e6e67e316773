#include "messages/module_state.h"

#include <filesystem>

namespace zb {

char pathSeparator() {
    return static_cast<char>(std::filesystem::path::preferred_separator);
}

std::string joinPath(const std::string& folder, const std::string& name) {
    const bool isRoot = folder.size() == 1 && folder.front() == pathSeparator();
    return isRoot ? folder + name : folder + pathSeparator() + name;
}

std::string ModuleState::projectFilePath() const {
    return ProjectPath.empty() ? std::string() : joinPath(ProjectPath, ProjectName + ".zbp");
}

std::string ModuleState::smdFilePath() const {
    return joinPath(joinPath(ProjectPath, "ZeltoInfo"), ProjectName + ".smd");
}

std::string ModuleState::mdfFilePath() const {
    return joinPath(joinPath(ProjectPath, "ZeltoInfo"), ProjectName + ".mdf");
}

std::string ModuleState::tmdFilePath() const {
    return joinPath(joinPath(ProjectPath, "ZeltoInfo"), ProjectName + ".tmd");
}

} // namespace zb
