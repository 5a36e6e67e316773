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

/// The count of a list in the text, rounded to a whole number; nothing unless it is a number from 0 to
/// kMostListItems.
std::optional<int> listCountOf(std::string_view text);

/// Sets the value of an item, or the count of a list, and returns the new Text of its node. The count of a
/// list loses its "V", since it is now fixed. Values of type J are written without apostrophes.
std::string setItemValue(SECSItemRecord& item, std::string_view value);

/// Keys in the field for the value of an item; null locks the field. `ansiLength` is the current length of
/// the field.
KeyEffect filterSentValueKey(const SECSItemRecord* item, KeyEvent key, std::size_t ansiLength);

} // namespace zb
