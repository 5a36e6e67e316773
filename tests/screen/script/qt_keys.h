#pragma once

#include "controls/key.h"

#include <QKeyEvent>

#include <optional>

namespace zb::test {

/// A key of a US keyboard as Qt's event for it.
struct QtKey {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

/// Nothing for keys that windows never receive, such as Tab, or that Qt has no name for.
std::optional<QtKey> qtKeyOf(KeyEvent key);

} // namespace zb::test
