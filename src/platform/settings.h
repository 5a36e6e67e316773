#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace zb {

/// The location of the program's settings among the machine-wide keys, and their names.
inline constexpr std::string_view kSettingsKey = "SOFTWARE\\Halvern Works, Inc.\\Zeltorium .NET\\Zeltobench";
/// The value that getOption returns for an option that was never set.
inline constexpr std::string_view kNoOption = "NotExist";

/// Named texts that outlast a run, in two groups: machine-wide values under key paths, and the options of the
/// user. They are in one JSON file, which is read at every request, so that programs that run at the same
/// time see each other's changes. A file that cannot be parsed counts as empty; the first write renames it to
/// settings.json.damaged-N.
class SettingsStore {
public:
    /// The store in this folder; the first write creates it. Nothing is read yet.
    explicit SettingsStore(std::filesystem::path folder);
    /// A store in memory that never touches a file.
    static SettingsStore inMemory();

    SettingsStore(SettingsStore&&) noexcept;
    SettingsStore& operator=(SettingsStore&&) noexcept;
    ~SettingsStore();

    /// The stored value. "" when the key or the value is missing, and for a value of more than 255 bytes in
    /// the ANSI code page.
    std::string readRegValue(std::string_view keyPath, std::string_view valueName) const;
    /// Creates the key when it is missing. A failure leaves the store unchanged and is reported on standard
    /// error only. Invalid UTF-8 is stored with U+FFFD.
    void writeRegValue(std::string_view keyPath, std::string_view valueName, std::string_view value);
    /// The user's option, "NotExist" when it was never set.
    std::string getOption(std::string_view valueName) const;

    /// For scripts and tests: the value at any length, and options that the program itself only reads.
    std::optional<std::string> stored(std::string_view keyPath, std::string_view valueName) const;
    std::optional<std::string> storedOption(std::string_view valueName) const;
    void setOption(std::string_view valueName, std::string_view value);

    /// The code page in which the length of a value is counted; 1252 until it is set.
    void setCodePage(const CodePage& codePage);

private:
    class Storage;
    class FileStorage;
    class MemoryStorage;

    explicit SettingsStore(std::unique_ptr<Storage> storage);

    std::unique_ptr<Storage> storage_;
    CodePage codePage_{1252};
};

} // namespace zb
