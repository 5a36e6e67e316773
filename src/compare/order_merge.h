#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace zb {

/// What two sides made of an ordered list. Elements have numbers: those of the base from 0, in its order, and
/// added ones after them; what both sides added alike has one number.
struct OrderMerge {
    std::size_t baseCount = 0;
    std::vector<std::size_t> ours;
    std::vector<std::size_t> theirs;
    /// The elements of the merged list, by number; each is in at least one of the lists.
    std::vector<bool> survives;
    /// What elements that both sides put at one place are ordered by. It must not depend on the side.
    std::function<std::string_view(std::size_t element)> orderedBy;
    /// Whether a move by the other side is taken; without a function it is.
    std::function<bool(std::size_t element)> takesMove;
};

struct MergedOrder {
    std::vector<std::size_t> elements;
    /// Elements that both sides moved to different places; they are at ours.
    std::vector<std::size_t> disputed;
};

/// Elements that no side moved keep the order of the base. Moved and added ones follow the element that they
/// follow on their side. Exchanging the sides gives the same order, unless there are disputed elements.
MergedOrder mergeOrder(const OrderMerge& merge);

} // namespace zb
