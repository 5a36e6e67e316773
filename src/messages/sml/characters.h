#pragma once

#include <string_view>

// The character classes of SML. ASCII only, independent of the locale.
namespace zb::sml {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
/// Characters of other scripts count as letters, since they occur in names.
constexpr bool isWordStart(char c) {
    return isLetter(c) || c == '_' || c == '$' || (c & 0x80) != 0;
}
constexpr bool isWordCharacter(char c) {
    return isWordStart(c) || isDigit(c);
}
constexpr bool isQuote(char c) {
    return c == '\'' || c == '"';
}
constexpr bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}
constexpr bool isInlineSpace(char c) {
    return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\0' || c == '\x1a';
}
constexpr bool isSpace(char c) {
    return isInlineSpace(c) || isLineEnd(c);
}
inline char upperLetter(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// `capitals` is in upper case.
inline bool isWord(std::string_view word, std::string_view capitals) {
    if (word.size() != capitals.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i)
        if (upperLetter(word[i]) != capitals[i])
            return false;
    return true;
}

/// Without white space at its ends.
inline std::string_view stripped(std::string_view text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace zb::sml
