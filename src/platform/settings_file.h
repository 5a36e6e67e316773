#pragma once

#include <compare>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/result.h"

namespace zb {

/// The location of a setting in the file: root, then key, then name.
struct SettingPlace {
    std::string root;
    std::string key;
    std::string name;

    auto operator<=>(const SettingPlace&) const = default; // NOLINT(modernize-use-nullptr): a false finding
};

/// The JSON file settings.json of one folder. It is read at every call; contents other than the settings are
/// kept.
class SettingsFile {
public:
    explicit SettingsFile(std::filesystem::path folder);

    /// The text at this location; nothing when there is none, or no valid file.
    std::optional<std::string> read(const SettingPlace& place) const;
    /// Why no setting of the file can be read. It is no fault that there is none.
    Result<void> check() const;
    const std::filesystem::path& path() const { return path_; }
    /// Sets the text at this place, valid UTF-8 all. A damaged file is kept under another name first. Another
    /// program that writes is waited for. When anything fails, nothing is changed.
    Result<void> write(const SettingPlace& place, const std::string& value) const;

private:
    std::filesystem::path folder_;
    std::filesystem::path path_;
};

} // namespace zb
