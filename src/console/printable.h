#pragma once

#include "platform/printable.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

/// A number with its noun: "1 message", "2 messages".
std::string counted(std::size_t number, std::string_view what);

/// What sets the colours of a terminal. A stream lets nothing else of this kind through.
/// @{
inline constexpr std::string_view kRed = "\x1B[31m";
inline constexpr std::string_view kGreen = "\x1B[32m";
inline constexpr std::string_view kYellow = "\x1B[33m";
inline constexpr std::string_view kPlain = "\x1B[0m";
/// @}

} // namespace zb
