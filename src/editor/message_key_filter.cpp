#include "editor/message_key_filter.h"

#include "platform/text.h"

namespace zb {

namespace {

constexpr int kEight = 56;
constexpr int kPadAsterisk = 106;
constexpr int kSemicolon = 186;
constexpr int kMinus = 189;

bool isLetterKey(int code) {
    return code >= 65 && code <= 90;
}

} // namespace

KeyEffect filterNumberKey(KeyEvent key) {
    if (isDigitOrEditKey(key.code))
        return key.shift == kShiftKey ? KeyEffect::Leave : KeyEffect::Unlock;
    return key.code == kKeyDelete ? KeyEffect::Unlock : KeyEffect::Lock;
}

KeyEffect filterMessageNameKey(KeyEvent key, std::string_view field) {
    if (isDigitOrEditKey(key.code)) {
        if (key.shift == kShiftKey)
            return KeyEffect::Leave;
        return isBlank(field) ? KeyEffect::Lock : KeyEffect::Unlock;
    }
    if (isLetterKey(key.code) || key.code == kKeyDelete)
        return KeyEffect::Unlock;
    if (key.code == kMinus)
        return key.shift == kShiftKey ? KeyEffect::Unlock : KeyEffect::Lock;
    return KeyEffect::Lock;
}

KeyEffect filterDescriptionKey(KeyEvent key) {
    if (key.code == kPadAsterisk)
        return KeyEffect::Lock;
    if (key.code == kEight || key.code == kSemicolon)
        return key.shift == kShiftKey ? KeyEffect::Lock : KeyEffect::Unlock;
    return KeyEffect::Unlock;
}

} // namespace zb
