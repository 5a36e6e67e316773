#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zb {

/// Slots in a row, of which some are free, and the ranks of those in use: their positions, from 1, when the
/// free ones are left out. A slot is freed, used again, or found by its rank in logarithmic time; as long as
/// no slot is free, in constant time and without memory.
class SlotRanks {
public:
    std::size_t size() const { return slots_; }
    std::size_t used() const { return slots_ - free_; }

    /// Adds slots at the end.
    /// @{
    void appendUsed();
    void appendFree();
    /// @}
    /// The slot is in use.
    void release(std::size_t slot);
    /// The slot is free.
    void reuse(std::size_t slot);
    void clear();

    /// How many slots up to this one, itself included, are in use.
    std::size_t rankOf(std::size_t slot) const;
    /// The slot in use with this rank, which is at most `used()`.
    std::size_t slotOf(std::size_t rank) const;

private:
    void index();
    void append(bool isUsed);
    void count(std::size_t word, int change);

    std::size_t slots_ = 0;
    std::size_t free_ = 0;
    /// Empty as long as no slot is free. A bit for each slot in use.
    std::vector<std::uint64_t> words_;
    /// Of the bits in words: element i, from 1, is the sum of the last (i & -i) words up to word i - 1.
    std::vector<std::uint32_t> sums_;
};

} // namespace zb
