#include "project/project_history.h"

#include "platform/file_layer.h"
#include "platform/file_replacer.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
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

// Of a project's name, so much that what is put behind it leaves a name that file systems take.
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

Result<void> makeFolders(FileLayer& files, const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error))
        return {};
    if (folder.has_parent_path() && folder.parent_path() != folder) {
        if (const Result<void> parent = makeFolders(files, folder.parent_path()); !parent)
            return parent.error();
    }
    const Result<void> made = files.makeFolder(folder);
    return made || made.error().number == EEXIST ? Result<void>() : made;
}

} // namespace

Result<void> ProjectHistory::keep(const fs::path& projectFile) {
    if (stateFolder_.empty())
        return {};
    const Result<std::string> now = readBytes(projectFile);
    if (!now || now->empty())
        return {};
    const std::vector<Version> kept = versions(projectFile);
    if (!kept.empty()) {
        const Result<std::string> newest = readBytes(kept.back().path);
        if (newest && *newest == *now)
            return {};
    }
    const fs::path folder = folderOf(projectFile);
    if (const Result<void> made = makeFolders(files_, folder); !made)
        return made.error();
    const int number = kept.empty() ? 1 : kept.back().number + 1;
    if (const Result<void> written = replaceFile(files_, folder / versionName(number), *now); !written)
        return written.error();
    for (std::size_t i = 0; i + kMostVersions < kept.size() + 1; ++i)
        static_cast<void>(files_.remove(kept[i].path));
    return {};
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
    for (int copy = 2; fs::exists(target, error); ++copy)
        target = projectFile.parent_path() / (base + "_" + std::to_string(copy) + std::string(kExtension));
    if (const Result<void> written = replaceFile(files_, target, *bytes); !written)
        return written.error();
    return target;
}

fs::path ProjectHistory::folderOf(const fs::path& projectFile) const {
    std::error_code error;
    fs::path whole = fs::weakly_canonical(projectFile, error);
    if (error)
        whole = fs::absolute(projectFile, error);
    return stateFolder_ / "history" / (beginning(whole.stem().string()) + "-" + fingerprint(whole.string()));
}

} // namespace zb
