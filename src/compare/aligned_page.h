#pragma once

#include "compare/aligned_rows.h"

#include <string>

namespace zb {

/// Appends two projects side by side as HTML: a part is closed when it is the same in both, and open
/// otherwise; what is the same is written once.
void appendAligned(std::string& html, const AlignedProjects& projects);

} // namespace zb
