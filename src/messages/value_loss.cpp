#include "messages/value_loss.h"

#include "messages/item_record.h"
#include "messages/item_value.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace zb {

namespace {

std::vector<std::string> wordsOf(std::string_view value) {
    std::vector<std::string> words = splitAtBlanks(value);
    std::erase_if(words, [](const std::string& word) { return isBlank(word); });
    return words;
}

std::string shortened(std::string_view text) {
    constexpr std::size_t kMost = 40;
    if (text.size() <= kMost)
        return std::string(text);
    std::size_t end = kMost;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end; // within a character
    return std::string(text.substr(0, end)) + "...";
}

std::string shownValue(const SECSItemRecord& item) {
    const bool quoted = valueFormOf(item.getType()) == ValueForm::Quoted;
    return quoted ? "'" + shortened(item.getValue()) + "'" : shortened(item.getValue());
}

bool isCut(const SECSItemRecord& before, const SECSItemRecord& after) {
    if (valueFormOf(after.getType()) == ValueForm::Quoted)
        return trimRight(before.getValue()) != trimRight(after.getValue());
    return wordsOf(before.getValue()).size() > wordsOf(after.getValue()).size();
}

// A floating-point number loses digits by its nature.
bool isAnotherNumber(std::string_view type, std::string_view typed, std::string_view canonical) {
    const auto before = toNumber(typed);
    const auto after = toNumber(canonical);
    if (!before || !after)
        return false;
    return valueFormOf(type) == ValueForm::Floating ? *after == 0 && *before != 0 : *after != *before;
}

} // namespace

std::string lostByCount(std::string_view before, std::string_view canonical) {
    SECSItemRecord from;
    SECSItemRecord to;
    from.parseText(before);
    to.parseText(canonical);
    if (!isCut(from, to))
        return {};
    return (to.getName().empty() ? "The item" : to.getName()) + " has a count of " +
           std::to_string(to.getCount()) + ": " + shownValue(from) + " was cut to " + shownValue(to);
}

std::string lostByType(std::string_view type, std::string_view typed, std::string_view canonical) {
    const std::vector<std::string> before = wordsOf(typed);
    const std::vector<std::string> after = wordsOf(canonical);
    if (before.size() != after.size())
        return {};
    const auto other = std::mismatch(before.begin(), before.end(), after.begin(),
                                     [type](const std::string& word, const std::string& stored) {
                                         return !isAnotherNumber(type, word, stored);
                                     });
    if (other.first == before.end())
        return {};
    return *other.first + " does not fit into " + std::string(type) + " and became " + *other.second;
}

} // namespace zb
