#pragma once

#include <string_view>

namespace zb {

/// The first line of a TR message, followed by its name. It has the form of a section header, so that the
/// messages are found even when the section's own header was lost.
inline constexpr std::string_view kTRMessageMarker = "## [TR MESSAGE]";
inline constexpr std::string_view kEndOfTRMessage = "EndTRMessage";

} // namespace zb
