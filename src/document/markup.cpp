#include "document/markup.h"

#include "platform/printable.h"
#include "platform/text.h"

namespace zb {

std::string markupText(std::string_view text) {
    std::string markup;
    for (const char c : printable(text)) {
        switch (c) {
        case '&':
            markup += "&amp;";
            break;
        case '<':
            markup += "&lt;";
            break;
        case '>':
            markup += "&gt;";
            break;
        case '"':
            markup += "&quot;";
            break;
        case '\'':
            markup += "&#39;";
            break;
        default:
            markup += c;
        }
    }
    return markup;
}

std::string markdownText(std::string_view text) {
    constexpr std::string_view kMarks = "\\`*_{}[]()#+-.!|~<>&";
    std::string markdown;
    for (const char c : printable(text)) {
        if (kMarks.find(c) != std::string_view::npos)
            markdown += '\\';
        markdown += c;
    }
    return markdown;
}

std::string messageAnchor(std::size_t message) {
    return "#m" + std::to_string(message + 1);
}

} // namespace zb
