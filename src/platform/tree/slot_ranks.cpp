#include "platform/tree/slot_ranks.h"

#include <algorithm>
#include <bit>

namespace zb {

namespace {

constexpr std::size_t kBits = 64;

std::size_t lowestBit(std::size_t number) {
    return number & (~number + 1);
}

/// The bits up to this one, itself included.
std::uint64_t bitsUpTo(std::size_t bit) {
    return ~std::uint64_t{0} >> (kBits - 1 - bit);
}

std::uint64_t bitOf(std::size_t slot) {
    return std::uint64_t{1} << (slot % kBits);
}

} // namespace

void SlotRanks::appendUsed() {
    if (free_ > 0)
        append(true);
    else
        ++slots_;
}

void SlotRanks::appendFree() {
    if (free_ == 0)
        index();
    append(false);
    ++free_;
}

void SlotRanks::release(std::size_t slot) {
    if (free_ == 0)
        index();
    words_[slot / kBits] &= ~bitOf(slot);
    count(slot / kBits, -1);
    ++free_;
}

void SlotRanks::reuse(std::size_t slot) {
    words_[slot / kBits] |= bitOf(slot);
    count(slot / kBits, 1);
    --free_;
}

void SlotRanks::clear() {
    slots_ = free_ = 0;
    words_.clear();
    sums_.clear();
}

std::size_t SlotRanks::rankOf(std::size_t slot) const {
    if (slot >= slots_)
        return used();
    if (free_ == 0)
        return slot + 1;
    std::size_t rank = static_cast<std::size_t>(std::popcount(words_[slot / kBits] & bitsUpTo(slot % kBits)));
    for (std::size_t at = slot / kBits; at > 0; at -= lowestBit(at))
        rank += sums_[at];
    return rank;
}

std::size_t SlotRanks::slotOf(std::size_t rank) const {
    if (free_ == 0)
        return rank - 1;
    std::size_t word = 0;
    for (std::size_t step = std::bit_floor(words_.size()); step > 0; step /= 2) {
        if (word + step <= words_.size() && sums_[word + step] < rank) {
            word += step;
            rank -= sums_[word];
        }
    }
    std::uint64_t bits = words_[word];
    for (; rank > 1; --rank)
        bits &= bits - 1; // without the lowest one
    return word * kBits + static_cast<std::size_t>(std::countr_zero(bits));
}

/// All slots are in use.
void SlotRanks::index() {
    words_.assign((slots_ + kBits - 1) / kBits, ~std::uint64_t{0});
    if (slots_ % kBits != 0)
        words_.back() = bitsUpTo(slots_ % kBits - 1);
    sums_.assign(words_.size() + 1, 0);
    for (std::size_t at = 1; at < sums_.size(); ++at) {
        sums_[at] += static_cast<std::uint32_t>(std::popcount(words_[at - 1]));
        if (const std::size_t above = at + lowestBit(at); above < sums_.size())
            sums_[above] += sums_[at];
    }
}

void SlotRanks::append(bool isUsed) {
    if (slots_ % kBits == 0) {
        words_.push_back(0);
        const std::size_t at = words_.size();
        if (sums_.empty())
            sums_.push_back(0);
        sums_.push_back(0);
        for (std::size_t below = 1; below < lowestBit(at); below *= 2)
            sums_[at] += sums_[at - below];
    }
    if (isUsed) {
        words_.back() |= bitOf(slots_);
        count(words_.size() - 1, 1);
    }
    ++slots_;
}

void SlotRanks::count(std::size_t word, int change) {
    for (std::size_t at = word + 1; at < sums_.size(); at += lowestBit(at))
        sums_[at] += static_cast<std::uint32_t>(change);
}

} // namespace zb
