#pragma once

#include "controls/drag.h"

#include <QStringList>

#include <optional>

class QDropEvent;
class QEvent;
class QPixmap;
class QWidget;

namespace zb {

struct Binding;

/// Runs a drag that a store has agreed to, under a picture of the texts that are dragged; returns behind the
/// drop.
void runDrag(Binding& binding, QWidget& source, const DragData& data, const QStringList& texts);
/// The same under a picture of its own.
void runDrag(Binding& binding, QWidget& source, const DragData& data, const QPixmap& picture);

/// What hangs over a widget or falls on it: the program's own drag, else plain text from outside.
DragData dragDataOf(const Binding& binding, const QDropEvent& event);

/// Takes a drag of the program or of plain text, and no other; false when nothing hangs or falls here now.
/// While it hangs over the target, the target is framed.
bool followDrag(const Binding& binding, QWidget& target, QEvent& event);

/// The keyboard's drag: what a store lets go of is kept like a copied text, until another text is copied.
void takeUp(Binding& binding, const std::optional<DragData>& data);
/// Whether something was taken up, and no other text was copied since.
bool holdsTaken(const Binding& binding);
/// What was taken up, or the text that was copied elsewhere.
std::optional<DragData> takenUp(const Binding& binding);

} // namespace zb
