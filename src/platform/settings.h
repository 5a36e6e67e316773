#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace zb {

// Where the program's settings lie among the machine-wide keys, and their names there.
inline constexpr std::string_view kSettingsKey = "SOFTWARE\\Halvern Works, Inc.\\Zeltorium .NET\\Zeltobench";
// What getOption answers for an option that was never set.
inline constexpr std::string_view kNoOption = "NotExist";

// Named texts that outlast a run, in two groups: machine-wide values under key paths, and the options of the
// user. They lie in one JSON file, which is read at every question, so that programs that run side by side
// see what the others wrote. A file that cannot be understood counts as empty; the first write puts it aside
// as settings.json.damaged-N.
class SettingsStore {
public:
    // The store in this folder; it is made by the first write. Nothing is read yet.
    explicit SettingsStore(std::filesystem::path folder);
    // A store that ends with this object and never touches a file.
    static SettingsStore inMemory();

    SettingsStore(SettingsStore&&) noexcept;
    SettingsStore& operator=(SettingsStore&&) noexcept;
    ~SettingsStore();

    // The value as it was written. "" when the key or the value is missing, and for a value that takes more
    // than 255 bytes in the ANSI code page.
    std::string readRegValue(std::string_view keyPath, std::string_view valueName) const;
    // Creates the key when it is missing. A failure leaves the store as it was and is reported on standard
    // error alone. Invalid UTF-8 is stored with U+FFFD.
    void writeRegValue(std::string_view keyPath, std::string_view valueName, std::string_view value);
    // The user's option, "NotExist" when it was never set.
    std::string getOption(std::string_view valueName) const;

    // For scripts and tests: the value whatever its length, and options that the program itself only reads.
    std::optional<std::string> stored(std::string_view keyPath, std::string_view valueName) const;
    std::optional<std::string> storedOption(std::string_view valueName) const;
    void setOption(std::string_view valueName, std::string_view value);

    // The code page in which the length of a value counts; 1252 until it is set.
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
