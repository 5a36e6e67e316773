#pragma once

#include "messages/secs2/item_codec.h"
#include "messages/secs2/items.h"

#include <optional>
#include <string>
#include <string_view>

// The data of a message as SML, exact to the byte. Unlike the reader of message lists, which makes
// definitions of what it reads, these functions keep every value.
namespace zb::secs2 {

/// Reads the items of one message from a log: everything after its head, with or without the final point. The
/// dialects are those of message lists; a text may also come without quotes, as "<A [6] ZE3000>". Declared
/// counts only delimit texts. After a fault, whose offset counts from the start of `text`, `items` is empty.
std::optional<DecodeFault> readSmlData(std::string_view text, Items& items);

/// Appends the items as lines that end in LF, indented by `indent` levels. Characters outside of printable
/// ASCII are written as character codes.
void appendSmlData(std::string& text, const Items& items, std::size_t indent);

} // namespace zb::secs2
