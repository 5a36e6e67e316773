#include "platform/settings.h"

#include <iostream>
#include <map>
#include <utility>

#include "platform/printable.h"
#include "platform/settings_file.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr std::string_view kMachine = "HKEY_LOCAL_MACHINE";
constexpr std::string_view kApplication = "Zeltobench";
constexpr std::string_view kOptionSection = "ZeltobenchOption";
constexpr std::size_t kLongestRead = 255;

SettingPlace machinePlace(std::string_view keyPath, std::string_view valueName) {
    return {std::string(kMachine), sanitizeUtf8(keyPath), sanitizeUtf8(valueName)};
}

SettingPlace optionPlace(std::string_view valueName) {
    return {std::string(kApplication), std::string(kOptionSection), sanitizeUtf8(valueName)};
}

} // namespace

class SettingsStore::Storage {
public:
    Storage() = default;
    virtual ~Storage() = default;
    Storage(const Storage&) = delete;
    Storage& operator=(const Storage&) = delete;
    virtual std::optional<std::string> read(const SettingPlace& place) const = 0;
    virtual void write(const SettingPlace& place, const std::string& value) = 0;
};

class SettingsStore::FileStorage : public Storage {
public:
    explicit FileStorage(std::filesystem::path folder) : file_(std::move(folder)) {}
    std::optional<std::string> read(const SettingPlace& place) const override { return file_.read(place); }
    void write(const SettingPlace& place, const std::string& value) override {
        // The program continues without it: a setting is no reason to disturb the user. The reason is on
        // standard error.
        if (const Result<void> written = file_.write(place, value); !written) {
            std::cerr << "The setting " << printable(place.name)
                      << " was not saved: " << printable(written.error().description) << std::endl;
        }
    }

private:
    SettingsFile file_;
};

class SettingsStore::MemoryStorage : public Storage {
public:
    std::optional<std::string> read(const SettingPlace& place) const override {
        const auto found = values_.find(place);
        return found == values_.end() ? std::nullopt : std::optional(found->second);
    }
    void write(const SettingPlace& place, const std::string& value) override { values_[place] = value; }

private:
    std::map<SettingPlace, std::string> values_;
};

SettingsStore::SettingsStore(std::filesystem::path folder)
    : SettingsStore(std::make_unique<FileStorage>(std::move(folder))) {}

SettingsStore::SettingsStore(std::unique_ptr<Storage> storage) : storage_(std::move(storage)) {}

SettingsStore SettingsStore::inMemory() {
    return SettingsStore(std::make_unique<MemoryStorage>());
}

SettingsStore::SettingsStore(SettingsStore&&) noexcept = default;
SettingsStore& SettingsStore::operator=(SettingsStore&&) noexcept = default;
SettingsStore::~SettingsStore() = default;

std::string SettingsStore::readRegValue(std::string_view keyPath, std::string_view valueName) const {
    std::string value = stored(keyPath, valueName).value_or("");
    return codePage_.ansiByteLength(value) > kLongestRead ? std::string() : value;
}

void SettingsStore::writeRegValue(std::string_view keyPath, std::string_view valueName,
                                  std::string_view value) {
    storage_->write(machinePlace(keyPath, valueName), sanitizeUtf8(value));
}

std::string SettingsStore::getOption(std::string_view valueName) const {
    return storedOption(valueName).value_or(std::string(kNoOption));
}

std::optional<std::string> SettingsStore::stored(std::string_view keyPath, std::string_view valueName) const {
    return storage_->read(machinePlace(keyPath, valueName));
}

std::optional<std::string> SettingsStore::storedOption(std::string_view valueName) const {
    return storage_->read(optionPlace(valueName));
}

void SettingsStore::setOption(std::string_view valueName, std::string_view value) {
    storage_->write(optionPlace(valueName), sanitizeUtf8(value));
}

void SettingsStore::setCodePage(const CodePage& codePage) {
    codePage_ = codePage;
}

} // namespace zb
