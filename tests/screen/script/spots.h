#pragma once

#include "controls/user_hands.h"
#include "desktop/binders/binder.h"

#include <QPoint>
#include <QWidget>

namespace zb {
class DesktopScreen;
class PopupMenu;
} // namespace zb

class QMenu;

namespace zb::test {

/// A point of a widget.
struct Spot {
    QWidget* widget = nullptr;
    QPoint place;
};

/// Where the hands take hold of a target; a node or row is scrolled into view.
Spot spotOf(const DesktopScreen& screen, const Target& target);

/// What ties a control to its widget.
Binder& binderOf(const DesktopScreen& screen, const Control& control);

/// The menu that shows the entries of a pop-up: that of its host while the host is open.
QMenu* menuWithEntriesOf(const DesktopScreen& screen, const PopupMenu& popup);

} // namespace zb::test
