#pragma once

#include "controls/key.h"

#include <optional>
#include <string>

class QKeyEvent;

namespace zb {

/// What a key of this machine's keyboard means to the windows.
struct KeyMeaning {
    /// The key of a US keyboard that enters the same character, or has the same function; the key that stands
    /// for all other texts.
    std::optional<KeyEvent> key;
    /// With that last key the text that it enters; else empty.
    std::string text;
};

/// Modifier keys by themselves, and keys that the windows do not know, mean nothing.
KeyMeaning meaningOf(const QKeyEvent& event);

} // namespace zb
