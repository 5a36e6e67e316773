#pragma once

#include "controls/key_filter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

class SECSItemRecord;

/// The largest count of a list.
inline constexpr int kMostListItems = 32767;

/// The count that the text gives a list, rounded to a whole number; nothing when it is none from 0 to
/// kMostListItems.
std::optional<int> listCountOf(std::string_view text);

/// Sets the value of an item, of a list its count, and gives the new Text of its node. The count of a list
/// loses its "V": what has been given a count is variable no more. Values of type J stand bare.
std::string setItemValue(SECSItemRecord& item, std::string_view value);

/// Keys in the field for the value of an item; null locks the field. `ansiLength` is the field's length so
/// far.
KeyEffect filterSentValueKey(const SECSItemRecord* item, KeyEvent key, std::size_t ansiLength);

} // namespace zb
