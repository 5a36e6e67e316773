#pragma once

#include <optional>
#include <string_view>

namespace zb::sml {

enum class ItemType { List, Ascii, Jis8, Any, Binary, Boolean, I1, I2, I4, I8, U1, U2, U4, U8, F4, F8 };

/// The type for a word, including its other spellings ("Boolean", "JIS8", "Binary"), in any case. "V", the
/// value of any type, is `any`.
std::optional<ItemType> itemTypeOf(std::string_view word);

/// The type word of an item Text.
std::string_view typeWord(ItemType type);

inline bool isQuotedType(ItemType type) {
    return type == ItemType::Ascii || type == ItemType::Jis8 || type == ItemType::Any;
}

} // namespace zb::sml
