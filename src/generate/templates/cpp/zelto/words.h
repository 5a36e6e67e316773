#ifndef ZELTO_WORDS_H
#define ZELTO_WORDS_H

#include "numbers.h"

#include <optional>

namespace zelto {

/// A text that no message carries.
inline constexpr std::string_view kNoText{"\0\xFF\0\xFE", 4};

/// The next word of a text, which goes on after it; empty at the end.
inline std::string_view takeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

/// "12", "-3", "+4", "0x1F", "0b101", "0o17".
struct WholeNumber {
    bool isNegative = false;
    std::uint64_t magnitude = 0;
};
inline std::optional<WholeNumber> wholeNumber(std::string_view word) {
    WholeNumber number;
    if (word.starts_with('-') || word.starts_with('+')) {
        number.isNegative = word.starts_with('-');
        word.remove_prefix(1);
    }
    int base = 10;
    if (word.size() > 2 && word[0] == '0') {
        const char mark = static_cast<char>(word[1] | 0x20);
        base = mark == 'x' ? 16 : mark == 'b' ? 2 : mark == 'o' ? 8 : 10;
        if (base != 10)
            word.remove_prefix(2);
    }
    const auto result = std::from_chars(word.data(), word.data() + word.size(), number.magnitude, base);
    if (result.ec != std::errc() || result.ptr != word.data() + word.size())
        return std::nullopt;
    return number;
}

/// A decimal number, with or without a fraction and an exponent.
inline std::optional<double> decimalNumber(std::string_view word) {
    if (word.starts_with('+'))
        word.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
    const bool isWhole = result.ec == std::errc() && result.ptr == word.data() + word.size();
    return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Whether a value is the one that a word means.
template<typename Number>
bool equalsWord(Number value, std::string_view word) {
    if constexpr (std::is_same_v<Number, bool>) {
        std::string letters(word);
        for (char& letter : letters)
            letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
        return value ? letters == "TRUE" || letters == "T" : letters == "FALSE" || letters == "F";
    } else if constexpr (std::is_floating_point_v<Number>) {
        const auto number = decimalNumber(word);
        return number && static_cast<Number>(*number) == value;
    } else {
        const auto whole = wholeNumber(word);
        if (!whole) {
            const auto number = decimalNumber(word);
            return number && *number == static_cast<double>(value);
        }
        const bool isNegative = whole->isNegative && whole->magnitude != 0;
        if constexpr (std::is_unsigned_v<Number>)
            return !isNegative && whole->magnitude == value;
        else
            return isNegative == (value < 0) && whole->magnitude == (value < 0 ? 0 - static_cast<std::uint64_t>(value)
                                                                               : static_cast<std::uint64_t>(value));
    }
}

} // namespace zelto

#endif
