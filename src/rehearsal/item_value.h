#pragma once

#include "messages/secs2/items.h"
#include "platform/code_page.h"

#include <string>
#include <string_view>

// The values of received items, and their comparison with the values of definitions and conditions.
namespace zb::rehearsal {

/// The value of an item as text: characters for a text, otherwise the values separated by single blanks, as
/// definitions write them. Bytes of a text that are not ASCII are read by the code page.
std::string itemText(const secs2::Items& items, const secs2::Item& item, const CodePage& codePage);

/// Whether the item has this value. Numbers are compared as numbers (those of F4 with the precision of F4),
/// truth values without regard to case, bytes as numbers one by one, texts character by character. A list,
/// and an item with no value, have no value that could be equal, except that an empty text equals an empty
/// one.
bool equalsValue(const secs2::Items& items, const secs2::Item& item, std::string_view value,
                 const CodePage& codePage);

} // namespace zb::rehearsal
