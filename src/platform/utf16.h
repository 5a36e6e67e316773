#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

enum class ByteOrder { LittleEndian, BigEndian };

/// The code unit whose two bytes start at `position`; both must be inside.
char16_t unitAt(std::string_view bytes, std::size_t position, ByteOrder order);

struct DecodedUtf16 {
    std::string text;
    std::size_t replacements = 0; // single surrogates that became U+FFFD
    bool endsInCharacter = false; // an odd byte, or half of a surrogate pair, is at the end
};
/// The bytes after the mark as UTF-8. An odd last byte is dropped.
DecodedUtf16 decodeUtf16(std::string_view bytes, ByteOrder order);

} // namespace zb
