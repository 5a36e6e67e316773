#pragma once

#include "compare/merge_context.h"
#include "compare/part_form.h"

#include <string>

namespace zb {

/// Three versions of a section.
struct ThreeSections {
    const Blocks& base;
    const Blocks& ours;
    const Blocks& theirs;
};

/// The text of the merged section. Parts that only one side changed are taken as they are, byte by byte. A
/// change of one side to what the other one removed is a conflict, and so is a name that both sides gave.
std::string mergeSections(const PartForm& form, const ThreeSections& sections, MergeContext& context);

} // namespace zb
