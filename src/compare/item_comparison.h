#pragma once

#include "compare/difference.h"
#include "compare/entry.h"
#include "compare/part_form.h"

namespace zb {

/// Appends the differences between the items of two versions of one part: the edit script of their trees.
void compareItems(const PartForm& form, const Entry& before, const Entry& after, Differences& differences);

} // namespace zb
