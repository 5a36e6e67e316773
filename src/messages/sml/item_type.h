#pragma once

#include <optional>
#include <string_view>

namespace zb::sml {

enum class ItemType { list, ascii, jis8, any, binary, boolean, i1, i2, i4, i8, u1, u2, u4, u8, f4, f8 };

// The type for a word, including its other spellings ("Boolean", "JIS8", "Binary"), in any case. "V", the
// value of any type, is `any`.
std::optional<ItemType> itemTypeOf(std::string_view word);

// The type word of an item Text.
std::string_view typeWord(ItemType type);

inline bool isQuotedType(ItemType type) {
    return type == ItemType::ascii || type == ItemType::jis8 || type == ItemType::any;
}

} // namespace zb::sml
