#include "platform/utf16.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

constexpr std::size_t kUnit = 2;
constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::size_t kUnitsPerWord = kWord / kUnit;

bool isLead(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isTrail(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// The bits that a word of four ASCII units does not have, in memory order.
std::uint64_t beyondAscii(ByteOrder order) {
    const bool likeMemory =
        (order == ByteOrder::LittleEndian) == (std::endian::native == std::endian::little);
    return likeMemory ? 0xFF80FF80FF80FF80U : 0x80FF80FF80FF80FFU;
}

// Appends the ASCII that starts at `position`, four units at a time, and returns its end.
std::size_t appendAscii(std::string& text, std::string_view bytes, std::size_t position, ByteOrder order) {
    const std::uint64_t mask = beyondAscii(order);
    const std::size_t low = order == ByteOrder::LittleEndian ? 0 : 1;
    std::array<char, 1024> buffer{};
    std::size_t filled = 0;
    while (position + kWord <= bytes.size()) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + position, kWord);
        if ((word & mask) != 0)
            break;
        for (std::size_t i = 0; i < kUnitsPerWord; ++i)
            buffer[filled + i] = bytes[position + kUnit * i + low];
        filled += kUnitsPerWord;
        position += kWord;
        if (filled == buffer.size()) {
            text.append(buffer.data(), filled);
            filled = 0;
        }
    }
    text.append(buffer.data(), filled);
    return position;
}

void appendUnit(std::string& bytes, char32_t unit) {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8U);
}

void appendUtf16(std::string& bytes, char32_t point) {
    if (point < 0x10000) {
        appendUnit(bytes, point);
    } else {
        appendUnit(bytes, 0xD7C0U + (point >> 10U));
        appendUnit(bytes, 0xDC00U + (point & 0x3FFU));
    }
}

// The inverse of appendAscii.
std::size_t appendAsciiAsUtf16(std::string& bytes, std::string_view utf8, std::size_t position) {
    std::array<char, 1024> buffer{};
    std::size_t filled = 0;
    while (position + kWord <= utf8.size()) {
        std::uint64_t word = 0;
        std::memcpy(&word, utf8.data() + position, kWord);
        if ((word & 0x8080808080808080U) != 0)
            break;
        for (std::size_t i = 0; i < kWord; ++i)
            buffer[filled + kUnit * i] = utf8[position + i];
        filled += kUnit * kWord;
        position += kWord;
        if (filled == buffer.size()) {
            bytes.append(buffer.data(), filled);
            filled = 0;
        }
    }
    bytes.append(buffer.data(), filled);
    return position;
}

} // namespace

char16_t unitAt(std::string_view bytes, std::size_t position, ByteOrder order) {
    const unsigned first = static_cast<unsigned char>(bytes[position]);
    const unsigned second = static_cast<unsigned char>(bytes[position + 1]);
    return static_cast<char16_t>(order == ByteOrder::LittleEndian ? first | (second << 8U)
                                                                  : (first << 8U) | second);
}

DecodedUtf16 decodeUtf16(std::string_view bytes, ByteOrder order) {
    DecodedUtf16 decoded;
    decoded.text.reserve(bytes.size() / kUnit + bytes.size() / 16);
    decoded.endsInCharacter = bytes.size() % kUnit != 0;
    const std::string_view units = bytes.substr(0, bytes.size() - bytes.size() % kUnit);
    for (std::size_t position = 0; position < units.size();) {
        position = appendAscii(decoded.text, units, position, order);
        // A few units one by one, then the fast path is tried again.
        const std::size_t stop = std::min(units.size(), position + kWord);
        while (position < stop) {
            const char16_t unit = unitAt(units, position, order);
            position += kUnit;
            const bool more = position < units.size();
            if (isLead(unit) && more && isTrail(unitAt(units, position, order))) {
                const char32_t trail = unitAt(units, position, order);
                appendCodePoint(decoded.text, 0x10000U + ((unit - 0xD800U) << 10U) + (trail - 0xDC00U));
                position += kUnit;
                continue;
            }
            if (isLead(unit) || isTrail(unit)) {
                ++decoded.replacements;
                decoded.endsInCharacter = decoded.endsInCharacter || (isLead(unit) && !more);
            }
            appendCodePoint(decoded.text, unit);
        }
    }
    return decoded;
}

std::string encodeUtf16(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(kUnit * utf8.size() + kUnit);
    appendUnit(bytes, 0xFEFF);
    for (std::size_t position = 0; position < utf8.size();) {
        position = appendAsciiAsUtf16(bytes, utf8, position);
        const std::size_t stop = std::min(utf8.size(), position + kWord);
        while (position < stop) {
            const DecodedCharacter character = decodeCharacter(utf8, position);
            appendUtf16(bytes, character.codePoint);
            position += character.length;
        }
    }
    return bytes;
}

} // namespace zb
