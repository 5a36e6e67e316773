#pragma once

#include <string>
#include <vector>

namespace zb {

/// What a drop of library messages adds next.
struct DropStep {
    std::string streamFunction; ///< all messages of it, "S1 F13"
    bool reportsDuplicates;     ///< whether an existing message is reported

    bool operator==(const DropStep&) const = default;
};

/// The steps for the stream and function of each dragged row, "S1 F13", in display order. A primary message
/// adds its reply, unless the reply was dragged itself. Of rows with the same stream and function the last
/// one adds all of them, without a report of existing ones.
std::vector<DropStep> planDrop(const std::vector<std::string>& entries);

} // namespace zb
