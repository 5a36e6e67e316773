#pragma once

#include <string_view>

namespace zb {

/// The line that opens a TR message; its name follows. It looks like the line of a section of its own, so
/// that the messages are found even when the section's own line was lost.
inline constexpr std::string_view kTRMessageMarker = "## [TR MESSAGE]";
inline constexpr std::string_view kEndOfTRMessage = "EndTRMessage";

} // namespace zb
