#pragma once

#include "compare/difference.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// What both sides changed differently.
struct MergeConflict {
    PartKind kind = PartKind::Message;
    DifferencePlace place; ///< in the merged project
    std::string field;     ///< as in a Difference
    /// The values of the three projects, as text; none where the part is missing.
    /// @{
    std::optional<std::string> base;
    std::optional<std::string> ours;
    std::optional<std::string> theirs;
    /// @}

    bool operator==(const MergeConflict&) const = default;
};

enum class Preferred { Ours, Theirs };

/// A change of the other side that could be taken.
struct MergeStep {
    PartKind kind = PartKind::Message;
    ChangeKind change = ChangeKind::Changed;
    DifferencePlace placeBefore; ///< in the base; the other side's for an added part
    DifferencePlace place;       ///< on the other side; the base's for a removed part
    std::string_view field;
};

/// What a merge goes by, and what it collects.
struct MergeContext {
    Preferred preferred = Preferred::Ours;
    /// Which changes of the other side are taken; without a function all of them.
    std::function<bool(const MergeStep& step)> takes;
    std::vector<MergeConflict> conflicts;

    bool takesStep(const MergeStep& step) const { return !takes || takes(step); }
};

} // namespace zb
