#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

/// The text with a blank for each control character: a damaged file must neither break lines nor steer the
/// terminal.
std::string printable(std::string_view text);

/// A number with the word for what it counts: "1 message", "2 messages".
std::string counted(std::size_t number, std::string_view what);

} // namespace zb
