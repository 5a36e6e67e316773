#pragma once

#include "controls/drag.h"

#include <QStringList>

#include <optional>

class QDropEvent;
class QEvent;
class QFontMetrics;
class QPixmap;
class QWidget;

namespace zb {

struct Binding;

/// The width in pixels, at most 400, in which the lines of a drag picture are shown.
int dragTextWidth(const QFontMetrics& metrics, const QStringList& lines);

/// Runs a drag that a store has allowed, with a picture of the dragged texts. Returns after the drop.
void runDrag(Binding& binding, QWidget& source, const DragData& data, const QStringList& texts);
/// The same with another picture.
void runDrag(Binding& binding, QWidget& source, const DragData& data, const QPixmap& picture);

/// The drag over a widget or dropped on it: the program's own, otherwise a picture from another program if
/// the target has the property "takesPictures", otherwise plain text.
DragData dragDataOf(const Binding& binding, const QDropEvent& event, const QWidget* target = nullptr);

/// Accepts a drag of the program, of plain text, or of a picture where the target takes one, and no other;
/// false when there is nothing to drop. The target is framed while the drag is over it.
bool followDrag(const Binding& binding, QWidget& target, QEvent& event);

/// The keyboard's drag: the data of a drag is kept like a copied text, until another text is copied.
void takeUp(Binding& binding, const std::optional<DragData>& data);
/// Whether data was taken, and no other text was copied since.
bool holdsTaken(const Binding& binding);
/// The data that was taken, or the text that was copied elsewhere.
std::optional<DragData> takenUp(const Binding& binding);

} // namespace zb
