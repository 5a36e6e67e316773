#include "shell/project_files.h"

#include "controls/desktop.h"
#include "messages/module_state.h"
#include "platform/number.h"
#include "platform/result.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <filesystem>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kProjectInformation = "###[PROJECT INFORMATION]";
constexpr int kHost = 1;
constexpr int kEquipment = 2;

// What else may stand in a folder's place is a failure of its making.
std::error_code makeFolder(const std::string& path) {
    std::error_code error;
    if (!fs::is_directory(path, error)) {
        error.clear();
        fs::create_directory(path, error);
    }
    return error;
}

// Bytes that are no text stay as they are: the file system may know a file by them.
std::string withoutLastFour(std::string_view name) {
    for (int character = 0; character < 4 && !name.empty(); ++character) {
        while (name.size() > 1 && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U)
            name.remove_suffix(1);
        name.remove_suffix(1);
    }
    return std::string(name);
}

} // namespace

bool makeProjectFolders(ModuleState& state) {
    for (const std::string& folder : {state.ProjectPath, joinPath(state.ProjectPath, "ZeltoPlugIn"),
                                      joinPath(state.ProjectPath, "ZeltoInfo")}) {
        const std::error_code error = makeFolder(folder);
        if (!error)
            continue;
        state.desktop.showBox("Cannot make directories!\r\n" + describeSystemError(error.value()) + "\r\n(" +
                              std::to_string(error.value()) + ")");
        return false;
    }
    return true;
}

int projectTypeOf(std::string_view projectText) {
    LineReader lines(projectText);
    auto line = lines.next();
    while (line && *line != kProjectInformation)
        line = lines.next();
    const auto typeLine = line ? lines.next() : std::nullopt;
    if (!typeLine)
        return kHost;
    const auto pieces = split(*typeLine, "=");
    const bool saysEquipment =
        pieces.size() > 1 && trim(pieces[0]) == "ProjectType" && valueOf(pieces[1]) == kEquipment;
    // A file that ends behind its header counts as a host's.
    return saysEquipment && !lines.atEnd() ? kEquipment : kHost;
}

bool readProjectType(ModuleState& state, const std::string& path) {
    state.ProjectType = kHost;
    const auto bytes = readBytes(path);
    if (!bytes)
        return false;
    state.ProjectType = projectTypeOf(decodeProject(*bytes).text);
    return true;
}

bool isFile(const std::string& path) {
    std::error_code error;
    return fs::exists(path, error) && !fs::is_directory(path, error);
}

ProjectPlace splitProjectPath(const std::string& path) {
    std::error_code error;
    std::string whole = path;
    if (!fs::path(path).is_absolute()) {
        const fs::path here = fs::current_path(error);
        if (!error)
            whole = (here / path).string();
    }
    const auto last = whole.rfind(pathSeparator());
    if (last == std::string::npos)
        return {{}, withoutLastFour(whole)};
    // The root keeps its separator: an empty folder would mean that no project is open.
    return {whole.substr(0, last == 0 ? 1 : last), withoutLastFour(std::string_view(whole).substr(last + 1))};
}

} // namespace zb
