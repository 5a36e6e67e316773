#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// A set of names, compared upper-cased. It keeps its memory when it is cleared, and clearing takes no longer
/// for many names than for one.
class NameSet {
public:
    /// False when the set has the name already.
    bool add(std::string_view name);
    void clear();

private:
    struct Slot {
        std::uint32_t filling = 0; ///< the slot is free when this is not the current one
        std::uint32_t length = 0;
        std::size_t hash = 0;
        std::size_t start = 0; ///< in `characters_`
    };

    std::size_t appendUpper(std::string_view name);
    Slot& slotFor(std::size_t hash, std::string_view upperName);
    void grow();

    std::string characters_; ///< the upper-cased names, one after the other
    std::vector<Slot> slots_;
    std::size_t count_ = 0;
    std::uint32_t filling_ = 1;
};

} // namespace zb
