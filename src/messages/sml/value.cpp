#include "messages/sml/value.h"

#include "messages/sml/characters.h"
#include "platform/number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zb::sml {

namespace {

struct IntegerRange {
    std::uint64_t lowest; // its magnitude, below zero
    std::uint64_t highest;
};

IntegerRange rangeOf(ItemType type) {
    switch (type) {
    case ItemType::I1:
        return {0x80, 0x7F};
    case ItemType::I2:
        return {0x8000, 0x7FFF};
    case ItemType::I4:
        return {0x80000000, 0x7FFFFFFF};
    case ItemType::I8:
        return {0x8000000000000000, 0x7FFFFFFFFFFFFFFF};
    case ItemType::U2:
        return {0, 0xFFFF};
    case ItemType::U4:
        return {0, 0xFFFFFFFF};
    case ItemType::U8:
        return {0, std::numeric_limits<std::uint64_t>::max()};
    default: // U1 and binary
        return {0, 0xFF};
    }
}

int baseOf(std::string_view digits) {
    if (digits.size() < 3 || digits[0] != '0')
        return 10;
    switch (upperLetter(digits[1])) {
    case 'X':
        return 16;
    case 'B':
        return 2;
    case 'O':
        return 8;
    default:
        return 10;
    }
}

std::optional<std::uint64_t> parseDigits(std::string_view digits, int base) {
    std::uint64_t number = 0;
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
    if (fault != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

void appendInteger(std::string& words, const Integer& integer) {
    std::array<char, 24> buffer;
    const auto [end, fault] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), integer.magnitude);
    if (integer.negative && integer.magnitude != 0)
        words += '-';
    words.append(buffer.data(), end);
}

bool inRange(const Integer& integer, ItemType type) {
    const IntegerRange range = rangeOf(type);
    return integer.magnitude <= (integer.negative ? range.lowest : range.highest);
}

// The number of a word of digits, as most are; nothing for words that need a full check.
std::optional<std::uint64_t> plainNumber(std::string_view word) {
    constexpr std::size_t kMostDigits = 18;
    if (word.empty() || word.size() > kMostDigits || (word[0] == '0' && word.size() > 1))
        return std::nullopt;
    std::uint64_t number = 0;
    for (const char c : word) {
        if (!isDigit(c))
            return std::nullopt;
        number = number * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return number;
}

// A sign, digits with at most one point: too short to overflow either type.
bool isPlainDecimal(std::string_view word) {
    constexpr std::size_t kMostDigits = 30;
    if (!word.empty() && word[0] == '-')
        word.remove_prefix(1);
    if (word.empty() || word.size() > kMostDigits || !isDigit(word[0]))
        return false;
    bool point = false;
    for (const char c : word) {
        if (!isDigit(c) && (c != '.' || point))
            return false;
        point = point || c == '.';
    }
    return true;
}

// A binary item holds bytes from 0 to 255; some tools write them with a sign.
constexpr std::uint64_t kMostNegativeByte = 128;

ValueFault appendNearest(std::string& words, ItemType type, bool negative) {
    const IntegerRange range = rangeOf(type);
    appendInteger(words, {negative, negative ? range.lowest : range.highest});
    return ValueFault::OutOfRange;
}

ValueFault appendWhole(std::string& words, ItemType type, std::string_view word) {
    if (const std::optional<std::uint64_t> plain = plainNumber(word);
        plain && *plain <= rangeOf(type).highest) {
        words += word;
        return ValueFault::None;
    }
    const std::optional<Integer> integer = parseInteger(word);
    if (integer && inRange(*integer, type)) {
        appendInteger(words, *integer);
        return ValueFault::None;
    }
    if (integer && integer->negative && type == ItemType::Binary && integer->magnitude <= kMostNegativeByte) {
        appendInteger(words, {false, 256 - integer->magnitude});
        return ValueFault::SignedByte;
    }
    if (integer || looksLikeInteger(word))
        return appendNearest(words, type, word[0] == '-');
    if (type != ItemType::Binary || word.size() > 2)
        return ValueFault::NotOfType;
    const std::optional<std::uint64_t> byte = parseDigits(word, 16);
    if (!byte)
        return ValueFault::NotOfType;
    appendInteger(words, {false, *byte});
    return ValueFault::BareHex;
}

ValueFault appendBoolean(std::string& words, std::string_view word) {
    const std::optional<Integer> integer = parseInteger(word);
    if (isWord(word, "T") || isWord(word, "TRUE") || (integer && integer->magnitude != 0))
        words += "True";
    else if (isWord(word, "F") || isWord(word, "FALSE") || integer)
        words += "False";
    else
        return ValueFault::NotOfType;
    return ValueFault::None;
}

// The largest number of the type, with few enough digits to be in its range.
ValueFault appendLargest(std::string& words, ItemType type, bool negative) {
    words += negative ? "-" : "";
    words += type == ItemType::F4 ? "3.4028234E+38" : "1.7976931348623157E+308";
    return ValueFault::OutOfRange;
}

ValueFault appendFloat(std::string& words, ItemType type, std::string_view word) {
    if (isPlainDecimal(word)) {
        words += word;
        return ValueFault::None;
    }
    const std::optional<double> number = toNumber(word);
    if (!number && !isNumeric(word)) {
        const std::optional<Integer> integer = parseInteger(word);
        if (!integer)
            return ValueFault::NotOfType;
        appendInteger(words, *integer);
        return ValueFault::None;
    }
    if (!number ||
        (type == ItemType::F4 && std::abs(*number) > static_cast<double>(std::numeric_limits<float>::max())))
        return appendLargest(words, type, word[0] == '-');
    words += word;
    return ValueFault::None;
}

} // namespace

std::optional<Integer> parseInteger(std::string_view word) {
    Integer integer;
    if (!word.empty() && (word[0] == '-' || word[0] == '+')) {
        integer.negative = word[0] == '-';
        word.remove_prefix(1);
    }
    const int base = baseOf(word);
    word.remove_prefix(base == 10 ? 0 : 2);
    const std::optional<std::uint64_t> magnitude = parseDigits(word, base);
    if (!magnitude)
        return std::nullopt;
    integer.magnitude = *magnitude;
    return integer;
}

bool looksLikeInteger(std::string_view word) {
    if (!word.empty() && (word[0] == '-' || word[0] == '+'))
        word.remove_prefix(1);
    const int base = baseOf(word);
    word.remove_prefix(base == 10 ? 0 : 2);
    std::string_view digits = "0123456789abcdefABCDEF";
    if (base != 16)
        digits = digits.substr(0, static_cast<std::size_t>(base));
    return !word.empty() && word.find_first_not_of(digits) == std::string_view::npos;
}

ValueFault appendValue(std::string& words, ItemType type, std::string_view word) {
    switch (type) {
    case ItemType::Boolean:
        return appendBoolean(words, word);
    case ItemType::F4:
    case ItemType::F8:
        return appendFloat(words, type, word);
    default:
        return appendWhole(words, type, word);
    }
}

std::string_view expectedValue(ItemType type) {
    switch (type) {
    case ItemType::Boolean:
        return "T, F, TRUE, FALSE, 0 or 1";
    case ItemType::F4:
        return "a number that four bytes hold";
    case ItemType::F8:
        return "a number";
    case ItemType::I1:
        return "a whole number from -128 to 127";
    case ItemType::I2:
        return "a whole number from -32768 to 32767";
    case ItemType::I4:
        return "a whole number of four bytes";
    case ItemType::I8:
        return "a whole number of eight bytes";
    case ItemType::U2:
        return "a whole number from 0 to 65535";
    case ItemType::U4:
        return "a whole number of four bytes, not below 0";
    case ItemType::U8:
        return "a whole number of eight bytes, not below 0";
    case ItemType::Binary:
    case ItemType::U1:
        return "a whole number from 0 to 255";
    default:
        return "a text";
    }
}

} // namespace zb::sml
