#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zb {

/// Pairs of positions with equal values, rising on both sides: a longest common subsequence while that is
/// affordable, and of very long lists one through the values that occur once on both sides.
std::vector<std::pair<std::size_t, std::size_t>> alignEqual(const std::vector<std::uint64_t>& left,
                                                            const std::vector<std::uint64_t>& right);

} // namespace zb
