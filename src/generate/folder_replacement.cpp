#include "generate/folder_replacement.h"

#include "platform/file_layer.h"
#include "platform/folder_exchange.h"
#include "platform/folder_lock.h"
#include "platform/temporary_folder.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace zb::generate {

namespace fs = std::filesystem;

namespace {

/// A folder with this file is one that a generator wrote, and may write again.
constexpr const char* kMark = "zelto-plug-in.txt";
constexpr std::string_view kMarkText =
    "This folder is written by ZeltoGenerator. The next run replaces all of it but files with\n"
    "names such as Handlers.user.h, which stay at their place.\n";

/// Why nothing is replaced.
class Refusal : public std::runtime_error {
public:
    Refusal(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
    int number() const { return number_; }

private:
    int number_;
};

FileError errorOf(const std::error_code& code) {
    return systemError(code.value());
}

/// `name` is how the reason calls the folder.
void checkReplaceable(const fs::path& folder, const std::string& name) {
    const fs::file_status status = fs::symlink_status(folder);
    if (!fs::exists(status))
        return;
    if (!fs::is_directory(status))
        throw fs::filesystem_error({}, std::make_error_code(std::errc::not_a_directory));
    if (!fs::is_empty(folder) && !fs::exists(folder / kMark))
        throw Refusal(ENOTEMPTY, name + " holds files that are no plug-in");
}

/// The mark goes last: what a killed run leaves is still known as a plug-in.
void removePlugIn(const fs::path& folder) {
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(folder, ignored)))
        return;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
    std::vector<fs::path> inside;
    for (fs::directory_iterator entry(folder, ignored); !ignored && entry != fs::directory_iterator();
         entry.increment(ignored)) {
        if (entry->path().filename() != kMark)
            inside.push_back(entry->path());
    }
    for (const fs::path& path : inside)
        removeFolder(path);
    removeFolder(folder);
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

/// A second name of the file, with which it keeps its rights and attributes, and is safe on the disk; or a
/// copy where the file system has no second names.
void keepFile(const fs::directory_entry& file, const fs::path& target) {
    fs::create_directories(target.parent_path());
    fs::remove(target);
    std::error_code error;
    fs::create_hard_link(file.path(), target, error);
    if (!error)
        return;
    fs::copy(file.path(), target, fs::copy_options::copy_symlinks);
    if (!file.is_symlink())
        fs::last_write_time(target, file.last_write_time());
}

void keepUserFiles(const fs::path& from, const fs::path& to) {
    if (!fs::exists(from))
        return;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(from)) {
        const bool isFolder = entry.is_directory() && !entry.is_symlink();
        if (!isFolder && isUserFile(entry.path().filename().string()))
            keepFile(entry, to / entry.path().lexically_relative(from));
    }
}

/// Nobody else can enter a folder that takes the place of another one before it has the rights of that one.
void makeFolder(const fs::path& folder, bool isPrivate) {
    constexpr unsigned kPrivateMode = 0700;
    constexpr unsigned kNewFolderMode = 0777; // reduced by the process's mask
    SystemFileLayer files;
    if (const Result<void> made = files.makeFolder(folder, isPrivate ? kPrivateMode : kNewFolderMode); !made)
        throw fs::filesystem_error({}, folder, std::error_code(made.error().number, std::generic_category()));
}

/// Where the file system cannot exchange folders, a run that is killed here leaves the former one under its
/// other name, and the next run puts it back.
void swapFolders(const fs::path& folder, const fs::path& written, const fs::path& former) {
    const bool exists = fs::exists(folder);
    if (exists && exchangeFolders(folder, written)) {
        removePlugIn(written);
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

void replace(const fs::path& folder, const std::vector<GeneratedFile>& files,
             std::chrono::milliseconds patience) {
    const fs::path parent = folder.parent_path();
    fs::create_directories(parent);
    const FolderLock lock(parent, patience);
    if (lock.isBusy())
        throw Refusal(EBUSY, "another program keeps writing in the folder around it");
    const std::string name = folder.filename().string();
    const fs::path written = parent / ("." + name + ".new");
    const fs::path former = parent / ("." + name + ".former");
    // A run that was killed between its two renames left the folder under this name.
    if (!fs::exists(folder) && fs::exists(former / kMark))
        fs::rename(former, folder);
    checkReplaceable(folder, "the folder");
    for (const fs::path& left : {written, former})
        checkReplaceable(left, "the folder " + left.filename().string() + " beside it");
    removePlugIn(written);
    removePlugIn(former);
    const bool exists = fs::exists(folder);
    makeFolder(written, exists);
    try {
        writeFiles(written, files);
        keepUserFiles(folder, written);
        if (exists)
            giveFolderRights(folder, written);
        swapFolders(folder, written, former);
    } catch (...) {
        removePlugIn(written);
        throw;
    }
    removePlugIn(former);
}

} // namespace

bool isUserFile(std::string_view name) {
    const std::size_t place = name.find(".user.");
    return place != std::string_view::npos && place > 0;
}

Result<void> replaceFolder(const std::string& folder, const std::vector<GeneratedFile>& files,
                           std::chrono::milliseconds patience) {
    try {
        fs::path path = fs::weakly_canonical(fs::absolute(folder));
        if (!path.has_filename())
            path = path.parent_path();
        replace(path, files, patience);
        return {};
    } catch (const Refusal& refusal) {
        return FileError{refusal.number(), refusal.what()};
    } catch (const fs::filesystem_error& fault) {
        return errorOf(fault.code());
    }
}

} // namespace zb::generate
