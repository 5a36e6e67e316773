#pragma once

#include "controls/key.h"

#include <optional>
#include <string>

class QKeyEvent;

namespace zb {

/// The meaning of a key of this machine's keyboard for the windows.
struct KeyMeaning {
    /// The key of a US keyboard that enters the same character or has the same function; for any other text,
    /// the code for all such texts.
    std::optional<KeyEvent> key;
    /// For that last code the text that it enters; otherwise empty.
    std::string text;
};

/// Modifier keys alone, and unknown keys, have no meaning.
KeyMeaning meaningOf(const QKeyEvent& event);

} // namespace zb
