#pragma once

#include "compare/part_form.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

/// The hashes of the telling lines of a part, in rising order.
using LineCounts = std::vector<std::uint64_t>;
LineCounts countLines(const PartForm& form, std::string_view block);

/// How much of two parts of one group is the same, from 0 to 1. The group counts as one equal line.
double likenessOf(const LineCounts& left, const LineCounts& right);

/// Pairs of parts of one group that are probably the same under different names, the most similar ones first.
/// Two parts that are alone in their group need less likeness. Takes about as many steps as there are lines,
/// except in small groups.
std::vector<std::pair<std::size_t, std::size_t>> pairByLikeness(const std::vector<LineCounts>& left,
                                                                const std::vector<LineCounts>& right);

} // namespace zb
