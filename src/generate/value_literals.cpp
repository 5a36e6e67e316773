#include "generate/value_literals.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace zb::generate {

namespace {

// A longer list of zeros is written by its length.
constexpr std::size_t kLongestList = 4096;

/// The range of an integer type: the bits of its values.
struct IntegerRange {
    bool isSigned;
    unsigned bits;
};

IntegerRange rangeOf(const ItemTree& item) {
    if (item.kind == ItemKind::Binary)
        return {false, 8};
    const unsigned bytes = static_cast<unsigned>(countOf(std::string_view(item.type).substr(1)));
    return {item.kind == ItemKind::Signed, 8 * std::max(1U, bytes)};
}

/// The whole number of a word, exact where it has no fraction, within the range.
std::string integerText(std::string_view word, IntegerRange range, bool asSigned) {
    const double least = range.isSigned ? -std::ldexp(1.0, static_cast<int>(range.bits) - 1) : 0;
    const double most = std::ldexp(1.0, static_cast<int>(range.bits - (range.isSigned ? 1 : 0)));
    const double value = valueOf(word);
    const std::string_view digits = word.starts_with('+') ? word.substr(1) : word;
    const char* end = digits.data() + digits.size();
    if (range.isSigned) {
        std::int64_t number = 0;
        const auto exact = std::from_chars(digits.data(), end, number);
        if (exact.ec == std::errc() && exact.ptr == end && value >= least && value < most)
            return std::to_string(number);
        const std::int64_t highest = std::numeric_limits<std::int64_t>::max() >> (64U - range.bits);
        if (value >= most)
            return std::to_string(highest);
        return std::to_string(value <= least ? -highest - 1
                                             : static_cast<std::int64_t>(std::nearbyint(value)));
    }
    std::uint64_t number = 0;
    const auto exact = std::from_chars(digits.data(), end, number);
    if (exact.ec != std::errc() || exact.ptr != end || value >= most) {
        const std::uint64_t highest = std::numeric_limits<std::uint64_t>::max() >> (64U - range.bits);
        number = value <= 0 ? 0 : value >= most ? highest : static_cast<std::uint64_t>(std::nearbyint(value));
    }
    return asSigned ? std::to_string(static_cast<std::int64_t>(number)) : std::to_string(number);
}

template<typename Float>
std::string floatText(Float value) {
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    std::string text(digits, end);
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

std::string floatText(const ItemTree& item, std::string_view word) {
    const double value = valueOf(word);
    if (item.type == "F8")
        return floatText(value);
    constexpr double kMost = std::numeric_limits<float>::max();
    return floatText(static_cast<float>(std::clamp(value, -kMost, kMost)));
}

std::vector<std::string> wordsOf(std::string_view value) {
    std::vector<std::string> words = splitAtBlanks(value);
    words.erase(std::remove(words.begin(), words.end(), std::string()), words.end());
    return words;
}

/// Characters that end lines in some language, are not shown, or turn the direction of what follows.
bool isHiddenCharacter(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point <= 0xA0) || point == 0xAD || point == 0x61C ||
           (point >= 0x180B && point <= 0x180F) || (point >= 0x200B && point <= 0x200F) ||
           (point >= 0x2028 && point <= 0x202E) || (point >= 0x2060 && point <= 0x206F) ||
           (point >= 0xD800 && point <= 0xF8FF) || (point >= 0xFE00 && point <= 0xFE0F) || point == 0xFEFF ||
           (point >= 0xFFF0 && point <= 0xFFFF) || point >= 0xE0000;
}

} // namespace

bool ValueLiterals::isTrue(std::string_view word) {
    if (word.starts_with('T') || word.starts_with('t'))
        return true;
    return isNumeric(word) && valueOf(word) != 0;
}

