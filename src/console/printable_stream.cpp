#include "console/printable_stream.h"

#include "console/printable.h"

#include <algorithm>
#include <string_view>

namespace zb {

namespace {

/// The colour that the text begins with; empty for none.
std::string_view colourAt(std::string_view text) {
    for (const std::string_view colour : {kRed, kGreen, kYellow, kPlain}) {
        if (text.starts_with(colour))
            return colour;
    }
    return {};
}

} // namespace

PrintableStream::Lines::int_type PrintableStream::Lines::overflow(int_type character) {
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        const char single = traits_type::to_char_type(character);
        xsputn(&single, 1);
    }
    return traits_type::not_eof(character);
}

std::streamsize PrintableStream::Lines::xsputn(const char* text, std::streamsize count) {
    line_.append(text, static_cast<std::size_t>(count));
    if (const std::size_t end = line_.rfind('\n'); end != std::string::npos)
        handOn(end + 1);
    return sink_ ? count : 0;
}

int PrintableStream::Lines::sync() {
    return sink_.flush() ? 0 : -1;
}

void PrintableStream::Lines::handOn(std::size_t length) {
    std::string_view text = std::string_view(line_).substr(0, length);
    while (colours_ && !text.empty()) {
        const std::size_t escape = text.find('\x1B');
        sink_ << printableLines(text.substr(0, escape));
        text.remove_prefix(std::min(escape, text.size()));
        const std::string_view colour = colourAt(text);
        // Any other escape is text, and made printable with what follows it.
        sink_ << (colour.empty() ? printableLines(text.substr(0, 1)) : std::string(colour));
        text.remove_prefix(std::min(std::max<std::size_t>(colour.size(), 1), text.size()));
    }
    sink_ << printableLines(text);
    line_.erase(0, length);
}

} // namespace zb
