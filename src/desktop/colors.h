#pragma once

#include "platform/tree/color.h"

#include <QColor>

class QPalette;

namespace zb {

inline QColor toQt(const Color& color) {
    return QColor(color.red, color.green, color.blue);
}

/// The colour of an area. A grey that is meant for light surroundings is mirrored for dark ones.
QColor shaded(const Color& back);

/// Whether a text has its ordinary colour, black, which is the palette's own on any screen.
bool isOrdinary(const OptionalColor& text);

/// The colour of a text in one of the program's colours, on its own background or on that of the palette's
/// fields. A light palette shows it unchanged; a dark one lightens or darkens it until it is readable.
QColor readable(const Color& text, const OptionalColor& back = {});
/// The colour of a text, lightened or darkened until it can be read on the background.
QColor readable(QColor text, const QColor& background);

/// The background of the selection in a list or tree without the keyboard focus, so that the pane with the
/// focus is distinct.
QColor restingHighlight(const QPalette& palette);

/// The colour of the hint in an empty field: that of the palette, unless it is too near to that of the field,
/// as in a dark theme that does not name it.
QColor hintColor(const QPalette& palette);
/// Gives all fields this colour for their hints; the other colours stay those of the theme.
void makeHintsReadable();

/// The background of a row that is marked beside the selected one.
QColor markedRow(const QPalette& palette);

} // namespace zb
