#pragma once

#include "model/condition.h"

#include <vector>

namespace zb {

/// Whether a condition can still hold where others are asked first.
enum class Reach {
    Open,    ///< it can, or it is too complex to say
    Never,   ///< it contradicts itself
    Covered, ///< one of the others holds whenever it does
};

/// Decides by trying all values that matter. Values of different data items are taken as independent, so that
/// "Never" and "Covered" are always right.
Reach reachOf(const Condition& condition, const std::vector<const Condition*>& earlier);

} // namespace zb
