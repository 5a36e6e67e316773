#include "messages/item_grammar.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <limits>

namespace zb {

namespace {

std::string withoutApostrophes(std::string_view word) {
    return replaceAll(word, "'", "");
}

bool hasSignOrPoint(std::string_view word) {
    return word.find_first_of("+-.") != std::string_view::npos;
}

bool isQuoted(std::string_view text) {
    // The key mark follows the quoted value: a saved key item must be restored as it was.
    constexpr std::string_view kKeyMark = " [K]";
    if (text.ends_with(kKeyMark))
        text = trimmed(text.substr(0, text.size() - kKeyMark.size()));
    const std::size_t opening = text.find('\'');
    return opening != std::string_view::npos && text.rfind('\'') != opening && text.back() == '\'';
}

} // namespace

ItemKind itemKind(std::string_view type) {
    if (type == "L")
        return ItemKind::List;
    if (type == "A" || type == "J" || type == "X")
        return ItemKind::Quoted;
    if (type == "B")
        return ItemKind::Binary;
    if (type == "BOOLEAN")
        return ItemKind::Boolean;
    if (type == "I1" || type == "I2" || type == "I4" || type == "I8")
        return ItemKind::Signed;
    if (type == "U1" || type == "U2" || type == "U4" || type == "U8")
        return ItemKind::Unsigned;
    if (type == "F4" || type == "F8")
        return ItemKind::Float;
    return ItemKind::Unknown;
}

bool isKeyMark(std::string_view word) {
    return word == "[K]" || word == "[k]";
}

bool isItemName(std::string_view type, std::string_view thirdWord) {
    if (thirdWord.empty() || thirdWord.front() == '\'' || isKeyMark(thirdWord) || isNumeric(thirdWord))
        return false;
    // No longer or shorter word becomes "BOOLEAN" in upper case.
    constexpr std::string_view kBoolean = "BOOLEAN";
    if (type.size() != kBoolean.size() || !equalsIgnoringCase(type, kBoolean))
        return true;
    return !equalsIgnoringCase(thirdWord, "True") && !equalsIgnoringCase(thirdWord, "False");
}

std::string_view takeWord(std::string_view& rest) {
    const std::size_t end = rest.find(' ');
    const std::string_view word = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return word;
}

int countOf(std::string_view word) {
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(roundHalfEven(valueOf(word)), kLeast, kMost));
}

std::string normalizeItemText(std::string_view anyText) {
    const std::string_view text = trimmed(anyText);
    std::string_view rest = text;
    const std::string_view type = takeWord(rest);
    if ((type != "X" && type != "J") || isQuoted(text))
        return std::string(text);
    const std::string_view count = takeWord(rest);
    std::string name;
    std::string value;
    bool inValues = false;
    for (int place = 2; !rest.empty(); ++place) {
        const std::string_view word = takeWord(rest);
        if (word.empty())
            continue;
        inValues = inValues || place > 2 || isNumeric(word);
        if (!inValues && !hasSignOrPoint(word)) {
            name = withoutApostrophes(word);
            continue;
        }
        if (!value.empty())
            value += ' ';
        value += withoutApostrophes(word);
    }
    std::string normalized = std::string(type) + ' ' + std::string(count);
    if (!name.empty())
        normalized += ' ' + name;
    return normalized + " '" + value + "'";
}

} // namespace zb
