#pragma once

#include "messages/message_record.h"

#include <cstddef>
#include <optional>
#include <string>

namespace zb {

class CodePage;
class Node;

/// A value that was entered for an item of a message to be sent, and not written to it.
struct UnsetValue {
    std::size_t place = 0; ///< of the item among those of the message, from the top down
    std::string itemText;  ///< the text of its node when the value was entered
    std::string item;      ///< the name of the item; may be empty
    std::string value;
};

/// The number of nodes between the message's node and the node of an item, from the top down.
std::size_t placeOfItem(const Node& item);

/// The message with the value written to its item; nothing when the item is not there any more, or is not as
/// it was when the value was entered.
std::optional<SECSMessageRecord> withValue(const SECSMessageRecord& message, const UnsetValue& value,
                                           const CodePage& codePage);

} // namespace zb
