#pragma once

#include "modeler/sequence_view.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

/// Indexes of rows, from 0, in rising order.
using RowPlaces = std::vector<std::size_t>;

/// All rows after an edit of the sequences, with their ordinals, and the rows to select then.
struct SequenceEdit {
    SequenceRows rows;
    RowPlaces selected;
};

// Edits of several rows at once. A head among the places means its whole sequence; when there is one,
// moves and copies leave out the items that are given beside it. Nothing is returned where nothing changes.

enum class Step { Up, Down };
/// An item moves by one row, at the edge of its sequence into the next one; a sequence changes places with
/// the next one.
std::optional<SequenceEdit> rowsMoved(const SequenceRows& rows, const RowPlaces& places, Step step);
/// Items come after the row `target`, sequences after the sequence of that row: as copies, or in place of
/// where they were. A copied sequence gets a name of its own.
enum class Put { Moved, Copied };
std::optional<SequenceEdit> rowsPutAfter(const SequenceRows& rows, const RowPlaces& places,
                                         std::size_t target, Put put);
std::optional<SequenceEdit> rowsRemoved(SequenceRows rows, const RowPlaces& places);

} // namespace zb
