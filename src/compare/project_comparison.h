#pragma once

#include "compare/difference.h"
#include "project/project.h"

namespace zb {

/// What of two projects is compared: the messages alone where one of them is a library.
enum class CompareScope { Whole, Messages };

/// The differences from one project to another: the side and the sections of other programs first, then SECS
/// messages, TR messages and sequences, each in the order of the second project; a removed part is listed
/// where it was. None means that both say the same, however their texts are laid out.
///
/// Messages are the same by name, else by stream, function, direction and likeness; items by name, else by
/// their place and form. The time is linear where parts are equal.
Differences compareProjects(const Project& before, const Project& after,
                            CompareScope scope = CompareScope::Whole);

} // namespace zb
