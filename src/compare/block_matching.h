#pragma once

#include "compare/part_form.h"

#include <cstddef>
#include <vector>

namespace zb {

inline constexpr auto kNoBlock = static_cast<std::size_t>(-1);

/// Which parts of two sections are the same ones.
struct BlockMatching {
    std::vector<std::size_t> ofLeft;  ///< the partner on the right, or kNoBlock
    std::vector<std::size_t> ofRight; ///< the partner on the left, or kNoBlock

    void join(std::size_t left, std::size_t right) {
        ofLeft[left] = right;
        ofRight[right] = left;
    }
};

/// Finds the partners by name, of several with the same name by their order; then by name as its form
/// compares names; then renamed ones, by their group and likeness.
BlockMatching matchBlocks(const PartForm& form, const Blocks& left, const Blocks& right);

/// The partners of the items of a TR message: by name, and renamed ones by an equal type and value.
BlockMatching matchParts(const std::vector<Entry>& left, const std::vector<Entry>& right);

} // namespace zb
