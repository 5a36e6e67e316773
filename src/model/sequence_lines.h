#pragma once

#include "model/sequences.h"

#include <string>
#include <string_view>

namespace zb {

// The sequences as the last section of a project file: after its marker one line a row, the four fields
// separated by U+00FF.

/// Reads the sequences of a project file's text; a text without the section gives none. The fields are
/// trimmed. The first line with fewer than four fields ends the reading; it still gives a row when it has
/// two.
Sequences readSequences(std::string_view projectText);

/// Appends the section, with the blank lines before it, to the text of a project file. A line break within a
/// field becomes a blank.
void appendSequences(std::string& projectText, const Sequences& sequences);

} // namespace zb
