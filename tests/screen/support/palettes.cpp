#include "screen/support/palettes.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace zb::test {

namespace {

QPalette darkPalette() {
    QPalette palette(QColor(0x2f, 0x31, 0x36), QColor(0x2b, 0x2d, 0x31));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x24));
    palette.setColor(QPalette::AlternateBase, QColor(0x27, 0x29, 0x2d));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb2, 0xff));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, QColor(0xe6, 0xe6, 0xe6));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x82, 0x88));
    return palette;
}

} // namespace

void dress(QApplication& application, Shade shade) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    QApplication::setPalette(shade == Shade::Dark ? darkPalette() : QApplication::style()->standardPalette());
    application.setCursorFlashTime(0);
}

} // namespace zb::test
