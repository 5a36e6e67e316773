#pragma once

#include <string>
#include <string_view>

namespace zb {

/// The text with a blank for each control character: a damaged file must neither break lines nor steer the
/// terminal.
std::string printable(std::string_view text);

} // namespace zb
