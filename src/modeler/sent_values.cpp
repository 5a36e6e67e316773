#include "modeler/sent_values.h"

#include "messages/item_record.h"
#include "platform/number.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr int kPadZero = 96;
constexpr int kPadOne = 97;

bool isEditKey(int code) {
    return code == kKeyBackspace || code == kKeyDelete;
}

bool isValueKey(int code) {
    return isDigitKey(code) || isEditKey(code) || code == kKeySpace;
}

KeyEffect unlockIf(bool good) {
    return good ? KeyEffect::Unlock : KeyEffect::Lock;
}

bool isBooleanKey(int code) {
    return code == '0' || code == '1' || code == kPadZero || code == kPadOne || isEditKey(code) ||
           code == kKeySpace;
}

} // namespace

std::optional<int> listCountOf(std::string_view text) {
    const std::optional<double> number = toNumber(text);
    const auto count = number ? toInteger(*number, 0, kMostListItems) : std::nullopt;
    return count ? std::optional(static_cast<int>(*count)) : std::nullopt;
}

std::string setItemValue(SECSItemRecord& item, std::string_view value) {
    const std::string& type = item.getType();
    if (type == "L") {
        item.setCount(listCountOf(value).value_or(0));
        return "L " + std::to_string(item.getCount()) + " " + (item.isFixed() ? "" : item.getName());
    }
    item.setValue(std::string(value));
    const std::string head =
        type + " " + std::to_string(item.getCount()) + (item.isFixed() ? " " : "V ") + item.getName() + " ";
    return type == "A" || type == "X" ? head + "'" + item.getValue() + "'" : head + item.getValue();
}

KeyEffect filterSentValueKey(const SECSItemRecord* item, KeyEvent key, std::size_t ansiLength) {
    if (item == nullptr)
        return KeyEffect::Lock;
    const std::string& type = item->getType();
    if (type == "A" || type == "X") {
        const bool full = item->getCount() <= 0 || ansiLength >= static_cast<std::size_t>(item->getCount());
        return unlockIf(!full || isEditKey(key.code));
    }
    if (type == "BOOLEAN")
        return key.shift == kShiftKey ? KeyEffect::Leave : unlockIf(isBooleanKey(key.code));
    return unlockIf(isValueKey(key.code));
}

} // namespace zb
