#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zb {

/// Which of the numbers belong to a longest run of rising ones: the others are those that moved. Takes
/// n log n steps.
inline std::vector<bool> longestRising(const std::vector<std::size_t>& numbers) {
    constexpr auto kNone = static_cast<std::size_t>(-1);
    std::vector<std::size_t> ends; // of the best run of each length, the position of its last number
    std::vector<std::size_t> before(numbers.size(), kNone);
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        const auto place =
            std::lower_bound(ends.begin(), ends.end(), numbers[at],
                             [&](std::size_t end, std::size_t number) { return numbers[end] < number; });
        if (place != ends.begin())
            before[at] = *(place - 1);
        if (place == ends.end())
            ends.push_back(at);
        else
            *place = at;
    }
    std::vector<bool> belongs(numbers.size(), false);
    for (std::size_t at = ends.empty() ? kNone : ends.back(); at != kNone; at = before[at])
        belongs[at] = true;
    return belongs;
}

} // namespace zb