std::string ValueLiterals::initialValue(const ItemTree& item) const {
    if (item.kind == ItemKind::Quoted)
        return textValue(item);
    const TypeWords& type = language_.type(item.type);
    std::vector<std::string> words = wordsOf(item.value);
    if (words.size() > item.count)
        words.resize(item.count);
    if (item.isSingle())
        return literalOf(type.literal, oneValue(item, words.empty() ? "0" : words.front()));
    if (item.isFixed && words.size() < item.count) {
        if (item.count > kLongestList || words.empty())
            return filled(type.sized, std::to_string(item.count));
        words.resize(item.count, "0");
    }
    std::string literals;
    for (const std::string& word : words) {
        if (!literals.empty())
            literals += ", ";
        literals += literalOf(type.manyItem, oneValue(item, word));
    }
    return filled(type.manyLiteral, literals);
}

std::string ValueLiterals::oneValue(const ItemTree& item, std::string_view word) const {
    switch (item.kind) {
    case ItemKind::Boolean:
        return truth(isTrue(word));
    case ItemKind::Float:
        return floatText(item, word);
    default:
        return integerText(word, rangeOf(item), language_.hasSignedU8() && item.type == "U8");
    }
}

std::string ValueLiterals::literalOf(const std::string& pattern, const std::string& value) const {
    // A minus is an operator: the number after it is out of range in some languages.
    constexpr std::string_view kLeast = "-9223372036854775808";
    return value == kLeast ? language_.word("leastI8") : filled(pattern, value);
}

std::string ValueLiterals::textValue(const ItemTree& item) const {
    std::string bytes = codePage_.fromUtf8(item.value);
    if (bytes.size() > item.count)
        bytes.resize(item.count);
    if (item.isFixed && item.type != "X" && item.count <= kLongestList)
        bytes.resize(item.count, ' ');
    return filled(language_.type(item.type).literal, language_.textLiteral(bytes));
}

std::string ValueLiterals::messageText(std::string_view text) const {
    return language_.textLiteral(codePage_.fromUtf8(text));
}

std::string ValueLiterals::comparedText(std::string_view text) const {
    const std::string bytes = codePage_.fromUtf8(text);
    const bool isCarried = codePage_.toUtf8(bytes) == text;
    return isCarried ? language_.textLiteral(bytes) : language_.word("noText");
}

std::string ValueLiterals::shownText(std::string_view text) const {
    return language_.shownLiteral(sanitizeUtf8(text));
}

std::string ValueLiterals::method(std::string name) const {
    if (language_.hasUpperFields() && name.front() >= 'a' && name.front() <= 'z')
        name.front() = static_cast<char>(name.front() - 'a' + 'A');
    return name;
}

bool hasFittingValue(const ItemTree& item) {
    const auto fits = [&item](std::size_t count) {
        return item.isFixed ? count == item.count : count <= item.count;
    };
    if (item.kind == ItemKind::Quoted)
        return isAscii(item.value) && fits(item.value.size());
    const std::vector<std::string> words = wordsOf(item.value);
    return !words.empty() && fits(words.size()) &&
           std::all_of(words.begin(), words.end(), [&item](const std::string& word) {
               if (item.kind == ItemKind::Boolean)
                   return equalsIgnoringCase(word, "True") || equalsIgnoringCase(word, "False");
               return isNumeric(word) &&
                      (item.kind == ItemKind::Float || integerText(word, rangeOf(item), false) == word);
           });
}

std::string ValueLiterals::comment(std::string_view text) const {
    std::string comment = commentText(text);
    if (!language_.hasMarkupComments())
        return comment;
    comment = replaceAll(replaceAll(comment, "&", "&amp;"), "<", "&lt;");
    return replaceAll(replaceAll(comment, ">", "&gt;"), "*/", "*&#47;");
}

std::string commentText(std::string_view text) {
    std::string comment;
    for (std::size_t at = 0; at < text.size();) {
        const DecodedCharacter character = decodeCharacter(text, at);
        at += character.length;
        // Two question marks begin a trigraph: "??/" at the end of a line would continue the comment.
        if (character.codePoint == U'?' && comment.ends_with('?'))
            comment += ' ';
        if (isHiddenCharacter(character.codePoint))
            comment += ' ';
        else
            appendCodePoint(comment, character.codePoint == '\\' ? U'/' : character.codePoint);
    }
    return trim(comment);
}

} // namespace zb::generate
