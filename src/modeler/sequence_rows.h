#pragma once

#include <string>
#include <string_view>

namespace zb {

class List;
class ListRow;

// The rows of the list of sequences are the document. A sequence is a head row and the item rows up to the
// next head row. Positions count from 1.

inline constexpr const char* kSequenceHead = "SeqName";
inline constexpr const char* kSequenceItem = "SeqItem";

bool isSequenceHead(const ListRow& row);
/// The row at a position; null when there is none.
ListRow* sequenceRow(const List& list, int position);

/// Position of the nearest head row at or above `position`; 0 when there is none.
int findSequenceHead(const List& list, int position);
/// Rewrites the ordinals below the head row at `head`; 0 stands for rows above all heads, as a damaged file
/// can have them.
void renumberSequence(List& list, int head);

/// Adds a sequence without items at the end, selected.
void addSequenceHead(List& list, std::string name);
/// Inserts a message directly behind the row, selected, and numbers its sequence anew.
void insertSequenceItem(List& list, ListRow& behind, std::string direction, std::string_view message);
/// Removes an item and closes the gap in the ordinals, or a head with all its items.
void deleteSequenceRow(List& list, ListRow& row);

} // namespace zb
