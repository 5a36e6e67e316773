#pragma once

#include "compare/item_tree.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zb {

inline constexpr auto kNoNode = static_cast<std::size_t>(-1);

/// Which nodes of two trees are the same ones.
struct ItemMatching {
    std::vector<std::size_t> ofLeft;  ///< the partner in the right tree, or kNoNode
    std::vector<std::size_t> ofRight; ///< the partner in the left tree, or kNoNode

    void join(std::size_t left, std::size_t right) {
        ofLeft[left] = right;
        ofRight[right] = left;
    }
};

enum class ItemNames { Count, Ignored };

/// Finds the partners: first items by names that both trees have once; then lists by their sub items; then,
/// from the top, what is equal in the same list; then what is similar at the same place of a list. The roots
/// are always partners.
ItemMatching matchItems(const ItemTree& left, const ItemTree& right, ItemNames names);

/// Equal numbers for equal subtrees; those of different ones are practically never equal.
std::vector<std::uint64_t> subtreeHashes(const ItemTree& tree);

} // namespace zb
