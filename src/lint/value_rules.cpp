#include "lint/value_fit.h"

#include "lint/item_rules.h"
#include "lint/rule.h"
#include "lint/rule_context.h"
#include "platform/code_page.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace zb {

namespace {

struct NumberRange {
    std::string_view type;
    double least;
    double most;
};
constexpr std::array kRanges{
    NumberRange{"B", 0, 255},
    NumberRange{"I1", -128, 127},
    NumberRange{"I2", -32768, 32767},
    NumberRange{"I4", -2147483648.0, 2147483647.0},
    NumberRange{"I8", -9223372036854775808.0, 9223372036854775808.0},
    NumberRange{"U1", 0, 255},
    NumberRange{"U2", 0, 65535},
    NumberRange{"U4", 0, 4294967295.0},
    NumberRange{"U8", 0, 18446744073709551616.0},
    NumberRange{"F4", -std::numeric_limits<float>::max(), std::numeric_limits<float>::max()},
};

std::vector<std::string> wordsOf(std::string_view value) {
    std::vector<std::string> words = splitAtBlanks(value);
    std::erase_if(words, [](const std::string& word) { return word.empty(); });
    return words;
}

} // namespace

std::optional<std::string> rangeFault(const SECSItemRecord& item) {
    const std::string& type = item.getType();
    const auto range = std::find_if(kRanges.begin(), kRanges.end(),
                                    [&](const NumberRange& entry) { return entry.type == type; });
    if (range == kRanges.end())
        return std::nullopt;
    for (const std::string& word : wordsOf(item.getValue())) {
        // What has not the form of a number is a fault of the definition.
        if (!isNumeric(word))
            continue;
        const auto number = toNumber(word);
        if (!number || *number < range->least || *number > range->most)
            return std::string(word).append(" does not fit into ").append(type);
    }
    return std::nullopt;
}

std::optional<std::string> lengthFault(const SECSItemRecord& item, const CodePage& codePage) {
    const ItemKind kind = itemKind(item.getType());
    if (kind == ItemKind::List || kind == ItemKind::Unknown || item.getCount() < 0)
        return std::nullopt;
    const auto most = static_cast<std::size_t>(item.getCount());
    const bool isText = kind == ItemKind::Quoted;
    const std::size_t length =
        isText ? codePage.ansiByteLength(trimRight(item.getValue())) : wordsOf(item.getValue()).size();
    if (length <= most)
        return std::nullopt;
    return (isText ? "The text has " : "There are ") + std::to_string(length) +
           (isText ? " bytes, and the item holds " : " values, and the item holds ") + std::to_string(most);
}

void checkValueRanges(const MessageContext& context, Report& report) {
    for (const CheckedItem& item : context.message.items) {
        // Bytes out of range and signs of unsigned numbers are faults of the definition.
        const ItemKind kind = itemKind(item.record.getType());
        if (kind == ItemKind::Binary || (kind == ItemKind::Unsigned && contains(item.record.getValue(), "-")))
            continue;
        if (const auto fault = rangeFault(item.record))
            report.tell(context.message.place(item), *fault);
    }
}

void checkValueLengths(const MessageContext& context, Report& report) {
    for (const CheckedItem& item : context.message.items)
        if (const auto fault = lengthFault(item.record, context.codePage))
            report.tell(context.message.place(item), *fault);
}

} // namespace zb
