#include "desktop/forms/lines_edit.h"

#include <QMimeData>

namespace zb {

bool LinesEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source != nullptr && source->hasText();
}

void LinesEdit::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !canInsertFromMimeData(source))
        return;
    if (const QString text = source->text(); !takes || takes(text.size()))
        insertPlainText(text);
}

} // namespace zb
