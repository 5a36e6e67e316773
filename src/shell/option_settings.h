#pragma once

#include "platform/setting_names.h"

#include <string>
#include <string_view>

namespace zb {

class SettingsStore;

/// The value for Yes in `SRCGen`; any other text means No.
inline constexpr std::string_view kGenerateSource = "73";
inline constexpr std::string_view kGenerateNoSource = "0";

/// A setting without the blanks around it; "" when it was never written.
std::string readSetting(const SettingsStore& settings, std::string_view name);
/// Fails silently.
void writeSetting(SettingsStore& settings, std::string_view name, std::string_view value);

/// Sets `SRCGen` and `PlugInType` to their defaults, "0" and "1", when they have no value.
void loadOptionDefaults(SettingsStore& settings);
/// Full path of the last saved project.
std::string getRecentProject(const SettingsStore& settings);

} // namespace zb
