#include "model/fact_text.h"

#include "platform/text.h"

#include <charconv>
#include <optional>

namespace zb {

namespace {

/// Characters that are invisible, or would not survive a text file.
bool needsEscape(const DecodedCharacter& character) {
    const char32_t point = character.codePoint;
    if (!character.valid || point < 0x20 || (point >= 0x7F && point < 0xA0))
        return true;
    return point == 0x2028 || point == 0x2029 || point == 0xFEFF || (point & 0xFFFEU) == 0xFFFEU;
}

void appendBytes(std::string& line, std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        line.append("\\x").append(1, kDigits[number >> 4U]).append(1, kDigits[number & 15U]);
    }
}

/// The letter after the backslash of a short escape; 0 for a character that has none.
char shortEscape(char character) {
    switch (character) {
    case '\\':
        return '\\';
    case '\r':
        return 'r';
    case '\n':
        return 'n';
    case '\t':
        return 't';
    default:
        return 0;
    }
}

/// The characters around a text on its line, which the text therefore cannot contain.
enum class Place { Line, Word, Quotes };

/// Whether the position needs the character for itself; then its escape has been appended.
bool appendForPlace(std::string& line, char character, Place place) {
    if (place == Place::Quotes && character == '"')
        line += "\\\"";
    else if (place == Place::Word && character == ' ')
        line += "\\s";
    else if (place == Place::Word && (character == '=' || character == '"'))
        appendBytes(line, std::string_view(&character, 1));
    else
        return false;
    return true;
}

void appendEscaped(std::string& line, std::string_view text, Place place) {
    line.reserve(line.size() + text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char first = text[at];
        const char letter = shortEscape(first);
        if (letter != 0)
            line.append(1, '\\').append(1, letter);
        if (letter != 0 || appendForPlace(line, first, place)) {
            ++at;
            continue;
        }
        const DecodedCharacter character = decodeCharacter(text, at);
        const std::string_view bytes = text.substr(at, character.length);
        if (needsEscape(character))
            appendBytes(line, bytes);
        else
            line.append(bytes);
        at += character.length;
    }
}

std::optional<char> byteOf(std::string_view digits) {
    unsigned number = 0;
    const char* end = digits.data() + digits.size();
    if (digits.size() != 2 || std::from_chars(digits.data(), end, number, 16).ptr != end)
        return std::nullopt;
    return static_cast<char>(number);
}

/// The text of the escape at the start, which is removed; a single backslash when it is not an escape.
char takeEscape(std::string_view& rest) {
    const char letter = rest.size() > 1 ? rest[1] : '\0';
    if (letter == 'x') {
        if (const auto byte = byteOf(rest.substr(2, 2))) {
            rest.remove_prefix(4);
            return *byte;
        }
    }
    constexpr std::string_view kLetters = "rnts\\\"";
    constexpr std::string_view kMeanings = "\r\n\t \\\"";
    const std::size_t found = letter == '\0' ? std::string_view::npos : kLetters.find(letter);
    if (found == std::string_view::npos) {
        rest.remove_prefix(1);
        return '\\';
    }
    rest.remove_prefix(2);
    return kMeanings[found];
}

} // namespace

void appendFactText(std::string& line, std::string_view text) {
    const bool endsBlank = !text.empty() && text.back() == ' ';
    appendEscaped(line, text.substr(0, text.size() - (endsBlank ? 1 : 0)), Place::Line);
    if (endsBlank)
        line += "\\s";
}

void appendFactWord(std::string& line, std::string_view text) {
    appendEscaped(line, text, Place::Word);
}

void appendQuotedFact(std::string& line, std::string_view text) {
    line += '"';
    appendEscaped(line, text, Place::Quotes);
    line += '"';
}

std::string factText(std::string_view escaped) {
    if (escaped.find('\\') == std::string_view::npos)
        return std::string(escaped);
    std::string text;
    text.reserve(escaped.size());
    for (std::string_view rest = escaped; !rest.empty();) {
        const std::size_t plain = rest.find('\\');
        text.append(rest.substr(0, plain));
        if (plain == std::string_view::npos)
            break;
        rest.remove_prefix(plain);
        text += takeEscape(rest);
    }
    return text;
}

} // namespace zb
