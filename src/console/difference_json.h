#pragma once

#include "compare/difference.h"

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace zb {

/// The members "kind" to "after" of a difference.
nlohmann::ordered_json jsonOf(const Difference& difference);
/// The text, or null.
nlohmann::ordered_json jsonOf(const std::optional<std::string>& text);
/// One object on one line, safe for a terminal.
void printJsonLine(std::ostream& out, const nlohmann::ordered_json& line);

} // namespace zb
