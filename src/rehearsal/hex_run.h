#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zb::rehearsal {

/// Appends the bytes written in hexadecimal from `at` on: pairs of digits, spaced or not, with or without
/// "0x". Returns the place after them; `at` when there are none. A dump ends at a gap of two blanks, before
/// its characters, and after 16 bytes.
enum class HexForm { Line, Dump };
std::size_t readHexRun(std::string_view line, std::size_t at, HexForm form, std::string& bytes);

/// The hexadecimal number from `at` on, without "0x"; nothing when there is none of at most 8 digits.
std::optional<unsigned long> hexNumber(std::string_view line, std::size_t at);

/// The offset at the start of the line of a dump: at least four hexadecimal digits, a multiple of 16, two
/// blanks. `at` moves to the first place after it.
std::optional<unsigned long> passDumpOffset(std::string_view line, std::size_t& at);

} // namespace zb::rehearsal
