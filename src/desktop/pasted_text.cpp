#include "desktop/pasted_text.h"

#include "controls/desktop.h"
#include "desktop/qt_text.h"

#include <algorithm>

namespace zb {

namespace {

constexpr qsizetype kMega = 1'000'000;
constexpr qsizetype kMost = 4 * kMega; // a value of the longest item is shorter

} // namespace

std::optional<std::string> pastedLine(const QString& text, Desktop& desktop) {
    const auto end = std::find_if(text.begin(), text.end(), [](QChar at) {
        return at == QLatin1Char('\r') || at == QLatin1Char('\n');
    });
    const auto length = static_cast<qsizetype>(end - text.begin());
    return takesPasted(length, desktop) ? std::optional(fromQt(text.left(length))) : std::nullopt;
}

bool takesPasted(qsizetype characters, Desktop& desktop) {
    if (characters <= kMost)
        return true;
    desktop.post({"Not pasted: the text has " + std::to_string(characters / kMega) +
                      " million characters, and a field takes at most " + std::to_string(kMost / kMega),
                  {},
                  "paste"});
    return false;
}

} // namespace zb
