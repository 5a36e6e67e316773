#pragma once

#include "controls/key_filter.h"

#include <string_view>

// Which keys may enter a character into the fields of the item pane. Pasted text is not filtered.
namespace zb {

KeyEffect filterItemNameKey(KeyEvent key, std::string_view field);
KeyEffect filterItemCountKey(KeyEvent key, std::string_view field);
/// `type` is the type token of the item. Lists and quoted types filter nothing.
KeyEffect filterItemValueKey(std::string_view type, KeyEvent key, std::string_view field);

} // namespace zb
