#pragma once

#include "script/script_text.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Whether the lines are those of the block. Blanks at the end of a line do not count on either side, and a
/// line `...` stands for any number of lines.
bool matchLines(const std::vector<BlockLine>& expected, const std::vector<std::string>& found);

/// Why they do not match, with all that was found.
std::string describeMismatch(const std::vector<BlockLine>& expected, const std::vector<std::string>& found);

/// Whether the text is the pattern, in which `...` stands for any run of characters.
bool matchText(std::string_view pattern, std::string_view text);

/// A text as a script would write it: a JSON string on one line.
std::string quote(std::string_view text);

} // namespace zb
