#include "platform/text.h"

#include <cstdint>
#include <cstring>

namespace zb {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::uint64_t kHighBits = 0x8080808080808080U;

unsigned byteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

// The end of the run of ASCII that starts at `position`, found eight bytes at a time.
std::size_t endOfAscii(std::string_view text, std::size_t position) {
    while (position + sizeof(std::uint64_t) <= text.size()) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + position, sizeof word);
        if ((word & kHighBits) != 0)
            break;
        position += sizeof word;
    }
    while (position < text.size() && byteAt(text, position) < 0x80)
        ++position;
    return position;
}

// The information in a lead byte: the length of its sequence (0 for none) and the smallest code point that
// needs it.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead readLead(unsigned byte) {
    if (byte < 0x80)
        return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0)
        return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5)
        return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point < 0xE000;
}

} // namespace

bool isAscii(std::string_view text) {
    return endOfAscii(text, 0) == text.size();
}

DecodedCharacter decodeCharacter(std::string_view text, std::size_t position) {
    constexpr DecodedCharacter kInvalid{kReplacement, 1, false};
    const Lead lead = readLead(byteAt(text, position));
    if (lead.length == 0 || position + lead.length > text.size())
        return kInvalid;
    char32_t point = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const unsigned trail = byteAt(text, position + i);
        if ((trail & 0xC0U) != 0x80U)
            return kInvalid;
        point = (point << 6U) | (trail & 0x3FU);
    }
    if (point < lead.least || point > 0x10FFFF || isSurrogate(point))
        return kInvalid;
    return {point, lead.length, true};
}

bool isValidUtf8(std::string_view text) {
    for (std::size_t position = endOfAscii(text, 0); position < text.size();
         position = endOfAscii(text, position)) {
        const DecodedCharacter character = decodeCharacter(text, position);
        if (!character.valid)
            return false;
        position += character.length;
    }
    return true;
}

std::string sanitizeUtf8(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t end = endOfAscii(text, position);
        clean += text.substr(position, end - position);
        position = end;
        if (position < text.size()) {
            const DecodedCharacter character = decodeCharacter(text, position);
            appendCodePoint(clean, character.codePoint);
            position += character.length;
        }
    }
    return clean;
}

void appendCodePoint(std::string& text, char32_t codePoint) {
    const char32_t point = codePoint > 0x10FFFF || isSurrogate(codePoint) ? kReplacement : codePoint;
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    const auto appendTrail = [&append, point](unsigned shift) { append(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80) {
        append(point);
        return;
    }
    if (point < 0x800) {
        append(0xC0U | (point >> 6U));
    } else {
        if (point < 0x10000) {
            append(0xE0U | (point >> 12U));
        } else {
            append(0xF0U | (point >> 18U));
            appendTrail(12);
        }
        appendTrail(6);
    }
    appendTrail(0);
}

std::u32string codePoints(std::string_view text) {
    std::u32string points;
    points.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const DecodedCharacter character = decodeCharacter(text, position);
        points += character.codePoint;
        position += character.length;
    }
    return points;
}

std::size_t codePointCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count)
        position += decodeCharacter(text, position).length;
    return count;
}

std::string fromCodePoints(std::u32string_view points) {
    std::string text;
    text.reserve(points.size());
    for (const char32_t point : points)
        appendCodePoint(text, point);
    return text;
}

} // namespace zb
