#include "messages/bare_sml.h"

#include "messages/item_value.h"
#include "messages/sml_text.h"
#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace zb {

namespace {

std::string hexByte(std::string_view word) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<std::size_t>(std::clamp(valueOf(word), 0.0, 255.0));
    return {'0', 'x', kDigits[byte / 16], kDigits[byte % 16]};
}

/// Some readers need a digit on both sides of the point, and some know no plus sign.
std::string plainNumber(std::string_view word) {
    if (word.starts_with('+'))
        word.remove_prefix(1);
    std::string number(word);
    const std::size_t point = number.find('.');
    if (point == std::string::npos)
        return number;
    const auto isDigitAt = [&number](std::size_t at) {
        return at < number.size() && number[at] >= '0' && number[at] <= '9';
    };
    if (!isDigitAt(point + 1))
        number.insert(point + 1, "0");
    if (point == 0 || !isDigitAt(point - 1))
        number.insert(point, "0");
    return number;
}

std::string bareWord(ValueForm form, std::string_view word) {
    switch (form) {
    case ValueForm::Binary:
        return hexByte(word);
    case ValueForm::Boolean:
        return word == "1" || word == "True" ? "T" : "F";
    default:
        return plainNumber(word);
    }
}

bool hasBareType(const SECSItemRecord& item) {
    return valueFormOf(item.getType()) != ValueForm::Unknown && item.getType() != "X";
}

class BareWriter {
public:
    BareSml write(const std::vector<const SECSMessageRecord*>& records) {
        for (const SECSMessageRecord* record : records)
            writeMessage(*record);
        return std::move(sml_);
    }

private:
    void writeMessage(const SECSMessageRecord& record) {
        const std::vector<SECSItemRecord> items = record.getItems();
        sml_.text.append("S").append(record.getStreamText()).append("F").append(record.getFunctionText());
        sml_.text.append(record.getWait() ? " W\r\n" : "\r\n");
        for (const SECSItemRecord& item : items)
            writeItem(item);
        closeTo(1);
        sml_.text.append(".\r\n\r\n");
        note(std::string(record.getName()), items);
    }

    void writeItem(const SECSItemRecord& item) {
        closeTo(item.getLevel());
        indent(item.getLevel());
        const std::string type = hasBareType(item) ? item.getType() : "A";
        const ValueForm form = valueFormOf(type);
        sml_.text.append("<").append(type);
        if (form == ValueForm::None)
            open_ = item.getLevel() + 1;
        else if (form == ValueForm::Quoted)
            sml_.text.append(" ").append(quotedSmlText(item.getValue())).append(">");
        else
            writeWords(form, item);
        sml_.text.append("\r\n");
    }

    void writeWords(ValueForm form, const SECSItemRecord& item) {
        const std::string clean =
            isBlank(item.getValue())
                ? std::string()
                : cleanItemValue(item.getType(), item.getCount(), item.getValue()).value_or(std::string());
        for (const std::string& word : splitAtBlanks(clean))
            sml_.text.append(" ").append(bareWord(form, word));
        // Some readers need a blank after the B of an empty item.
        sml_.text.append(clean.empty() && form == ValueForm::Binary ? " >" : ">");
    }

    void note(const std::string& name, const std::vector<SECSItemRecord>& items) {
        const auto others = std::count_if(items.begin(), items.end(),
                                          [](const SECSItemRecord& item) { return !hasBareType(item); });
        if (others > 0)
            sml_.notes.push_back(name + ": " + std::to_string(others) + (others == 1 ? " item" : " items") +
                                 " of any type written as text");
        const auto roots = std::count_if(items.begin(), items.end(),
                                         [](const SECSItemRecord& item) { return item.getLevel() == 1; });
        if (roots > 1)
            sml_.notes.push_back(name + ": " + std::to_string(roots) +
                                 " items outside of a list, where readers take one");
    }

    /// Closes the open lists down to the level of the next item.
    void closeTo(int level) {
        for (; open_ > level; --open_) {
            indent(open_ - 1);
            sml_.text.append(">\r\n");
        }
    }

    void indent(int level) { sml_.text.append(static_cast<std::size_t>(level) * 2, ' '); }

    BareSml sml_;
    int open_ = 1; // the level of the items in the innermost open list
};

} // namespace

BareSml composeBareSml(const std::vector<const SECSMessageRecord*>& records) {
    return BareWriter().write(records);
}

} // namespace zb
