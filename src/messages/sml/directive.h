#pragma once

#include <cstddef>
#include <string_view>

namespace zb::sml {

/// Whether a directive, or a rule or timer of a simulator, starts at the offset: "#define", "if (", "every 5
/// send".
bool atDirective(std::string_view text, std::size_t offset);

} // namespace zb::sml
