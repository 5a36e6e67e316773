#pragma once

#include "script/script_text.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Whether the lines match the block. Blanks at the end of a line are ignored on both sides, and a line `...`
/// matches any number of lines.
bool matchLines(const std::vector<BlockLine>& expected, const std::vector<std::string>& found);

/// Why they do not match, with everything that was found.
std::string describeMismatch(const std::vector<BlockLine>& expected, const std::vector<std::string>& found);

/// Whether the text matches the pattern, in which `...` matches any characters.
bool matchText(std::string_view pattern, std::string_view text);

/// A text in the notation of scripts: a JSON string on one line.
std::string quote(std::string_view text);

} // namespace zb
