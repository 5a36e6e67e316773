#include "messages/sml/unique_names.h"

#include "messages/sml/characters.h"

namespace zb::sml {

namespace {

// FNV-1a without the bit by which the cases of a letter differ.
std::uint32_t hashOf(std::string_view name) {
    constexpr unsigned kWithoutCase = 0xDF;
    std::uint32_t hash = 2166136261U;
    for (const char c : name)
        hash = (hash ^ (static_cast<unsigned char>(c) & kWithoutCase)) * 16777619U;
    return hash ^ (hash >> 15U);
}

bool sameLetters(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
        return false;
    for (std::size_t i = 0; i < left.size(); ++i)
        if (upperLetter(left[i]) != upperLetter(right[i]))
            return false;
    return true;
}

} // namespace

void UniqueNames::clear() {
    for (const Entry& entry : entries_)
        slots_[entry.slot] = 0;
    entries_.clear();
    texts_.clear();
}

std::string_view UniqueNames::take(std::string_view wanted) {
    const std::uint32_t hash = hashOf(wanted);
    const std::size_t slot = slotOf(wanted, hash);
    if (slots_[slot] == 0)
        return add(wanted, hash, slot);
    const std::size_t known = slots_[slot] - 1;
    for (;;) {
        const std::string candidate =
            std::string(wanted) + separator_ + std::to_string(++entries_[known].lastNumber);
        const std::uint32_t candidateHash = hashOf(candidate);
        const std::size_t candidateSlot = slotOf(candidate, candidateHash);
        if (slots_[candidateSlot] == 0)
            return add(candidate, candidateHash, candidateSlot);
    }
}

std::size_t UniqueNames::slotOf(std::string_view name, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
        const Entry& entry = entries_[slots_[slot] - 1];
        if (entry.hash == hash && sameLetters(textOf(entry), name))
            break;
    }
    return slot;
}

std::string_view UniqueNames::add(std::string_view name, std::uint32_t hash, std::size_t slot) {
    entries_.push_back({hash, static_cast<std::uint32_t>(slot), static_cast<std::uint32_t>(texts_.size()),
                        static_cast<std::uint32_t>(name.size())});
    texts_ += name;
    slots_[slot] = static_cast<std::uint32_t>(entries_.size());
    if (entries_.size() * 2 > slots_.size())
        grow();
    return textOf(entries_.back());
}

void UniqueNames::grow() {
    slots_.assign(slots_.size() * 2, 0);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        std::size_t slot = entries_[i].hash & mask;
        while (slots_[slot] != 0)
            slot = (slot + 1) & mask;
        slots_[slot] = static_cast<std::uint32_t>(i + 1);
        entries_[i].slot = static_cast<std::uint32_t>(slot);
    }
}

} // namespace zb::sml
