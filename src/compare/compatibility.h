#pragma once

#include "compare/difference.h"
#include "project/project.h"

#include <string_view>
#include <vector>

namespace zb {

/// What a difference does to a side that still follows the first project, when the other side follows the
/// second one: as seen on the wire.
enum class Compatibility { None, Extension, BreaksHost, BreaksEquipment, BreaksBoth };

/// The class of one difference.
struct CompatibilityFinding {
    Difference difference;
    Compatibility effect = Compatibility::None;
    std::string_view rule;   ///< its id; empty where no rule applies
    std::string_view reason; ///< a sentence without a full stop
};

/// Classes each of the differences between the two projects, in their order. A message that the second
/// project still has as it was, under whatever name, breaks nobody.
std::vector<CompatibilityFinding> judgeCompatibility(const Project& before, const Project& after,
                                                     const Differences& differences);

bool breaksHost(Compatibility effect);
bool breaksEquipment(Compatibility effect);
/// "none", "extension", "breaking for the host", "breaking for the equipment", "breaking for both".
std::string_view wordOf(Compatibility effect);

} // namespace zb
