#pragma once

#include "controls/key.h"
#include "controls/text_field.h"

namespace zb {

/// The effect of a key down on the field. Pasted text does not pass a filter.
enum class KeyEffect {
    Unlock, ///< the field accepts the character
    Lock,   ///< the field refuses the character
    Leave,  ///< the field stays as the previous key left it
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
