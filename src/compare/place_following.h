#pragma once

#include "compare/part_value.h"
#include "project/project.h"

#include <vector>

namespace zb {

/// Where places of a project are after it has been changed: parts are found under their new names, and items
/// where they have moved. A missing item may be there now. What is gone keeps the place where it would be.
std::vector<ValuePlace> followPlaces(const Project& before, const Project& after,
                                     const std::vector<ValuePlace>& places);

} // namespace zb
