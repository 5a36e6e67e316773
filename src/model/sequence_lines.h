#pragma once

#include "model/sequences.h"

#include <string>
#include <string_view>

namespace zb {

// The sequences as text: one line a row, the four fields separated by U+00FF.

/// Reads the rows. The fields are trimmed. The first line with fewer than four fields ends the reading; it
/// still gives a row when it has two.
Sequences readSequences(std::string_view rows);

/// Appends the rows to a text. A line break within a field becomes a blank.
void appendSequences(std::string& text, const Sequences& sequences);

} // namespace zb
