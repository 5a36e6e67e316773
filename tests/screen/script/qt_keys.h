#pragma once

#include "controls/key.h"

#include <QKeyEvent>

#include <optional>

namespace zb::test {

/// A key of a US keyboard as the event that Qt would make of it.
struct QtKey {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

/// Nothing for keys that windows never get, as Tab, or that Qt has no name for.
std::optional<QtKey> qtKeyOf(KeyEvent key);

} // namespace zb::test
