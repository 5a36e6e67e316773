#include "compare/html_text.h"

#include "platform/printable.h"

namespace zb {

std::string htmlText(std::string_view text) {
    std::string html;
    for (const char character : printable(text)) {
        if (character == '&')
            html += "&amp;";
        else if (character == '<')
            html += "&lt;";
        else if (character == '>')
            html += "&gt;";
        else if (character == '"')
            html += "&quot;";
        else
            html += character;
    }
    return html;
}

} // namespace zb
