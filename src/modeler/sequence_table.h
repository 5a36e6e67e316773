#pragma once

#include <string>
#include <string_view>

namespace zb {

class List;

// The sequences as the last section of a project file: behind a marker one line a row, its four fields
// joined by U+00FF.

/// Appends the section to the text of a project file.
void saveSequenceTable(std::string& projectText, const List& list);

/// Fills the list from the text of a project file; one without the section leaves it empty. A line with fewer
/// than four fields ends the reading and leaves what it has of a row.
void loadSequenceTable(std::string_view projectText, List& list);

} // namespace zb
