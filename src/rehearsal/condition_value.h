#pragma once

#include "rehearsal/interpretation.h"

#include <optional>

namespace zb::rehearsal {

/// The received data of a message beside its definition.
struct ReceivedData {
    const MessagePattern& pattern;
    const secs2::Items& items;
    const CodePage& codePage;
};

/// The item that an address means: indexes count from 1, that of the outermost variable list first. A missing
/// index is 1, surplus indexes are ignored. Null when the message does not contain the item.
const secs2::Item* findItem(const ReceivedData& data, const DataItemAddress& address);

/// Whether a comparison holds. An item that is missing equals nothing, so "!=" holds for it.
ComparedItem evaluate(const ReceivedData& data, const Comparison& comparison);

/// Whether a condition holds; the compared items are appended to `compared` when it is given. A condition
/// that cannot be understood does not hold.
bool evaluate(const ReceivedData& data, const Condition& condition, std::vector<ComparedItem>* compared);

} // namespace zb::rehearsal
