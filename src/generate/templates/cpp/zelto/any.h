#ifndef ZELTO_ANY_H
#define ZELTO_ANY_H

#include "format.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelto {

/// A data item of any format. Numbers are the bytes of the message, the most significant first.
struct Any {
    Format format = Format::A;
    std::string data;         ///< of an item that is no list
    std::vector<Any> members; ///< of a list

    static Any text(std::string_view characters) { return {Format::A, std::string(characters), {}}; }

    bool operator==(const Any&) const = default;
};

/// The bytes of numbers.
/// @{
inline std::uint64_t bigEndian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = value << 8U | static_cast<unsigned char>(byte);
    return value;
}
inline void appendBigEndian(std::string& bytes, std::uint64_t value, std::size_t width) {
    for (std::size_t place = width; place > 0; --place)
        bytes += static_cast<char>(value >> (8U * (place - 1)) & 0xFFU);
}
/// @}

} // namespace zelto

#endif
