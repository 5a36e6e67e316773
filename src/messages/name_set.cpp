#include "messages/name_set.h"

#include "platform/text.h"

#include <functional>
#include <utility>

namespace zb {

namespace {

constexpr std::size_t kFirstSlots = 64; // a power of two, as all later sizes

} // namespace

bool NameSet::add(std::string_view name) {
    // At most half of the slots are taken.
    if (2 * (count_ + 1) > slots_.size())
        grow();
    const std::size_t start = appendUpper(name);
    const std::string_view upperName = std::string_view(characters_).substr(start);
    const std::size_t hash = std::hash<std::string_view>()(upperName);
    Slot& slot = slotFor(hash, upperName);
    if (slot.filling == filling_) {
        characters_.resize(start);
        return false;
    }
    slot = {filling_, static_cast<std::uint32_t>(upperName.size()), hash, start};
    ++count_;
    return true;
}

void NameSet::clear() {
    characters_.clear();
    count_ = 0;
    // After a round of all numbers the oldest fillings would seem to be the new one.
    if (++filling_ == 0) {
        slots_.assign(slots_.size(), Slot());
        filling_ = 1;
    }
}

std::size_t NameSet::appendUpper(std::string_view name) {
    const std::size_t start = characters_.size();
    if (!isAscii(name)) {
        characters_ += upper(name);
        return start;
    }
    for (const char letter : name)
        characters_ += letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    return start;
}

/// The slot that has the name, otherwise the free one where it belongs.
NameSet::Slot& NameSet::slotFor(std::size_t hash, std::string_view upperName) {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
        Slot& slot = slots_[place];
        if (slot.filling != filling_)
            return slot;
        if (slot.hash == hash && std::string_view(characters_).substr(slot.start, slot.length) == upperName)
            return slot;
    }
}

void NameSet::grow() {
    std::vector<Slot> before(slots_.empty() ? kFirstSlots : 2 * slots_.size());
    std::swap(before, slots_);
    for (const Slot& slot : before) {
        if (slot.filling == filling_)
            slotFor(slot.hash, std::string_view(characters_).substr(slot.start, slot.length)) = slot;
    }
}

} // namespace zb
