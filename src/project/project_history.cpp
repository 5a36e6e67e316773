#include "project/project_history.h"

#include "platform/file_layer.h"
#include "platform/file_replacer.h"
#include "platform/text_file.h"
#include "project/version_thinning.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <iterator>
#include <string_view>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kExtension = ".zbp";

// FNV-1a, 64 bits: short, and the same on every machine.
std::string fingerprint(std::string_view text) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char character : text) {
        hash ^= static_cast<unsigned char>(character);
        hash *= 1099511628211ULL;
    }
    std::array<char, 17> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16).ptr;
    return {digits.data(), end};
}

// The part of a project's name that, with the rest added, gives a valid file name.
std::string beginning(std::string name) {
    constexpr std::size_t kMostOfName = 200;
    std::size_t end = std::min(name.size(), kMostOfName);
    while (end > 0 && end < name.size() && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U)
        --end;
    name.resize(end);
    return name;
}

std::string versionName(int number) {
    std::string digits = std::to_string(number);
    constexpr std::size_t kWidth = 6;
    if (digits.size() < kWidth)
        digits.insert(0, kWidth - digits.size(), '0');
    return digits + std::string(kExtension);
}

// Names and contents of projects are private.
Result<void> makeFolders(FileLayer& files, const fs::path& folder) {
    constexpr unsigned kPrivateMode = 0700;
    std::error_code error;
    if (fs::is_directory(folder, error))
        return {};
    if (folder.has_parent_path() && folder.parent_path() != folder) {
        if (const Result<void> parent = makeFolders(files, folder.parent_path()); !parent)
            return parent.error();
    }
    const Result<void> made = files.makeFolder(folder, kPrivateMode);
    return made || made.error().number == EEXIST ? Result<void>() : made;
}

fs::path wholePath(const fs::path& projectFile) {
    std::error_code error;
    fs::path whole = fs::weakly_canonical(projectFile, error);
    return error ? fs::absolute(projectFile, error) : whole;
}

// In each folder: the fingerprint of what was saved last, a line end, and the path of the project.
constexpr const char* kNote = "project";

std::string fingerprintOf(std::string_view bytes) {
    return fingerprint(bytes) + "-" + std::to_string(bytes.size());
}

VersionAge ageOf(const ProjectHistory::Version& version) {
    const auto time = std::chrono::file_clock::to_sys(version.time);
    return {std::chrono::time_point_cast<std::chrono::system_clock::duration>(time), version.bytes};
}

} // namespace

Result<void> ProjectHistory::keep(const fs::path& projectFile) {
    if (stateFolder_.empty())
        return {};
    const Result<std::string> now = readBytes(projectFile);
    return now ? keepWork(projectFile, *now) : Result<void>();
}

Result<void> ProjectHistory::keepWork(const fs::path& projectFile, std::string_view bytes) {
    if (stateFolder_.empty() || bytes.empty())
        return {};
    const std::vector<Version> kept = versions(projectFile);
    if (!kept.empty()) {
        const Result<std::string> newest = readBytes(kept.back().path);
        if (newest && *newest == bytes)
            return {};
    }
    const Result<fs::path> folder = ownFolder(projectFile);
    if (!folder)
        return folder.error();
    const int number = kept.empty() ? 1 : kept.back().number + 1;
    if (const auto written = replacePrivateFile(files_, *folder / versionName(number), bytes); !written)
        return written.error();
    const std::vector<Version> all = versions(projectFile);
    std::vector<VersionAge> ages;
    std::transform(all.begin(), all.end(), std::back_inserter(ages), ageOf);
    for (const std::size_t position : versionsToDrop(ages, std::chrono::system_clock::now()))
        static_cast<void>(files_.remove(all[position].path));
    return {};
}

void ProjectHistory::noteSaved(const fs::path& projectFile, std::string_view bytes) {
    const fs::path folder = placeOf(projectFile);
    std::error_code error;
    // Without the note a moved project starts a new history, which is no reason to report a failed save.
    if (!stateFolder_.empty() && fs::is_directory(folder, error))
        static_cast<void>(replacePrivateFile(files_, folder / kNote,
                                             fingerprintOf(bytes) + "\n" + wholePath(projectFile).string()));
}

