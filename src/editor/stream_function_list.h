#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A text of nothing but messages by stream and function, as manuals list them: "S1F1/F2, S2F37-S2F39 S6F11W"
/// gives "S1F1", "S1F2", "S2F37", "S2F38", "S2F39", "S6F11". None for any other text.
std::optional<std::vector<std::string>> streamFunctionList(std::string_view text);

} // namespace zb
