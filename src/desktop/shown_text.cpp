#include "desktop/shown_text.h"

#include "desktop/qt_text.h"
#include "platform/printable.h"

#include <QStringList>

namespace zb {

namespace {

constexpr std::size_t kLongest = 4096; // bytes; no row or label shows more
constexpr QChar kEllipsis(0x2026);

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string_view beginningOf(std::string_view text) {
    std::size_t size = text.size();
    if (size > kLongest) {
        size = kLongest;
        while (size > 0 && isContinuation(text[size]))
            --size;
    }
    return text.substr(0, size);
}

QString withEllipsis(const QString& shown, bool isCut) {
    return isCut ? shown + kEllipsis : shown;
}

} // namespace

QString shownLine(std::string_view text) {
    const std::string_view beginning = beginningOf(text);
    return withEllipsis(toQt(printable(beginning)), beginning.size() < text.size());
}

QString shownLines(std::string_view text) {
    const std::string_view beginning = beginningOf(text);
    return withEllipsis(toQt(printableLines(beginning)), beginning.size() < text.size());
}

QString shownTitle(std::string_view text) {
    return shownLine(text).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

// What is wrong is said at the end of a text, after the name.
QString shownInBox(std::string_view text) {
    constexpr qsizetype kMostLines = 24;
    constexpr qsizetype kMost = 1200;
    QString shown = toQt(printableLines(text));
    QStringList lines = shown.split(QLatin1Char('\n'));
    if (lines.size() > kMostLines) {
        const QStringList end = lines.mid(lines.size() - kMostLines / 2);
        shown = (lines.mid(0, kMostLines / 2) << QString(kEllipsis) << end).join(QLatin1Char('\n'));
    }
    if (shown.size() > kMost)
        shown =
            shown.left(kMost / 2) + QLatin1Char(' ') + kEllipsis + QLatin1Char(' ') + shown.right(kMost / 2);
    return shown;
}

} // namespace zb
