#include "outputs/file_access.h"

#include "controls/desktop.h"
#include "messages/module_state.h"
#include "platform/file_layer.h"
#include "platform/file_replacer.h"

#include <cerrno>
#include <filesystem>

namespace zb {

namespace {

constexpr unsigned kNewFileMode = 0666;

Result<void> createAndRemove(FileLayer& files, const std::string& path) {
    const Result<int> descriptor = files.create(path, kNewFileMode);
    if (!descriptor)
        return descriptor.error();
    const Result<void> closed = files.close(*descriptor);
    const Result<void> removed = files.remove(path);
    return closed ? removed : closed;
}

Result<void> inspect(FileLayer& files, const std::string& path) {
    if (path.empty())
        return systemError(ENOENT);
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        // A link that leads to nothing yet: what it leads to is made by the save itself.
        const bool link = std::filesystem::is_symlink(path, error);
        return link ? Result<void>() : createAndRemove(files, path);
    }
    if (error)
        return systemError(error.value());
    if (status.type() == std::filesystem::file_type::directory)
        return systemError(EISDIR);
    return files.checkWritable(path);
}

bool shown(ModuleState& state, const std::string& path, const Result<void>& result) {
    if (!result)
        showFileError(state, path, result.error());
    return result.ok();
}

} // namespace

bool checkFileAccess(ModuleState& state, const std::string& path) {
    Result<void> result = inspect(state.files, path);
    std::error_code error;
    if (result && std::filesystem::exists(path, error))
        result = replaceFile(state.files, path, {});
    return shown(state, path, result);
}

bool checkFileAccessKeeping(ModuleState& state, const std::string& path) {
    return shown(state, path, inspect(state.files, path));
}

Result<void> deleteFileIfExists(FileLayer& files, const std::string& path) {
    Result<void> removed = files.remove(path);
    return removed || removed.error().number != ENOENT ? removed : Result<void>();
}

void showFileError(ModuleState& state, const std::string& path, const FileError& error) {
    const std::string name = std::filesystem::path(path).filename().string();
    state.desktop.showBox({describeSystemError(error.number) + "(" + std::to_string(error.number) + ")",
                           std::string(kApplicationTitle) + " - " + name, BoxIcon::Critical, BoxButtons::OK});
}

} // namespace zb
