#pragma once

#include "platform/stores/drag.h"

#include <QStringList>

class QDropEvent;
class QWidget;

namespace zb {

struct Binding;

/// Runs a drag that a store has agreed to, under a picture of the texts that are dragged; returns behind the
/// drop.
void runDrag(Binding& binding, QWidget& source, const DragData& data, const QStringList& texts);

/// What hangs over a widget or falls on it: the program's own drag, else plain text from outside.
DragData dragDataOf(const Binding& binding, const QDropEvent& event);

/// Takes a drag of the program or of plain text, and no other.
bool acceptDrag(const Binding& binding, QDropEvent& event);

} // namespace zb
