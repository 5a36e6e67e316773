#pragma once

#include <QString>

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

/// Texts of stores are UTF-8, texts of widgets UTF-16.
inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

/// Converts a position in a store's text to one in the same text of a widget, and back.
int widgetPosition(std::string_view text, std::size_t bytes);
std::size_t storePosition(std::string_view text, int units);

/// The name of the widget that shows a store. Qt Designer does not allow brackets, so "optSrcGen[1]" becomes
/// "optSrcGen_1".
QString widgetName(std::string_view storeName);

} // namespace zb
