#pragma once

#include "model/sequences.h"
#include "platform/tree/color.h"

#include <functional>
#include <string>
#include <vector>

namespace zb {

class List;
class ListRow;

/// A row of the sequences with the colour that marks it in the list.
struct MarkedRow {
    SequenceRow row;
    OptionalColor color;

    bool operator==(const MarkedRow&) const = default;
};
using SequenceRows = std::vector<MarkedRow>;

/// Receives every change of the sequences with the rows that were there before.
class SequenceRecorder {
public:
    virtual ~SequenceRecorder() = default;
    /// From the row `at` on, `count` rows have taken the place of the old ones.
    virtual void afterChange(std::size_t at, std::size_t count, SequenceRows old) = 0;
    /// The row is about to get another colour.
    virtual void beforeMark(std::size_t at) = 0;
};

/// Shows the sequences of the open project in a list, and changes both together: the list always has the rows
/// of the sequences, in their order.
class SequenceView {
public:
    /// The list must not be sorted, and only this class may add or remove rows.
    SequenceView(List& list, Sequences& sequences) : list_(list), sequences_(sequences) {}

    List& list() const { return list_; }
    const Sequences& sequences() const { return sequences_; }

    /// Replaces the sequences and the rows.
    void show(Sequences sequences);
    /// Changes the sequences to these: rows that are the same at both ends stay.
    void change(const Sequences& wanted);
    void clear();
    /// Adds a sequence without items at the end and selects it.
    void addSequence(std::string name);
    /// Inserts a message directly after the row, selects it, and renumbers its sequence.
    void insertItem(const ListRow& row, std::string direction, std::string message);
    /// Removes an item and renumbers its sequence, or removes a head with all its items.
    void remove(const ListRow& row);

    SequenceRows rows(std::size_t at, std::size_t count) const;
    /// The user puts other rows in the place of `count` rows from `at` on.
    void exchange(std::size_t at, std::size_t count, SequenceRows rows);
    /// Puts other rows in the place of `count` rows from `at` on, and returns these. No recorder is notified.
    SequenceRows replace(std::size_t at, std::size_t count, SequenceRows rows);

    /// Receives what the user changes; null for nobody.
    void setRecorder(SequenceRecorder* recorder);

private:
    /// The rows from `first` up to `end`, without it.
    struct Range {
        std::size_t first = 0;
        std::size_t end = 0;
    };
    /// The sequence that the row at `at` belongs to.
    Range sequenceOf(std::size_t at) const;
    /// Runs a command that changes no row outside of the range, and reports the rows that it changed.
    void change(Range range, const std::function<void()>& command);
    void removeFrom(std::size_t at);
    std::size_t indexOf(const ListRow& row) const;
    ListRow& insertRow(std::size_t at);
    /// Shows the ordinals of the sequence at `at` as they are now.
    void showOrdinals(std::size_t at);

    List& list_;
    Sequences& sequences_;
    SequenceRecorder* recorder_ = nullptr;
};

} // namespace zb
