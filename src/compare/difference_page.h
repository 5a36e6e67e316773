#pragma once

#include "compare/difference_lines.h"

#include <string>

namespace zb {

/// A page of HTML in UTF-8 that shows the differences side by side, with a sign on each line beside its
/// colour. It needs no other file, and follows the light or dark colours of its reader.
std::string differencePage(const std::string& before, const std::string& after,
                           const std::vector<DifferenceBlock>& blocks);

} // namespace zb
