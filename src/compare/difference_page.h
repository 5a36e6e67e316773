#pragma once

#include "compare/aligned_rows.h"
#include "compare/difference_lines.h"

#include <string>

namespace zb {

/// A page of HTML in UTF-8 that shows the differences side by side, with a sign on each line beside its
/// colour, and beside them the whole projects, of which equal parts are collapsed. It needs no other file,
/// and follows the light or dark colours of its reader. `whole` has all rows of both.
std::string differencePage(const std::string& before, const std::string& after,
                           const std::vector<DifferenceBlock>& blocks, const AlignedProjects& whole);

} // namespace zb
