#include "messages/sml/directive.h"

#include "messages/sml/scanner.h"

namespace zb::sml {

bool atDirective(std::string_view text, std::size_t offset) {
    // Asked for at every message, and nearly never so.
    constexpr std::string_view kFirstCharacters = "#IE";
    if (offset >= text.size() || kFirstCharacters.find(upperLetter(text[offset])) == std::string_view::npos)
        return false;
    FindingCollector unused(text);
    Scanner scanner(text, unused);
    scanner.moveTo(offset);
    if (scanner.peek() == '#')
        return isLetter(scanner.peek(1));
    const auto passSpace = [&] {
        const std::size_t start = scanner.offset();
        while (isInlineSpace(scanner.peek()) && !scanner.atEnd())
            scanner.advance();
        return scanner.offset() > start;
    };
    const std::string_view word = scanner.word();
    if (isWord(word, "IF")) {
        passSpace();
        return scanner.peek() == '(';
    }
    if (!isWord(word, "EVERY") || !passSpace())
        return false;
    scanner.valueWord();
    return passSpace() && isWord(scanner.word(), "SEND");
}

} // namespace zb::sml
