#pragma once

#include "messages/sml/item_type.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The values of items, converted from the forms of SML to the words of an item Text.
namespace zb::sml {

struct Integer {
    bool negative = false;
    std::uint64_t magnitude = 0;
};

/// "12", "-3", "+4", "0x1F", "0b101", "0o17"; nothing for other words and for numbers of more than 64 bits.
std::optional<Integer> parseInteger(std::string_view word);

/// Whether the word has the form of a whole number of any size.
bool looksLikeInteger(std::string_view word);

enum class ValueFault {
    None,
    BareHex,    // read as hexadecimal because of a letter in it, without a prefix
    SignedByte, // a negative number in a binary item, read as the byte of the same bits
    NotOfType,  // not a value of the type
    OutOfRange, // the nearest value of the type was read
};

/// Appends the value's word for an item of this type, which is no list and no text; nothing is appended for
/// what is not of the type.
ValueFault appendValue(std::string& words, ItemType type, std::string_view word);

/// The values of the type, for a sentence: "a number from 0 to 255".
std::string_view expectedValue(ItemType type);

} // namespace zb::sml
