#include "desktop/plain_labels.h"

#include "desktop/shown_text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>

namespace zb {

QString toolTipOf(std::string_view text) {
    // More would not fit a screen, and Qt lays out all of it before it shows any.
    constexpr qsizetype kLongest = 2000;
    // A UTF-16 unit takes at most three bytes.
    const QString whole = shownLines(text.substr(0, 4 * static_cast<std::size_t>(kLongest)));
    return whole.size() <= kLongest ? whole : whole.left(kLongest) + QChar(0x2026);
}

PlainLabels::PlainLabels() {
    QCoreApplication::instance()->installEventFilter(this);
}

PlainLabels::~PlainLabels() = default;

// A label is polished before it is laid out for the first time, so none has looked for markup yet.
bool PlainLabels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Polish)
        return false;
    if (auto* label = qobject_cast<QLabel*>(watched); label != nullptr && label->textFormat() == Qt::AutoText)
        label->setTextFormat(Qt::PlainText);
    return false;
}

} // namespace zb