std::vector<ProjectHistory::Version> ProjectHistory::versions(const fs::path& projectFile) const {
    std::vector<Version> found;
    if (stateFolder_.empty())
        return found;
    std::error_code error;
    for (fs::directory_iterator at(folderOf(projectFile), error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        const fs::directory_entry& entry = *at;
        const std::string stem = entry.path().stem().string();
        Version version;
        const auto [end, fault] = std::from_chars(stem.data(), stem.data() + stem.size(), version.number);
        if (fault != std::errc() || end != stem.data() + stem.size() ||
            entry.path().extension() != kExtension)
            continue;
        std::error_code ignored;
        version.bytes = entry.file_size(ignored);
        version.time = entry.last_write_time(ignored);
        version.path = entry.path();
        found.push_back(std::move(version));
    }
    std::sort(found.begin(), found.end(),
              [](const Version& left, const Version& right) { return left.number < right.number; });
    return found;
}

Result<fs::path> ProjectHistory::restore(const fs::path& projectFile, int number) {
    const std::vector<Version> kept = versions(projectFile);
    const auto wanted =
        std::find_if(kept.begin(), kept.end(), [&](const Version& v) { return v.number == number; });
    if (wanted == kept.end())
        return FileError{ENOENT, "there is no version " + std::to_string(number)};
    const Result<std::string> bytes = readBytes(wanted->path);
    if (!bytes)
        return bytes.error();
    const std::string base = beginning(projectFile.stem().string()) + "_version" + std::to_string(number);
    fs::path target = projectFile.parent_path() / (base + std::string(kExtension));
    std::error_code error;
    for (int copy = 2; fs::exists(fs::symlink_status(target, error)); ++copy)
        target = projectFile.parent_path() / (base + "_" + std::to_string(copy) + std::string(kExtension));
    if (const Result<void> written = replacePrivateFile(files_, target, *bytes); !written)
        return written.error();
    if (fs::is_regular_file(projectFile, error)) {
        if (const Result<void> given = giveRights(projectFile, target); !given)
            return given.error();
    }
    return target;
}

Result<void> ProjectHistory::giveRights(const fs::path& from, const fs::path& to) {
    if (Result<void> copied = files_.copyAccess(from, to); !copied)
        return copied;
    std::error_code error;
    fs::permissions(to, fs::status(from, error).permissions() & fs::perms::mask, error);
    return error ? Result<void>(systemError(error.value())) : Result<void>();
}

fs::path ProjectHistory::placeOf(const fs::path& projectFile) const {
    const fs::path whole = wholePath(projectFile);
    return stateFolder_ / "history" / (beginning(whole.stem().string()) + "-" + fingerprint(whole.string()));
}

fs::path ProjectHistory::folderOf(const fs::path& projectFile) const {
    fs::path place = placeOf(projectFile);
    std::error_code error;
    if (fs::is_directory(place, error))
        return place;
    const fs::path before = folderBeforeMove(projectFile);
    return before.empty() ? place : before;
}

// The folder of a project that was saved with the same content, and is no longer where it was.
fs::path ProjectHistory::folderBeforeMove(const fs::path& projectFile) const {
    const Result<std::string> now = readBytes(projectFile);
    if (!now)
        return {};
    const std::string wanted = fingerprintOf(*now) + "\n";
    std::error_code error;
    for (fs::directory_iterator at(stateFolder_ / "history", error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        const Result<std::string> note = readBytes(at->path() / kNote);
        std::error_code ignored;
        if (note && note->starts_with(wanted) && !fs::exists(note->substr(wanted.size()), ignored))
            return at->path();
    }
    return {};
}

Result<fs::path> ProjectHistory::ownFolder(const fs::path& projectFile) {
    fs::path place = placeOf(projectFile);
    const fs::path now = folderOf(projectFile);
    if (now != place) {
        if (const Result<void> renamed = files_.rename(now, place); !renamed)
            return renamed.error();
        return place;
    }
    if (const Result<void> made = makeFolders(files_, place); !made)
        return made.error();
    return place;
}

} // namespace zb
