#include "console/printable_stream.h"

#include "platform/printable.h"

#include <string_view>

namespace zb {

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
    sink_ << printableLines(std::string_view(line_).substr(0, length));
    line_.erase(0, length);
}

} // namespace zb
