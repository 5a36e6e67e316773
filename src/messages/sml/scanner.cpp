#include "messages/sml/scanner.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace zb::sml {

namespace {

enum class InValue : std::uint8_t { Yes, No, UnlessEllipsis };

constexpr auto kInValue = [] {
    std::array<InValue, 256> known{};
    for (std::size_t i = 0; i < known.size(); ++i)
        if (isSpace(static_cast<char>(i)))
            known[i] = InValue::No;
        else if (i >= 0x80 || i == '.')
            known[i] = InValue::UnlessEllipsis;
    for (const char c : std::string_view("'\"<>[],*/=#"))
        known[static_cast<unsigned char>(c)] = InValue::No;
    return known;
}();

} // namespace

void Scanner::skipAll() {
    do {
        offset_ = pastSpace(offset_);
    } while (offset_ < text_.size() && passComment());
}

std::size_t Scanner::pastSpace(std::size_t offset) {
    const char* at = text_.data() + offset;
    const char* const end = text_.data() + text_.size();
    for (; at != end; ++at) {
        if (*at == ' ') {
            // Most of it is indentation, which is passed eight blanks at a time.
            constexpr std::string_view kBlanks = "        ";
            while (static_cast<std::size_t>(end - at) > kBlanks.size() &&
                   std::memcmp(at, kBlanks.data(), kBlanks.size()) == 0)
                at += kBlanks.size();
            if (*at == ' ')
                continue;
        }
        if (*at == '\n') {
            passedLineEnd_ = true;
            ++lineEnds_;
        } else if (!isSpace(*at)) {
            break;
        }
    }
    return static_cast<std::size_t>(at - text_.data());
}

bool Scanner::passComment() {
    switch (text_[offset_]) {
    case '*':
        passCommentToLineEnd(1);
        return true;
    case '/':
        if (peek(1) == '/') {
            passCommentToLineEnd(2);
            return true;
        }
        return peek(1) == '*' && passBlockComment("*/");
    case '\\':
        return peek(1) == '*' && passBlockComment("*\\");
    case '#': {
        // A directive is not a comment.
        const bool directive = isLetter(peek(1));
        if (!directive)
            passCommentToLineEnd(1);
        return !directive;
    }
    default:
        return false;
    }
}

void Scanner::passCommentToLineEnd(std::size_t markLength) {
    const std::size_t start = offset_;
    const std::size_t end = std::min(text_.find('\n', start), text_.size());
    addComment(start, text_.substr(start + markLength, end - start - markLength));
    offset_ = end;
}

bool Scanner::passBlockComment(std::string_view closer) {
    std::size_t& noneFrom = closer == "*/" ? noSlashCloserFrom_ : noBackslashCloserFrom_;
    const std::size_t start = offset_;
    const std::size_t end = start + 2 >= noneFrom ? std::string_view::npos : text_.find(closer, start + 2);
    if (end == std::string_view::npos) {
        noneFrom = std::min(noneFrom, start + 2);
        findings_.fail(start, "the comment is not closed; it was taken to end with its line");
        passCommentToLineEnd(2);
        return true;
    }
    addComment(start, text_.substr(start + 2, end - start - 2));
    offset_ = end + 2;
    return true;
}

void Scanner::addComment(std::size_t offset, std::string_view text) {
    comments_.push_back({offset, text, passedLineEnd_, lineEnds_ > 1});
    lineEnds_ = 0;
}

std::string_view Scanner::word() {
    const std::size_t start = offset_;
    while (offset_ < text_.size() && isWordCharacter(text_[offset_]))
        ++offset_;
    return text_.substr(start, offset_ - start);
}

std::string_view Scanner::valueWord() {
    const std::size_t start = offset_;
    while (offset_ < text_.size()) {
        const InValue known = kInValue[static_cast<unsigned char>(text_[offset_])];
        if (known == InValue::No)
            break;
        if (known == InValue::UnlessEllipsis && offset_ > start && atEllipsis())
            break;
        ++offset_;
    }
    return text_.substr(start, offset_ - start);
}

void Scanner::passLine() {
    offset_ = std::min(text_.find('\n', offset_), text_.size());
}

namespace {

std::string_view withoutFrame(std::string_view line, bool framed) {
    line = stripped(line);
    const auto runAtFront = [&] { return std::min(line.find_first_not_of('*'), line.size()); };
    const auto runAtBack = [&] {
        const std::size_t last = line.find_last_not_of('*');
        return last == std::string_view::npos ? line.size() : line.size() - 1 - last;
    };
    const std::size_t least = framed ? 1 : 2; // a single star may be a footnote mark
    if (runAtFront() >= least)
        line.remove_prefix(runAtFront());
    if (runAtBack() >= least)
        line.remove_suffix(runAtBack());
    return stripped(line);
}

bool isBanner(std::string_view line) {
    return line.size() >= 3 && line.find_first_not_of("*=-_#~/+ \t") == std::string_view::npos;
}

} // namespace

std::string commentWords(std::string_view comment) {
    // Most comments are a word or two after an item.
    const std::string_view plain = stripped(comment);
    if (!plain.empty() && isLetter(plain.front()) && plain.back() != '*' &&
        std::all_of(plain.begin(), plain.end(), [](char c) { return c == ' ' || !isSpace(c); }))
        return std::string(plain);
    const bool framed = comment.find('\n') != std::string_view::npos || comment.starts_with('*');
    std::string words;
    while (!comment.empty()) {
        const std::size_t end = std::min(comment.find('\n'), comment.size());
        const std::string_view line = withoutFrame(comment.substr(0, end), framed);
        comment.remove_prefix(std::min(end + 1, comment.size()));
        if (line.empty() || isBanner(line))
            continue;
        if (!words.empty())
            words += ' ';
        for (const char c : line)
            words += isSpace(c) && c != ' ' ? ' ' : c;
    }
    return words;
}

} // namespace zb::sml
