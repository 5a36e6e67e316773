#include "editor/item_key_filter.h"

#include "messages/item_value.h"
#include "platform/number.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr int kPadPlus = 107;
constexpr int kPadMinus = 109;
constexpr int kPadPoint = 110;
constexpr int kPlusEquals = 187;
constexpr int kMinus = 189;
constexpr int kPoint = 190;
constexpr double kMostCount = 1000000;

/// Shift and no other modifier: a digit key then enters a symbol.
bool isShiftAlone(KeyEvent key) {
    return key.shift == kShiftKey;
}

bool isPadSign(int code) {
    return code == kPadPlus || code == kPadMinus;
}

KeyEffect unlockIf(bool good) {
    return good ? KeyEffect::Unlock : KeyEffect::Lock;
}

KeyEffect filterUnsigned(KeyEvent key) {
    if (isDigitOrEditKey(key.code))
        return unlockIf(!isShiftAlone(key));
    return unlockIf(key.code == kKeyDelete || key.code == kKeySpace);
}

KeyEffect filterSigned(KeyEvent key) {
    if (isDigitOrEditKey(key.code) || key.code == kMinus)
        return unlockIf(!isShiftAlone(key));
    if (key.code == kPlusEquals)
        return unlockIf(isShiftAlone(key));
    return unlockIf(key.code == kKeyDelete || key.code == kKeySpace || isPadSign(key.code));
}

/// The letter of an exponent must follow a number.
bool endsInNumber(std::string_view field) {
    const std::size_t blank = field.rfind(' ');
    return isNumeric(blank == std::string_view::npos ? field : field.substr(blank + 1));
}

KeyEffect filterFloating(KeyEvent key, std::string_view field) {
    // Enter is not among these keys, unlike those of the whole numbers.
    if (isDigitKey(key.code) || key.code == kKeyBackspace || key.code == kMinus || key.code == kPoint)
        return unlockIf(!isShiftAlone(key));
    if (key.code == kPlusEquals)
        return unlockIf(isShiftAlone(key));
    if (key.code == 'E')
        return unlockIf(endsInNumber(field));
    return unlockIf(key.code == kKeyDelete || key.code == kKeySpace || isPadSign(key.code) ||
                    key.code == kPadPoint);
}

KeyEffect filterBoolean(KeyEvent key) {
    constexpr int kPadZero = 96;
    constexpr int kPadOne = 97;
    switch (key.code) {
    case '0':
    case '1':
    case kPadZero:
    case kPadOne:
    case kKeyEnter:
        return unlockIf(!isShiftAlone(key));
    case kKeyBackspace:
    case kKeyDelete:
    case kKeySpace:
        return KeyEffect::Unlock;
    default:
        break;
    }
    constexpr std::string_view kLetters = "FALSETRUE";
    return unlockIf(key.code >= 'A' && key.code <= 'Z' &&
                    kLetters.find(static_cast<char>(key.code)) != kLetters.npos);
}

} // namespace

KeyEffect filterItemNameKey(KeyEvent key, std::string_view field) {
    // A name begins with a letter or an underscore. Backspace and Enter are handled like the digits.
    if (isDigitOrEditKey(key.code))
        return isShiftAlone(key) ? KeyEffect::Leave : unlockIf(!isBlank(field));
    if (key.code == kMinus)
        return unlockIf(isShiftAlone(key));
    if (key.code == kPoint)
        return unlockIf(!isBlank(field));
    return unlockIf((key.code >= 'A' && key.code <= 'Z') || key.code == kKeyDelete);
}

KeyEffect filterItemCountKey(KeyEvent key, std::string_view field) {
    if (isDigitOrEditKey(key.code))
        return !isShiftAlone(key) && valueOf(field) < kMostCount ? KeyEffect::Unlock : KeyEffect::Leave;
    return unlockIf(key.code == kKeyDelete);
}

KeyEffect filterItemValueKey(std::string_view type, KeyEvent key, std::string_view field) {
    switch (valueFormOf(type)) {
    case ValueForm::Binary:
    case ValueForm::Unsigned:
        return filterUnsigned(key);
    case ValueForm::Signed:
        return filterSigned(key);
    case ValueForm::Floating:
        return filterFloating(key, field);
    case ValueForm::Boolean:
        return filterBoolean(key);
    default:
        return KeyEffect::Leave;
    }
}

} // namespace zb
