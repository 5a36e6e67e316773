#include "platform/settings_file.h"

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

#include "platform/file_replacer.h"
#include "platform/folder_lock.h"
#include "platform/ordered_json.h"
#include "platform/text_file.h"

namespace zb {

namespace {

// The contents of the file keep their order, for those who edit it by hand.
using Json = nlohmann::ordered_json;

// Files beyond these limits were not written by this program, and walking them could exhaust memory or stack.
constexpr std::size_t kLargestFile = std::size_t{16} << 20U;
constexpr std::size_t kDeepest = 64;

bool isObjectOfObjects(const Json& value) {
    if (!value.is_object())
        return false;
    for (const Json& inner : value) {
        if (!inner.is_object())
            return false;
    }
    return true;
}

// Nothing when this is not a settings file.
std::optional<Json> parse(const std::string& bytes) {
    if (bytes.size() > kLargestFile)
        return std::nullopt;
    std::optional<Json> json = readOrderedJson(bytes, kDeepest);
    if (!json || !json->is_object())
        return std::nullopt;
    for (const char* root : {"HKEY_LOCAL_MACHINE", "Zeltobench"}) {
        if (json->contains(root) && !isObjectOfObjects((*json)[root]))
            return std::nullopt;
    }
    return json;
}

// Whether the damaged file was renamed to an unused name.
bool putAside(const std::filesystem::path& path) {
    constexpr int kMostKept = 1000;
    for (int number = 1; number <= kMostKept; ++number) {
        std::filesystem::path kept = path;
        kept += ".damaged-" + std::to_string(number);
        std::error_code error;
        if (std::filesystem::exists(std::filesystem::symlink_status(kept, error)))
            continue;
        std::filesystem::rename(path, kept, error);
        return !error;
    }
    return false;
}

} // namespace

SettingsFile::SettingsFile(std::filesystem::path folder)
    : folder_(std::move(folder)), path_(folder_ / "settings.json") {}

std::optional<std::string> SettingsFile::read(const SettingPlace& place) const {
    const Result<std::string> bytes = readBytes(path_);
    const std::optional<Json> json = bytes ? parse(*bytes) : std::nullopt;
    if (!json)
        return std::nullopt;
    const Json* level = &*json;
    for (const std::string* step : {&place.root, &place.key, &place.name}) {
        const auto found = level->find(*step);
        if (found == level->end())
            return std::nullopt;
        level = &*found;
    }
    return level->is_string() ? std::optional(level->get<std::string>()) : std::nullopt;
}

Result<void> SettingsFile::check() const {
    const Result<std::string> bytes = readBytes(path_);
    if (bytes)
        return parse(*bytes) ? Result<void>() : FileError{EINVAL, "It is damaged"};
    const int number = bytes.error().number;
    return number == ENOENT || number == ENOTDIR ? Result<void>() : bytes.error();
}

Result<void> SettingsFile::write(const SettingPlace& place, const std::string& value) const {
    // Many writers need a moment; a stopped one must not stop this program for good.
    constexpr std::chrono::seconds kLongestWait{30};
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    const FolderLock lock(folder_, kLongestWait);
    if (lock.isBusy())
        return FileError{EBUSY, "another program keeps " + folder_.string() + " locked"};
    Json json = Json::object();
    const Result<std::string> bytes = readBytes(path_);
    if (bytes) {
        std::optional<Json> parsed = parse(*bytes);
        if (parsed) {
            json = std::move(*parsed);
        } else if (!putAside(path_)) {
            return FileError{EIO, path_.string() + " is damaged and cannot be put aside"};
        }
    } else if (bytes.error().number != ENOENT) {
        return FileError{bytes.error().number,
                         "Cannot read " + path_.string() + ": " + bytes.error().description};
    }
    json[place.root][place.key][place.name] = value;
    return replaceFile(path_, json.dump(2) + "\n");
}

} // namespace zb
