#pragma once

#include <string_view>

namespace zb {

/// Names of the machine-wide settings; all are below kSettingsKey.
/// @{
inline constexpr std::string_view kRecentProject = "RecentProject";
inline constexpr std::string_view kSrcGen = "SRCGen";
inline constexpr std::string_view kPlugInType = "PlugInType";
inline constexpr std::string_view kAnsiCodePage = "AnsiCodePage";
inline constexpr std::string_view kGeneratorCommand = "GeneratorCommand";
inline constexpr std::string_view kGeneratorTimeLimit = "GeneratorTimeLimit";
/// @}

/// A per-user option, which the program only reads.
inline constexpr std::string_view kMessageFormat = "MessageFormat";

} // namespace zb
