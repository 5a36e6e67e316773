#include "platform/text.h"

#include <algorithm>
#include <stdexcept>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

namespace zb {

namespace {

char asciiUpper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

char asciiLower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string upperAscii(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), asciiUpper);
    return result;
}

// Longer texts are mapped in parts, since ICU counts bytes in 32 bits.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 26U;

// Parts end before a lead byte or ASCII, never inside a character.
std::size_t endOfPart(std::string_view text, std::size_t start) {
    std::size_t end = std::min(text.size(), start + kMostAtOnce);
    while (end < text.size() && end > start + 1 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    return end;
}

} // namespace

std::string upper(std::string_view anyText) {
    if (isAscii(anyText))
        return upperAscii(anyText);
    const std::string clean = sanitizeUtf8(anyText);
    const std::string_view text = clean;
    std::string result;
    result.reserve(text.size());
    icu::StringByteSink<std::string> sink(&result);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = endOfPart(text, start);
        UErrorCode status = U_ZERO_ERROR;
        icu::CaseMap::utf8ToUpper(
            "", 0, icu::StringPiece(text.data() + start, static_cast<std::int32_t>(end - start)), sink,
            nullptr, status);
        if (U_FAILURE(status))
            throw std::runtime_error("upper case: " + std::string(u_errorName(status)));
        start = end;
    }
    return result;
}

std::string lower(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    if (isAscii(text)) {
        result = text;
        std::transform(result.begin(), result.end(), result.begin(), asciiLower);
        return result;
    }
    for (std::size_t position = 0; position < text.size();) {
        const DecodedCharacter character = decodeCharacter(text, position);
        appendCodePoint(result, static_cast<char32_t>(u_tolower(static_cast<UChar32>(character.codePoint))));
        position += character.length;
    }
    return result;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    if (isAscii(left) && isAscii(right)) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                          [](char a, char b) { return asciiUpper(a) == asciiUpper(b); });
    }
    return upper(left) == upper(right);
}

} // namespace zb
