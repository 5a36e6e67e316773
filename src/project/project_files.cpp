#include "project/project_files.h"

#include "platform/file_access.h"
#include "platform/guarded_write.h"
#include "platform/text_file.h"
#include "project/project_file_writer.h"
#include "project/project_text.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <utility>

namespace zb {

namespace fs = std::filesystem;

namespace {

// Anything else at the path of the folder makes its creation fail.
std::error_code makeFolder(const std::string& path) {
    std::error_code error;
    if (!fs::is_directory(path, error)) {
        error.clear();
        fs::create_directory(path, error);
    }
    return error;
}

// Bytes that are not text stay unchanged: the file system may use them in names.
std::string withoutLastFour(std::string_view name) {
    for (int character = 0; character < 4 && !name.empty(); ++character) {
        while (name.size() > 1 && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U)
            name.remove_suffix(1);
        name.remove_suffix(1);
    }
    return std::string(name);
}

} // namespace

Result<ProjectFile> readProjectFile(const std::string& path, const Progress& progress) {
    constexpr double kRead = 0.2;
    constexpr double kDecoded = 0.5;
    SystemFileLayer files;
    std::error_code error;
    if (const fs::path itself = fs::canonical(path, error); !error)
        finishGuardedWrite(files, itself);
    const Result<std::string> bytes = readBytes(path);
    if (!bytes)
        return bytes.error();
    progress.part(0, kRead).at(1, 1);
    ProjectText decoded = decodeProject(*bytes);
    progress.part(kRead, kDecoded).at(1, 1);
    ProjectFile file{parseProject(decoded.text, progress.part(kDecoded, 1)), {}, std::move(decoded.fault)};
    if (file.fault.empty() && !hasProjectLine(decoded.text))
        file.fault = "it has neither a project header nor a section of messages";
    file.text = std::move(decoded.text);
    return file;
}

Result<LoadedProject> loadProjectFile(const std::string& path, const Progress& progress) {
    constexpr double kFileRead = 0.3; // the share of the time that the reading of the file takes
    Result<ProjectFile> file = readProjectFile(path, progress.part(0, kFileRead));
    if (!file)
        return file.error();
    LoadedProject loaded{std::move(file).value().project, {}};
    loaded.tree = loaded.project.messages.tree(progress.part(kFileRead, 1));
    return loaded;
}

Result<void> checkProjectFile(FileLayer& files, const std::string& path) {
    if (const Result<void> access = checkFileAccessKeeping(files, path); !access)
        return access.error();
    const Result<std::string> old = readBytes(path);
    return old || old.error().number == ENOENT ? Result<void>() : old.error();
}

ProjectSave replaceProjectFile(FileLayer& files, const fs::path& stateFolder, const std::string& path,
                               std::string_view text) {
    constexpr std::chrono::seconds kLongestWait{2};
    ProjectFileWriter writer(files, stateFolder, path, kLongestWait);
    Result<void> written = writer.write(encodeUtf16(text));
    return {std::move(written), writer.kept()};
}

Result<void> makeProjectFolders(const std::string& projectFolder) {
    for (const std::string& folder :
         {projectFolder, joinPath(projectFolder, "ZeltoPlugIn"), joinPath(projectFolder, "ZeltoInfo")}) {
        if (const std::error_code error = makeFolder(folder))
            return systemError(error.value());
    }
    return {};
}

std::string describeFolderFault(const FileError& error) {
    return "Cannot make directories!\r\n" + error.description + "\r\n(" + std::to_string(error.number) + ")";
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

std::string ProjectPlace::projectFile() const {
    return joinPath(folder, name + ".zbp");
}

std::string ProjectPlace::builtFile(std::string_view ending) const {
    return joinPath(joinPath(folder, "ZeltoInfo"), name + std::string(ending));
}

char pathSeparator() {
    return static_cast<char>(fs::path::preferred_separator);
}

std::string joinPath(const std::string& folder, const std::string& name) {
    const bool isRoot = folder.size() == 1 && folder.front() == pathSeparator();
    return isRoot ? folder + name : folder + pathSeparator() + name;
}

} // namespace zb
