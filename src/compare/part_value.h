#pragma once

#include "compare/difference.h"
#include "platform/result.h"
#include "project/project.h"

#include <optional>
#include <string>

namespace zb {

/// A place of a project that has a value, in the words of differences and conflicts.
struct ValuePlace {
    PartKind kind = PartKind::Message;
    DifferencePlace place;
    std::string field; ///< "text" of an item: the item without those below it; empty: the part as a whole
};

/// The value there, as a conflict has it; none where the part is missing.
std::optional<std::string> valueAt(const Project& project, const ValuePlace& place);

/// The project with another value there; with none the part is removed. A part that is missing is added: an
/// item at its place, any other one at the end. The error is a sentence about why this value cannot be set.
Result<Project, std::string> withValue(const Project& project, const ValuePlace& place,
                                       const std::optional<std::string>& value);

} // namespace zb
