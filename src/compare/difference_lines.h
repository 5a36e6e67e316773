#pragma once

#include "compare/difference.h"

#include <string>
#include <vector>

namespace zb {

/// A line of a readable comparison.
struct DifferenceLine {
    char sign = '~'; ///< '-' of the first project, '+' of the second, '~' of both
    std::string text;

    bool operator==(const DifferenceLine&) const = default;
};

/// The lines about one message, TR message or sequence, or about the project. The first line of a part that
/// both projects have is its heading.
using DifferenceBlock = std::vector<DifferenceLine>;

/// The differences for people, in the notation of project files; the path of an item precedes its Text. The
/// texts are those of the projects: whoever shows them makes them safe.
std::vector<DifferenceBlock> differenceBlocks(const Differences& differences);

/// How many differences of each kind and change there are, one line a kind: "message: 1 added, 2 changed".
std::vector<std::string> differenceCounts(const Differences& differences);

} // namespace zb
