#include "desktop/qt_text.h"

#include <algorithm>

namespace zb {

namespace {

std::size_t lengthOfCharacter(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    if (byte < 0xC0)
        return 1;
    if (byte < 0xE0)
        return 2;
    return byte < 0xF0 ? 3 : 4;
}

} // namespace

int widgetPosition(std::string_view text, std::size_t bytes) {
    return static_cast<int>(toQt(text.substr(0, std::min(bytes, text.size()))).size());
}

std::size_t storePosition(std::string_view text, int units) {
    std::size_t position = 0;
    while (units > 0 && position < text.size()) {
        const std::size_t length = lengthOfCharacter(text[position]);
        units -= length == 4 ? 2 : 1;
        position = std::min(position + length, text.size());
    }
    return position;
}

QString widgetName(std::string_view storeName) {
    QString name = toQt(storeName);
    name.replace(QLatin1Char('['), QLatin1Char('_'));
    name.remove(QLatin1Char(']'));
    return name;
}

} // namespace zb
