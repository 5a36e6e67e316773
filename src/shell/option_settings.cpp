#include "shell/option_settings.h"

#include "platform/settings.h"
#include "platform/text.h"

namespace zb {

std::string readSetting(const SettingsStore& settings, std::string_view name) {
    return trim(settings.readRegValue(kSettingsKey, name));
}

void writeSetting(SettingsStore& settings, std::string_view name, std::string_view value) {
    settings.writeRegValue(kSettingsKey, name, value);
}

void loadOptionDefaults(SettingsStore& settings) {
    if (readSetting(settings, kSrcGen).empty())
        writeSetting(settings, kSrcGen, kGenerateNoSource);
    if (readSetting(settings, kPlugInType).empty())
        writeSetting(settings, kPlugInType, "1");
}

std::string getRecentProject(const SettingsStore& settings) {
    return readSetting(settings, kRecentProject);
}

} // namespace zb
