#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

/// The pictures of the rows, which also identify the two kinds of rows.
inline constexpr const char* kSequenceHead = "SeqName";
inline constexpr const char* kSequenceItem = "SeqItem";

/// A row of the sequences: the head of a sequence, or a message in it.
struct SequenceRow {
    std::string picture;         ///< a damaged file can hold any text; all but kSequenceHead are items
    std::string text;            ///< the name of the sequence, or the ordinal of the item, from 1
    std::string direction;       ///< "ToHost", "ToEquip" or empty; empty for a head
    std::string transactionName; ///< the name of the TR message; empty for a head
    /// False for the row of a line that ended before its fourth field.
    bool isWhole = true;

    bool isHead() const { return picture == kSequenceHead; }
    bool operator==(const SequenceRow&) const = default;
};

/// The sequences of a project: named, ordered lists of TR messages. A sequence is a head row and the item
/// rows up to the next head row. Items hold copies of a name and a direction; no change of a TR message
/// reaches them. Rows are addressed by their index, from 0.
class Sequences {
public:
    const std::vector<SequenceRow>& rows() const { return rows_; }
    void clear() { rows_.clear(); }

    /// Appends a row without a check of its ordinal.
    void append(SequenceRow row) { rows_.push_back(std::move(row)); }
    /// Adds a sequence without items at the end. Returns the index of its head.
    std::size_t addSequence(std::string name);
    /// Inserts a message after the row `at` and renumbers its sequence. Returns the index of the new row.
    std::size_t insertItem(std::size_t at, std::string direction, std::string message);
    /// Removes the item at `at` and closes the gap in the ordinals, or the head at `at` with all its items.
    /// Returns the number of rows removed.
    std::size_t remove(std::size_t at);
    /// Puts other rows in the place of `count` rows from `at` on, without a check of ordinals.
    void replace(std::size_t at, std::size_t count, std::vector<SequenceRow> rows);

    /// The nearest head at or before `at`; nothing when there is none, as in a damaged file.
    std::optional<std::size_t> headOf(std::size_t at) const;
    /// Whether an item follows the head at `at`.
    bool hasItems(std::size_t at) const { return at + 1 < rows_.size() && !rows_[at + 1].isHead(); }
    /// The index after the last item that follows `at` directly, where `at` is a head or an item.
    std::size_t endOfItems(std::size_t at) const;

    bool operator==(const Sequences&) const = default;

private:
    /// Rewrites the ordinals of the items from `first` up to the next head.
    void renumber(std::size_t first);

    std::vector<SequenceRow> rows_;
};

} // namespace zb
