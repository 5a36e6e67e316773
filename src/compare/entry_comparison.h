#pragma once

#include "compare/difference.h"
#include "compare/part_form.h"

#include <string_view>

namespace zb {

/// Appends the differences between two versions of one part.
void compareEntries(const PartForm& form, std::string_view before, std::string_view after,
                    Differences& differences);

} // namespace zb
