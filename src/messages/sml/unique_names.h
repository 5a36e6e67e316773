#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zb::sml {

/// The names that are taken within a message or a library, whatever the case of their (ASCII) letters. Most
/// items have a name, so the set keeps its memory from message to message instead of asking for some at each
/// name.
class UniqueNames {
public:
    /// `separator` is put between a taken name and its number.
    explicit UniqueNames(std::string_view separator = {}) : separator_(separator) {}

    void clear();
    /// The name, or, when it is used already, the name followed by the next free number. Valid until the next
    /// call.
    std::string_view take(std::string_view wanted);

private:
    /// In 32 bits, since a library has very many names; together they never have 4 GiB.
    struct Entry {
        std::uint32_t hash = 0;
        std::uint32_t slot = 0;
        std::uint32_t begin = 0, length = 0; // in `texts_`
        std::uint32_t lastNumber = 1;
    };
    std::string_view textOf(const Entry& entry) const {
        return std::string_view(texts_).substr(entry.begin, entry.length);
    }
    /// The slot with the name, or the free slot for it.
    std::size_t slotOf(std::string_view name, std::uint32_t hash) const;
    std::string_view add(std::string_view name, std::uint32_t hash, std::size_t slot);
    void grow();

    std::string separator_;
    std::vector<Entry> entries_;
    std::vector<std::uint32_t> slots_ = std::vector<std::uint32_t>(64); // the entry's index + 1; 0 when free
    std::string texts_;
};

} // namespace zb::sml
