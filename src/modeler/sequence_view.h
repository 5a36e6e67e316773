#pragma once

#include "model/sequences.h"

#include <string>

namespace zb {

class List;
class ListRow;

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
    void clear();
    /// Adds a sequence without items at the end and selects it.
    void addSequence(std::string name);
    /// Inserts a message directly after the row, selects it, and renumbers its sequence.
    void insertItem(const ListRow& row, std::string direction, std::string message);
    /// Removes an item and renumbers its sequence, or removes a head with all its items.
    void remove(const ListRow& row);

private:
    std::size_t indexOf(const ListRow& row) const;
    ListRow& insertRow(std::size_t at);
    /// Shows the ordinals of the sequence at `at` as they are now.
    void showOrdinals(std::size_t at);

    List& list_;
    Sequences& sequences_;
};

} // namespace zb
