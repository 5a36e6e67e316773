#include "platform/printable.h"

#include "platform/text.h"

#include <algorithm>
#include <cstddef>

namespace zb {

namespace {

constexpr char32_t kDelete = 0x7F;

bool isBreak(char32_t point) {
    constexpr char32_t kNextLine = 0x85;
    constexpr char32_t kLineSeparator = 0x2028;
    constexpr char32_t kParagraphSeparator = 0x2029;
    return (point >= '\t' && point <= '\r') || point == kNextLine || point == kLineSeparator ||
           point == kParagraphSeparator;
}

bool isControl(char32_t point) {
    return point < ' ' || (point >= kDelete && point < 0xA0);
}

// Marks, embeddings, overrides and isolates of the bidirectional algorithm, with the deprecated ones.
bool turnsDirection(char32_t point) {
    return point == 0x061C || point == 0x200E || point == 0x200F || (point >= 0x202A && point <= 0x202E) ||
           (point >= 0x2066 && point <= 0x206F);
}

char32_t harmless(char32_t point) {
    if (isBreak(point))
        return ' ';
    return isControl(point) || turnsDirection(point) ? U'?' : point;
}

bool isPlain(char byte) {
    return byte >= ' ' && byte < static_cast<char>(kDelete);
}

// The text with what `change` appends for each character that is not plain ASCII.
template<typename Change>
std::string changed(std::string_view text, Change change) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto from = text.begin() + static_cast<std::ptrdiff_t>(position);
        const auto end = std::find_if_not(from, text.end(), isPlain);
        result.append(from, end);
        position += static_cast<std::size_t>(end - from);
        if (end == text.end())
            break;
        const DecodedCharacter character = decodeCharacter(text, position);
        change(result, character.codePoint);
        position += character.length;
    }
    return result;
}

// All that `printable` replaces fits one escape.
void appendEscape(std::string& json, char32_t point) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    json += "\\u";
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        json += kDigits[(point >> shift) & 0xFU];
}

} // namespace

std::string printable(std::string_view text) {
    return changed(text, [](std::string& line, char32_t point) { appendCodePoint(line, harmless(point)); });
}

std::string printableLines(std::string_view text) {
    return changed(replaceAll(text, "\r\n", "\n"), [](std::string& lines, char32_t point) {
        appendCodePoint(lines, point == '\n' || point == '\t' ? point : harmless(point));
    });
}

std::string printableJson(std::string_view json) {
    return changed(json, [](std::string& line, char32_t point) {
        if (harmless(point) == point)
            appendCodePoint(line, point);
        else
            appendEscape(line, point);
    });
}

} // namespace zb
