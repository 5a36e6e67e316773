#include "messages/sml/head.h"

#include "messages/sml/characters.h"

#include <algorithm>
#include <string>

namespace zb::sml {

namespace {

constexpr std::size_t kLongestName = 256;

char at(std::string_view text, std::size_t offset) {
    return offset < text.size() ? text[offset] : '\0';
}

std::size_t pastInlineSpace(std::string_view text, std::size_t offset) {
    while (offset < text.size() && isInlineSpace(text[offset]))
        ++offset;
    return offset;
}

// Skips a number of at most five digits; nothing when there is none, or a longer one.
std::optional<long> passNumber(std::string_view text, std::size_t& offset) {
    const std::size_t start = offset;
    long number = 0;
    while (isDigit(at(text, offset)) && offset - start < 6)
        number = number * 10 + (text[offset++] - '0');
    if (offset == start || offset - start > 5)
        return std::nullopt;
    return number;
}

// "S1F1", also "S1 F1" and "S1,F1", and "S1F1W" with the W attached.
bool passStreamFunction(std::string_view text, std::size_t& offset, Head& head) {
    if (upperLetter(at(text, offset)) != 'S')
        return false;
    ++offset;
    const std::optional<long> stream = passNumber(text, offset);
    if (!stream)
        return false;
    std::size_t next = pastInlineSpace(text, offset);
    if (at(text, next) == ',')
        next = pastInlineSpace(text, next + 1);
    if (upperLetter(at(text, next)) != 'F')
        return false;
    offset = next + 1;
    const std::optional<long> function = passNumber(text, offset);
    if (!function)
        return false;
    if (upperLetter(at(text, offset)) == 'W' && !isWordCharacter(at(text, offset + 1))) {
        head.wait = true;
        ++offset;
    }
    head.stream = *stream;
    head.function = *function;
    return !isWordCharacter(at(text, offset));
}

// A "W" within quotes or brackets, with white space around it.
std::size_t passInnerWait(std::string_view text, std::size_t offset, Head& head) {
    offset = pastInlineSpace(text, offset);
    if (upperLetter(at(text, offset)) == 'W') {
        head.wait = true;
        offset = pastInlineSpace(text, offset + 1);
    }
    return offset;
}

// The head without its name.
std::optional<Head> plainHeadAt(std::string_view text, std::size_t offset) {
    Head head;
    const char opener = at(text, offset);
    head.quoted = isQuote(opener);
    head.bracketed = opener == '<';
    if (head.quoted || head.bracketed)
        offset = pastInlineSpace(text, offset + 1);
    if (!passStreamFunction(text, offset, head))
        return std::nullopt;
    if (head.quoted || head.bracketed) {
        offset = passInnerWait(text, offset, head);
        if (at(text, offset) != (head.bracketed ? '>' : opener))
            return std::nullopt;
        ++offset;
    }
    head.end = offset;
    return head;
}

// The colon that ends a name starting at `start`. After a stream and function, characters that cannot be in a
// name mean that this is a head with further text, not a name.
std::optional<std::size_t> colonAfter(std::string_view text, std::size_t start, std::size_t offset,
                                      std::string_view excluded) {
    const std::size_t end = std::min(text.size(), start + kLongestName);
    for (; offset < end; ++offset) {
        const char c = text[offset];
        if (c == ':')
            return offset;
        if (isLineEnd(c) || isQuote(c) || c == '<' || c == '>' || excluded.find(c) != std::string_view::npos)
            break;
    }
    return std::nullopt;
}

std::optional<Head> namedHead(std::string_view text, std::size_t start, std::size_t colon) {
    std::size_t offset = colon + 1;
    while (offset < text.size() && isSpace(text[offset]) && offset - colon < kLongestName)
        ++offset;
    std::optional<Head> head = plainHeadAt(text, offset);
    if (!head || head->bracketed)
        return std::nullopt;
    head->named = true;
    head->name = stripped(text.substr(start, colon - start));
    return head;
}

} // namespace

std::optional<Head> headAt(std::string_view text, std::size_t offset) {
    const std::optional<Head> plain = plainHeadAt(text, offset);
    if (plain && (plain->quoted || plain->bracketed))
        return plain;
    const std::optional<std::size_t> colon =
        colonAfter(text, offset, plain ? plain->end : offset, plain ? "*#.=/[" : "");
    if (colon)
        if (std::optional<Head> named = namedHead(text, offset, *colon))
            return named;
    return plain;
}

std::string_view directionOf(std::string_view words) {
    std::string letters;
    for (const char c : words) {
        if (isSpace(c))
            continue;
        if (letters.size() > 5)
            return {};
        letters += upperLetter(c);
    }
    if (letters == "H->E" || letters == "E<-H")
        return "H->E";
    if (letters == "H<-E" || letters == "E->H")
        return "H<-E";
    if (letters == "H<->E" || letters == "E<->H")
        return "H<->E";
    return {};
}

} // namespace zb::sml
