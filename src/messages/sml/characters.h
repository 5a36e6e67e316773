#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The character classes of SML. ASCII only, independent of the locale.
namespace zb::sml {

/// Each a bit, so that one look into a table answers for any of several classes: most of the time of reading
/// goes into such questions.
/// @{
inline constexpr unsigned kDigit = 1;
inline constexpr unsigned kLetter = 2;
inline constexpr unsigned kUnderscore = 4;
/// "$", and the characters of other scripts, since names contain them.
inline constexpr unsigned kOtherWordMark = 8;
inline constexpr unsigned kQuote = 16;
inline constexpr unsigned kLineEnd = 32;
inline constexpr unsigned kInlineSpace = 64;
/// White space, and what a comment can begin with.
inline constexpr unsigned kMaySkip = 128;
/// @}

inline constexpr auto kClassesOf = [] {
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&classes](std::string_view characters, unsigned of) {
        for (const char c : characters)
            classes[static_cast<unsigned char>(c)] |= static_cast<std::uint8_t>(of);
    };
    using namespace std::string_view_literals;
    add("0123456789", kDigit);
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", kLetter);
    add("_", kUnderscore);
    add("$", kOtherWordMark);
    for (std::size_t c = 0x80; c < classes.size(); ++c)
        classes[c] = kOtherWordMark;
    add("'\"", kQuote);
    add("\n\r", kLineEnd | kMaySkip);
    add(" \t\v\f\0\x1a"sv, kInlineSpace | kMaySkip);
    add("*/\\#", kMaySkip);
    return classes;
}();

/// Whether the character is of one of the classes.
constexpr bool isOf(char c, unsigned classes) {
    return (kClassesOf[static_cast<unsigned char>(c)] & classes) != 0;
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isLetter(char c) {
    return isOf(c, kLetter);
}
constexpr bool isWordStart(char c) {
    return isOf(c, kLetter | kUnderscore | kOtherWordMark);
}
constexpr bool isWordCharacter(char c) {
    return isOf(c, kLetter | kDigit | kUnderscore | kOtherWordMark);
}
/// The characters that the name of an item can have in any case.
constexpr bool isPlainNameCharacter(char c) {
    return isOf(c, kLetter | kDigit | kUnderscore);
}
constexpr bool isQuote(char c) {
    return isOf(c, kQuote);
}
constexpr bool isLineEnd(char c) {
    return isOf(c, kLineEnd);
}
constexpr bool isInlineSpace(char c) {
    return isOf(c, kInlineSpace);
}
constexpr bool isSpace(char c) {
    return isOf(c, kInlineSpace | kLineEnd);
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
