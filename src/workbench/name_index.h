#pragma once

#include "workbench/fuzzy_match.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The names of a project in one block of memory, to be searched at each key. It refers to nothing in the
/// project, so that it may be older than the project.
class NameIndex {
public:
    enum class Kind : std::uint8_t { Message, TRMessage, Item };

    struct Entry {
        std::size_t begin = 0; ///< of the text, among all texts
        std::uint32_t length = 0;
        std::uint32_t nameLength = 0; ///< the text begins with the name
        int place = 0;                ///< what the one who added it wants to know again
        std::uint32_t message = 0;    ///< of an item: the entry of its message
        std::uint64_t letters = 0;    ///< of the text
        std::uint64_t wordStarts = 0; ///< likewise
        Kind kind = Kind::Message;
    };

    void clear();
    /// The text that is searched begins with the name; `more` is searched as well.
    void addMessage(std::string_view name, std::string_view more, int place);
    void addTRMessage(std::string_view name, std::string_view more, int place);
    /// Of the message that was added last.
    void addItem(std::string_view name, int place);

    std::size_t count() const { return entries_.size(); }
    const Entry& entry(std::size_t number) const { return entries_[number]; }
    std::string_view name(const Entry& entry) const { return text(entry).substr(0, entry.nameLength); }
    std::string_view text(const Entry& entry) const {
        return std::string_view(texts_).substr(entry.begin, entry.length);
    }
    SearchText searchText(const Entry& entry) const {
        return {std::string_view(folded_).substr(entry.begin, entry.length), entry.wordStarts};
    }
    /// Its name alone.
    SearchText searchName(const Entry& entry) const {
        return {std::string_view(folded_).substr(entry.begin, entry.nameLength), entry.wordStarts};
    }

    struct Found {
        std::vector<std::size_t> best; ///< numbers of entries, the best first
        std::size_t all = 0;           ///< how many match
    };
    /// The best matches of what was typed. Each of its words must match; those of an item may match its
    /// message, except for one. Of equal ones messages are first, and then those that were added first.
    Found find(std::string_view typed, std::size_t most) const;

private:
    void add(Kind kind, std::string_view name, std::string_view more, int place);

    std::string texts_;
    std::string folded_; // the same in the form in which it is searched
    std::vector<Entry> entries_;
    std::uint32_t lastMessage_ = 0;
};

} // namespace zb
