#include "messages/item_normalizer.h"

#include "platform/code_page.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/tree/node.h"

#include <algorithm>

namespace zb {

namespace {

std::string_view booleanWord(std::string_view word) {
    const bool isTrue = isNumeric(word) ? valueOf(word) != 0 : word.front() == 'T' || word.front() == 't';
    return isTrue ? "True" : "False";
}

void appendWord(std::string& words, std::string_view word) {
    if (!words.empty())
        words += ' ';
    words += word;
}

enum class Filling { None, UpToCount };

int normalizeValues(std::string_view type, int count, std::string& value, Filling filling) {
    const bool isBoolean = type == "BOOLEAN";
    std::string words;
    int kept = 0;
    for (std::string_view rest = value; !rest.empty();) {
        const std::string_view word = takeWord(rest);
        if (word.empty())
            continue;
        if (!isBoolean && !isNumeric(word))
            return kValueNotNumeric;
        if (kept >= count)
            continue;
        appendWord(words, isBoolean ? booleanWord(word) : word);
        ++kept;
    }
    const int wanted = filling == Filling::UpToCount ? std::min(count, kLargestItemCount) : 0;
    for (; kept < wanted; ++kept)
        appendWord(words, isBoolean ? "False" : "0");
    value = std::move(words);
    return 0;
}

/// Cut to `count` ANSI bytes, and padded with blanks when the count is fixed.
std::string normalizedText(const SECSItemRecord& record, const CodePage& codePage) {
    const int count = std::max(record.getCount(), 0);
    const auto most = static_cast<std::size_t>(count);
    const std::string& value = record.getValue();
    std::string text = isAscii(value) ? value.substr(0, most) : codePage.midAnsi(value, 1, count);
    if (!record.isFixed())
        return text;
    const std::size_t length = isAscii(text) ? text.size() : codePage.ansiByteLength(text);
    if (length < most)
        text.append(most - length, ' ');
    return text;
}

} // namespace

int normalizeFixedValues(std::string_view type, int count, std::string& value) {
    return normalizeValues(type, count, value, Filling::UpToCount);
}

int normalizeVariableValues(std::string_view type, int count, std::string& value) {
    return normalizeValues(type, count, value, Filling::None);
}

std::optional<std::string> normalizedItemText(SECSItemRecord record, const CodePage& codePage) {
    const ItemKind kind = itemKind(record.getType());
    if (kind == ItemKind::List || record.getType().empty())
        return std::nullopt;
    if (record.isFixed() && record.getCount() > kLargestItemCount)
        return std::nullopt;
    if (kind == ItemKind::Quoted) {
        record.setValue(normalizedText(record, codePage));
        return composeItemText(record);
    }
    std::string value = record.getValue();
    const int status = record.isFixed() ? normalizeFixedValues(record.getType(), record.getCount(), value)
                                        : normalizeVariableValues(record.getType(), record.getCount(), value);
    if (status != 0)
        return std::nullopt;
    record.setValue(std::move(value));
    return composeItemText(record);
}

void normalizeItem(Node& node, const SECSItemRecord& record, const CodePage& codePage) {
    if (std::optional<std::string> text = normalizedItemText(record, codePage))
        node.setText(*std::move(text));
}

} // namespace zb
