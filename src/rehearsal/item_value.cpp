#include "rehearsal/item_value.h"

#include "messages/sml/value.h"
#include "platform/number.h"
#include "platform/text.h"

#include <vector>

namespace zb::rehearsal {

namespace {

using secs2::Format;
using secs2::Item;
using secs2::Items;
using secs2::ValueKind;

constexpr std::size_t kEncodingSize = 2;

/// Two-byte characters: UTF-16 for the encoding 1, UTF-8 for 2; other encodings stay bytes.
std::string wideText(std::string_view data) {
    if (data.size() < kEncodingSize)
        return {};
    const char encoding = data[1];
    data.remove_prefix(kEncodingSize);
    if (encoding != '\1')
        return sanitizeUtf8(data);
    std::string text;
    for (std::size_t at = 0; at + 1 < data.size(); at += 2)
        appendCodePoint(text, static_cast<char32_t>(static_cast<unsigned char>(data[at]) << 8U |
                                                    static_cast<unsigned char>(data[at + 1])));
    return text;
}

bool equalsInteger(const Items& items, const Item& item, std::size_t position, std::string_view word) {
    const auto integer = sml::parseInteger(word);
    if (!integer) {
        const auto number = toNumber(word);
        const bool isSigned = secs2::traitsOf(item.format).kind == ValueKind::Signed;
        return number && *number == (isSigned ? static_cast<double>(items.signedValue(item, position))
                                              : static_cast<double>(items.unsignedValue(item, position)));
    }
    const std::uint64_t bits = items.unsignedValue(item, position);
    if (secs2::traitsOf(item.format).kind != ValueKind::Signed)
        return (!integer->negative || integer->magnitude == 0) && integer->magnitude == bits;
    const std::int64_t value = items.signedValue(item, position);
    const bool isNegative = integer->negative && integer->magnitude != 0;
    return isNegative == (value < 0) &&
           integer->magnitude ==
               (value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value));
}

bool equalsFloat(const Items& items, const Item& item, std::size_t position, std::string_view word) {
    const auto number = toNumber(word);
    if (!number)
        return false;
    const double value = items.floatValue(item, position);
    return item.format == Format::F4 ? static_cast<float>(value) == static_cast<float>(*number)
                                     : value == *number;
}

bool equalsWord(const Items& items, const Item& item, std::size_t position, std::string_view word) {
    switch (secs2::traitsOf(item.format).kind) {
    case ValueKind::Boolean: {
        const bool value = items.unsignedValue(item, position) != 0;
        const std::string capitals = upper(word);
        return value ? capitals == "TRUE" || capitals == "T" : capitals == "FALSE" || capitals == "F";
    }
    case ValueKind::Float:
        return equalsFloat(items, item, position, word);
    default:
        return equalsInteger(items, item, position, word);
    }
}

/// The parts between blanks, any number of them.
std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!(text = trimmed(text)).empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return words;
}

} // namespace

std::string itemText(const Items& items, const Item& item, const CodePage& codePage) {
    const std::string_view data = items.data(item);
    if (item.format == Format::Char2)
        return wideText(data);
    if (secs2::traitsOf(item.format).kind == ValueKind::Text)
        return isAscii(data) ? std::string(data) : codePage.toUtf8(data);
    std::string text;
    if (item.format != Format::List)
        for (std::size_t i = 0; i < Items::count(item); ++i) {
            text.append(i == 0 ? "" : " ");
            items.appendValue(text, item, i);
        }
    return text;
}

bool equalsValue(const Items& items, const Item& item, std::string_view value, const CodePage& codePage) {
    const ValueKind kind = secs2::traitsOf(item.format).kind;
    if (kind == ValueKind::List)
        return false;
    if (kind == ValueKind::Text)
        return itemText(items, item, codePage) == value;
    const std::vector<std::string_view> words = wordsOf(value);
    if (words.empty() || words.size() != Items::count(item))
        return false;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (!equalsWord(items, item, i, words[i]))
            return false;
    return true;
}

} // namespace zb::rehearsal
