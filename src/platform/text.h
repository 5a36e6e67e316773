#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Text in UTF-8. "Blank" means U+0020 only: the message texts are split and trimmed at blanks, so that a
// pasted tab stays part of its value.
namespace zb {

/// The parts between the separators, including empty ones. An empty text has no parts; an empty separator
/// gives the whole text.
std::vector<std::string> split(std::string_view text, std::string_view separator);
/// The parts between single blanks: two blanks in a row have an empty part between them.
std::vector<std::string> splitAtBlanks(std::string_view text);
std::string join(const std::vector<std::string>& pieces, std::string_view separator);

std::string trim(std::string_view text);
std::string trimRight(std::string_view text);
/// The same without a copy; the view is a part of `text`.
std::string_view trimmed(std::string_view text);
/// Whether the text is empty or all blanks.
bool isBlank(std::string_view text);

/// Replaces every non-overlapping `from`, searched from the left, by `to`. An empty `from` changes nothing.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
bool contains(std::string_view text, std::string_view part);
/// The text before the first `mark`; the whole text when there is none.
std::string_view before(std::string_view text, std::string_view mark);

/// Unicode upper case with its special cases (one letter may become two), independent of any language.
std::string upper(std::string_view text);
/// Lower case letter by letter, so that a part of a text lowers to a part of the lowered text (searches rely
/// on it).
std::string lower(std::string_view text);
/// Whether the texts are equal in upper case.
bool equalsIgnoringCase(std::string_view left, std::string_view right);

bool isAscii(std::string_view text);
bool isValidUtf8(std::string_view text);
/// The text with U+FFFD in place of each byte that is not part of a valid sequence.
std::string sanitizeUtf8(std::string_view text);

/// A character of a text: the code point, and the number of its bytes (at least 1).
struct DecodedCharacter {
    char32_t codePoint;
    std::size_t length;
    bool valid;
};
/// Reads the character at `position`, which must be inside the text. An invalid byte is read as U+FFFD of
/// length 1.
DecodedCharacter decodeCharacter(std::string_view text, std::size_t position);
/// A code point that is not a character (a surrogate, or above U+10FFFF) is appended as U+FFFD.
void appendCodePoint(std::string& text, char32_t codePoint);
std::u32string codePoints(std::string_view text);
std::size_t codePointCount(std::string_view text);
std::string fromCodePoints(std::u32string_view points);

} // namespace zb
