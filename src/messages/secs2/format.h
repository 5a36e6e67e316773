#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zb::secs2 {

/// The format codes of SECS-II data items.
enum class Format : std::uint8_t {
    List = 000,
    Binary = 010,
    Boolean = 011,
    Ascii = 020,
    Jis8 = 021,
    Char2 = 022, ///< two-byte characters, after two bytes that name their encoding
    I8 = 030,
    I1 = 031,
    I2 = 032,
    I4 = 034,
    F8 = 040,
    F4 = 044,
    U8 = 050,
    U1 = 051,
    U2 = 052,
    U4 = 054,
};

enum class ValueKind { List, Text, Binary, Boolean, Signed, Unsigned, Float };

/// The properties of a format.
struct FormatTraits {
    Format format = Format::List;
    std::string_view word; ///< in SML and in definitions; a definition has no word for Char2
    std::size_t width = 0; ///< bytes of one value; 0 for a list
    ValueKind kind = ValueKind::List;
};

/// The traits of a code of 6 bits; nothing for a code that is not in use.
std::optional<FormatTraits> traitsOfCode(unsigned code);
const FormatTraits& traitsOf(Format format);
/// The format for the type word of a definition; nothing for "X" and for unknown words.
std::optional<Format> formatOfWord(std::string_view word);

} // namespace zb::secs2
