#pragma once

#include "compare/merge_context.h"
#include "compare/part_form.h"

#include <string>
#include <string_view>

namespace zb {

/// The blocks of the three versions of one part.
struct ThreeBlocks {
    std::string_view base;
    std::string_view ours;
    std::string_view theirs;
};

/// Merges three versions of one part field by field and item by item. The places of its conflicts are in the
/// merged part, and have no name: whoever puts the part into a section gives it one.
Entry mergeEntries(const PartForm& form, const ThreeBlocks& blocks, MergeContext& context);

} // namespace zb
