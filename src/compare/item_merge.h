#pragma once

#include "compare/entry.h"
#include "compare/merge_context.h"
#include "compare/part_form.h"

namespace zb {

/// Three versions of one part.
struct ThreeEntries {
    const Entry& base;
    const Entry& ours;
    const Entry& theirs;
};

/// Merges the items of three versions of one part. Where that gives a message that no side has, with a name
/// twice or with two key items, the items of the preferred side are taken, and one conflict reports the rest.
/// The places of conflicts are in the merged tree, those of missing items where they would be; they have no
/// name.
ItemTree mergeItems(const PartForm& form, const ThreeEntries& entries, MergeContext& context);

} // namespace zb
