#include "messages/item_normalizer.h"

#include "platform/code_page.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/tree/node.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

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

bool takePart(std::string_view& text, std::string_view part) {
    if (!text.starts_with(part))
        return false;
    text.remove_prefix(part.size());
    return true;
}

/// Takes what composeItemText writes before the value.
bool takeStart(std::string_view& text, const SECSItemRecord& record) {
    std::array<char, std::numeric_limits<int>::digits10 + 3> count{};
    const char* end = std::to_chars(count.data(), count.data() + count.size(), record.getCount()).ptr;
    if (!takePart(text, record.getType()) || !takePart(text, " ") ||
        !takePart(text, {count.data(), static_cast<std::size_t>(end - count.data())}))
        return false;
    if (!record.isFixed() && !takePart(text, "V"))
        return false;
    return record.getName().empty() || (takePart(text, " ") && takePart(text, record.getName()));
}

/// Whether there are as many as the count requires.
bool isFull(const SECSItemRecord& record, std::size_t number) {
    const auto count = static_cast<std::size_t>(std::max(record.getCount(), 0));
    return record.isFixed() ? number == count : number <= count;
}

bool hasNormalWords(const SECSItemRecord& record) {
    const bool isBoolean = record.getType() == "BOOLEAN";
    std::size_t number = 0;
    for (std::string_view rest = record.getValue(); !rest.empty(); ++number) {
        const std::string_view word = takeWord(rest);
        if (isBoolean ? word != "True" && word != "False" : !isNumeric(word))
            return false;
    }
    return isFull(record, number);
}

/// Says of most canonical Texts that they are, without composing them.
bool isPlainlyNormal(std::string_view text, const SECSItemRecord& record, ItemKind kind) {
    const std::string& value = record.getValue();
    if (record.isKey() || !takeStart(text, record))
        return false;
    if (kind == ItemKind::Quoted)
        return text.size() == value.size() + 3 && takePart(text, " '") && takePart(text, value) &&
               text == "'" && isAscii(value) && isFull(record, value.size());
    if (value.empty())
        return text.empty() && isFull(record, 0);
    return takePart(text, " ") && text == value && hasNormalWords(record);
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

std::optional<std::string> changedItemText(std::string_view text, const SECSItemRecord& record,
                                           const CodePage& codePage) {
    const ItemKind kind = itemKind(record.getType());
    if (kind == ItemKind::List || isPlainlyNormal(text, record, kind))
        return std::nullopt;
    std::optional<std::string> normalized = normalizedItemText(record, codePage);
    return normalized == text ? std::nullopt : std::move(normalized);
}

void normalizeItem(Node& node, const SECSItemRecord& record, const CodePage& codePage) {
    if (std::optional<std::string> text = changedItemText(node.text(), record, codePage))
        node.setText(*std::move(text));
}

} // namespace zb
