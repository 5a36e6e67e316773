#include "generate/folder_replacement.h"

#include "platform/folder_exchange.h"
#include "platform/folder_lock.h"
#include "platform/temporary_folder.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace zb::generate {

namespace fs = std::filesystem;

namespace {

/// A folder with this file is one that a generator wrote, and may write again.
constexpr const char* kMark = "zelto-plug-in.txt";
constexpr std::string_view kMarkText =
    "This folder is written by ZeltoGenerator. The next run replaces all of it but files with\n"
    "names such as Handlers.user.h, which stay at their place.\n";
constexpr std::chrono::seconds kPatience{10};

FileError errorOf(const std::error_code& code) {
    return systemError(code.value());
}

void checkReplaceable(const fs::path& folder) {
    const fs::file_status status = fs::status(folder);
    if (!fs::exists(status))
        return;
    if (!fs::is_directory(status))
        throw fs::filesystem_error({}, std::make_error_code(std::errc::not_a_directory));
    if (!fs::is_empty(folder) && !fs::exists(folder / kMark))
        throw fs::filesystem_error({}, std::make_error_code(std::errc::directory_not_empty));
}

void writeFile(const fs::path& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file)
        throw fs::filesystem_error({}, path,
                                   std::error_code(errno == 0 ? EIO : errno, std::generic_category()));
}

void writeFiles(const fs::path& folder, const std::vector<GeneratedFile>& files) {
    fs::create_directories(folder);
    writeFile(folder / kMark, kMarkText);
    fs::path lastParent;
    for (const GeneratedFile& file : files) {
        const fs::path path = folder / file.path;
        if (path.parent_path() != lastParent) {
            lastParent = path.parent_path();
            fs::create_directories(lastParent);
        }
        writeFile(path, file.text);
    }
}

void copyUserFiles(const fs::path& from, const fs::path& to) {
    if (!fs::exists(from))
        return;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(from)) {
        if (entry.is_directory() || !isUserFile(entry.path().filename().string()))
            continue;
        const fs::path target = to / fs::relative(entry.path(), from);
        fs::create_directories(target.parent_path());
        fs::copy(entry.path(), target,
                 fs::copy_options::copy_symlinks | fs::copy_options::overwrite_existing);
        if (!entry.is_symlink())
            fs::last_write_time(target, entry.last_write_time());
    }
}

/// Where the file system cannot exchange folders, a run that is killed here leaves the former one under its
/// other name, and the next run puts it back.
void swapFolders(const fs::path& folder, const fs::path& written, const fs::path& former) {
    const bool exists = fs::exists(folder);
    if (exists && exchangeFolders(folder, written)) {
        removeFolder(written);
        return;
    }
    if (exists)
        fs::rename(folder, former);
    std::error_code error;
    fs::rename(written, folder, error);
    if (!error)
        return;
    if (exists)
        fs::rename(former, folder);
    throw fs::filesystem_error({}, error);
}

void replace(const fs::path& folder, const std::vector<GeneratedFile>& files) {
    const fs::path parent = folder.parent_path();
    fs::create_directories(parent);
    const FolderLock lock(parent, kPatience);
    const std::string name = folder.filename().string();
    const fs::path written = parent / ("." + name + ".new");
    const fs::path former = parent / ("." + name + ".former");
    // A run that was killed between its two renames left the folder under this name.
    if (!fs::exists(folder) && fs::exists(former / kMark))
        fs::rename(former, folder);
    checkReplaceable(folder);
    removeFolder(written);
    removeFolder(former);
    try {
        writeFiles(written, files);
        copyUserFiles(folder, written);
        swapFolders(folder, written, former);
    } catch (...) {
        removeFolder(written);
        throw;
    }
    removeFolder(former);
}

} // namespace

bool isUserFile(std::string_view name) {
    const std::size_t place = name.find(".user.");
    return place != std::string_view::npos && place > 0;
}

Result<void> replaceFolder(const std::string& folder, const std::vector<GeneratedFile>& files) {
    try {
        fs::path path = fs::weakly_canonical(fs::absolute(folder));
        if (!path.has_filename())
            path = path.parent_path();
        replace(path, files);
        return {};
    } catch (const fs::filesystem_error& fault) {
        if (fault.code() == std::errc::directory_not_empty)
            return FileError{ENOTEMPTY, "the folder holds files that are no plug-in"};
        return errorOf(fault.code());
    }
}

} // namespace zb::generate
