#pragma once

#include "compare/difference.h"
#include "compare/merge_context.h"
#include "platform/result.h"
#include "project/project.h"

#include <optional>
#include <string>
#include <vector>

namespace zb {

/// A place of a project that has a value, in the words of differences and conflicts.
struct ValuePlace {
    PartKind kind = PartKind::Message;
    DifferencePlace place;
    /// "text" of an item: the item without those below it; "block" of a TR message: its data block;
    /// "position"; empty: the part as a whole.
    std::string field;
    /// The item is missing: its path is where it belongs.
    bool isMissing = false;
};

/// The place of a conflict in the merged project, in which ours counts.
ValuePlace placeOfConflict(const MergeConflict& conflict);

/// The value there, as a conflict has it; none where the part is missing. That of a position is the path of
/// an item, and a number for any other part.
std::optional<std::string> valueAt(const Project& project, const ValuePlace& place);

/// The values of many places, in less time than one by one.
std::vector<std::optional<std::string>> valuesAt(const Project& project,
                                                 const std::vector<ValuePlace>& places);

/// The project with another value there; with none the part is removed. A part that is missing is added: an
/// item at its place, any other one at the end. A position is a number, or a path whose last step counts. The
/// error is a sentence about why this value cannot be set.
Result<Project, std::string> withValue(const Project& project, const ValuePlace& place,
                                       const std::optional<std::string>& value);

} // namespace zb
