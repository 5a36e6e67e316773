#pragma once

#include "platform/tree/color.h"

#include <QColor>

class QPalette;

namespace zb {

inline QColor toQt(const Color& color) {
    return QColor(color.red, color.green, color.blue);
}

/// The colour of an area. A grey that sets the area off from light surroundings is mirrored for dark ones.
QColor shaded(const Color& back);

/// Whether the program has given a text its ordinary colour, black, which is the palette's own on any screen.
bool isOrdinary(const OptionalColor& text);

/// The colour of a text, lightened or darkened as far as it takes to read it on the background: on that of
/// the palette's fields, or on the one given.
QColor readable(const Color& text);
QColor readable(QColor text, const QColor& background);

/// The background of what is selected in a list or tree that the keyboard is not in: of several panes the one
/// that gets the keys stands out.
QColor restingHighlight(const QPalette& palette);

} // namespace zb
