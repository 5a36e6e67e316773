#pragma once

#include "controls/key.h"
#include "controls/text_field.h"

namespace zb {

/// What a key's way down does to the field it is meant for. Pasted text passes no filter.
enum class KeyEffect {
    Unlock, ///< the field takes the character
    Lock,   ///< it does not
    Leave,  ///< the field stays as the key before left it
};

inline void applyKeyEffect(TextField& field, KeyEffect effect) {
    if (effect != KeyEffect::Leave)
        field.setLocked(effect == KeyEffect::Lock);
}

/// The keys of all number filters: the digits of both blocks, Backspace and Enter.
inline bool isDigitOrEditKey(int code) {
    return isDigitKey(code) || code == kKeyBackspace || code == kKeyEnter;
}

} // namespace zb
