#pragma once

#include <string>
#include <vector>

namespace zb {

/// What a drop of library messages takes next.
struct DropStep {
    std::string streamFunction; ///< all messages of it, "S1 F13"
    bool tellsDuplicates;       ///< whether a message that exists already is worth a word

    bool operator==(const DropStep&) const = default;
};

/// The steps for the stream and function of each dragged row, "S1 F13", in the order in which the rows show.
/// A primary message brings its reply along, unless that was dragged itself. Of rows that share stream and
/// function the last one brings all of them, in silence about what exists already.
std::vector<DropStep> planDrop(const std::vector<std::string>& entries);

} // namespace zb
