#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Text in UTF-8. "Blank" means U+0020 and nothing else: the message texts are split and trimmed at blanks
// only, so that a tab that came in by paste stays part of its value.
namespace zb {

// The pieces between the separators, empty ones too. An empty text has no pieces; an empty separator gives
// the whole text.
std::vector<std::string> split(std::string_view text, std::string_view separator);
// The pieces between single blanks: two blanks in a row have an empty piece between them.
std::vector<std::string> splitAtBlanks(std::string_view text);
std::string join(const std::vector<std::string>& pieces, std::string_view separator);

std::string trim(std::string_view text);
std::string trimRight(std::string_view text);
// The same without a copy; the view is a part of `text`.
std::string_view trimmed(std::string_view text);
// Whether the text is empty or all blanks.
bool isBlank(std::string_view text);

// Every non-overlapping `from`, looked for from the left, becomes `to`. An empty `from` changes nothing.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
bool contains(std::string_view text, std::string_view part);
// What stands before the first `mark`; the whole text when there is none.
std::string_view before(std::string_view text, std::string_view mark);

// Unicode's upper case, with its special cases (one letter may become two), independent of any language.
std::string upper(std::string_view text);
// Lower case letter by letter, so that a part of a text lowers to a part of the lowered text (a search relies
// on it).
std::string lower(std::string_view text);
// Equal once both are in upper case.
bool equalsIgnoringCase(std::string_view left, std::string_view right);

bool isAscii(std::string_view text);
bool isValidUtf8(std::string_view text);
// The text with U+FFFD in place of each byte that belongs to no valid sequence.
std::string sanitizeUtf8(std::string_view text);

// A character read from a text: the code point, and the bytes that it takes (at least 1).
struct DecodedCharacter {
    char32_t codePoint;
    std::size_t length;
    bool valid;
};
// Reads the character at `position`, which lies inside the text. An invalid byte reads as U+FFFD of length 1.
DecodedCharacter decodeCharacter(std::string_view text, std::size_t position);
// A code point that is no character (a surrogate, or past U+10FFFF) is appended as U+FFFD.
void appendCodePoint(std::string& text, char32_t codePoint);
std::u32string codePoints(std::string_view text);
std::size_t codePointCount(std::string_view text);
std::string fromCodePoints(std::u32string_view points);

} // namespace zb
