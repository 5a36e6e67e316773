#pragma once

#include "messages/secs2/items.h"
#include "rehearsal/layout_shape.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zb::rehearsal {

/// An item of a definition that is derived from messages.
struct LearnedItem {
    secs2::Format format = secs2::Format::List;
    bool isVariable = false; ///< counts differed; then a list has at most one member
    std::size_t most = 0;    ///< the highest count that was seen
    std::string value;       ///< an example, as an item Text holds it
    std::vector<LearnedItem> members;
};

/// The item at `index` with everything below it, as one message shows it.
LearnedItem learnItem(const secs2::Items& items, std::size_t index);

/// Extends `learned` so that it describes `other` as well. False, with `learned` in any state, when one
/// definition cannot describe both. A list that the published layout fixes keeps its count; null when there
/// is none.
bool unite(LearnedItem& learned, const LearnedItem& other, const LayoutShape* shape);

/// Whether the layout describes the item.
bool fitsLayout(const LearnedItem& item, const LayoutShape& shape);

/// Appends one line per item: its level, a blank, its item Text, CR LF. `uniqueName` makes a name unique in
/// the message.
using UniqueName = std::function<std::string(const std::string&)>;
void appendLearned(std::string& body, const LearnedItem& item, const LayoutShape* shape, std::size_t level,
                   const UniqueName& uniqueName);

} // namespace zb::rehearsal
