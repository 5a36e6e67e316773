#include "platform/file_access.h"

#include "platform/file_layer.h"
#include "platform/file_replacer.h"

#include <cerrno>
#include <filesystem>

namespace zb {

namespace {

constexpr unsigned kNewFileMode = 0666;

Result<void> createAndRemove(FileLayer& files, const std::string& path) {
    const Result<int> descriptor = files.create(path, kNewFileMode);
    // Another program has just created it.
    if (!descriptor && descriptor.error().number == EEXIST)
        return files.checkWritable(path);
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
        // A link to a missing file: the save itself creates that file.
        const bool link = std::filesystem::is_symlink(path, error);
        return link ? Result<void>() : createAndRemove(files, path);
    }
    if (error)
        return systemError(error.value());
    if (status.type() == std::filesystem::file_type::directory)
        return systemError(EISDIR);
    return files.checkWritable(path);
}

} // namespace

Result<void> checkFileAccess(FileLayer& files, const std::string& path) {
    Result<void> result = inspect(files, path);
    std::error_code error;
    if (result && std::filesystem::exists(path, error))
        return replaceFile(files, path, {});
    return result;
}

Result<void> checkFileAccessKeeping(FileLayer& files, const std::string& path) {
    return inspect(files, path);
}

std::string describeFileFault(const FileError& error) {
    return describeSystemError(error.number) + "(" + std::to_string(error.number) + ")";
}

Result<void> deleteFileIfExists(FileLayer& files, const std::string& path) {
    Result<void> removed = files.remove(path);
    return removed || removed.error().number != ENOENT ? removed : Result<void>();
}

} // namespace zb
