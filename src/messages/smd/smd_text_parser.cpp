#include "messages/smd/smd_text_parser.h"

#include "messages/indentation.h"
#include "messages/item_grammar.h"
#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

constexpr std::string_view kBlanks = " \t\r";

// A search for any of several characters costs a call per character, and most of a file is indentation.
bool isBlankMark(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view strippedRight(std::string_view line) {
    while (!line.empty() && isBlankMark(line.back()))
        line.remove_suffix(1);
    return line;
}

std::string_view stripped(std::string_view line) {
    while (!line.empty() && isBlankMark(line.front()))
        line.remove_prefix(1);
    return strippedRight(line);
}

bool isBracketLine(std::string_view content) {
    return content.front() == '<' || content.front() == '>';
}

bool endsMessage(std::string_view content) {
    if (content.back() != '.')
        return false;
    if (!isBracketLine(content))
        return true;
    content.remove_suffix(1);
    const std::size_t last = content.find_last_not_of(kBlanks);
    return last != std::string_view::npos && content[last] == '>';
}

bool isHead(std::string_view line) {
    return !line.empty() && kBlanks.find(line.front()) == std::string_view::npos && !isBracketLine(line) &&
           line.find(':') != std::string_view::npos;
}

bool isAsterisksOnly(std::string_view content) {
    return content.find_first_not_of('*') == std::string_view::npos;
}

/// Removes closing brackets of lists from the end of a line.
struct Closing {
    std::size_t closers = 0;
    bool ended = false;
};

Closing stripClosers(std::string_view& content) {
    Closing closing;
    closing.ended = endsMessage(content);
    if (closing.ended)
        content.remove_suffix(1);
    while (true) {
        content = strippedRight(content);
        if (content.empty() || content.back() != '>')
            return closing;
        content.remove_suffix(1);
        ++closing.closers;
    }
}

} // namespace

std::string cleanItemText(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    const std::size_t opening = text.find('\'');
    const std::size_t closing = opening == std::string_view::npos ? opening : text.rfind('\'');
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == opening) {
            clean.append(text.substr(opening, closing - opening + 1));
            i = closing;
        } else if (!isBlankMark(text[i])) {
            clean += text[i];
        } else if (!clean.empty() && clean.back() != ' ') {
            clean += ' ';
        }
    }
    const std::size_t typeEnd = std::min(clean.find(' '), clean.size());
    std::transform(clean.begin(), clean.begin() + static_cast<std::ptrdiff_t>(typeEnd), clean.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return clean;
}

void SmdTextSplitter::tell(Severity severity, std::string text) {
    if (findings_ != nullptr)
        findings_->push_back({severity, FindingPlace::atLine(lineNumber_ + 1), std::move(text)});
}

/// Returns the next line without consuming it.
bool SmdTextSplitter::atLine() {
    if (peeked_)
        return true;
    if (position_ >= text_.size())
        return false;
    const std::size_t end = text_.find('\n', position_);
    afterLine_ = end == std::string_view::npos ? text_.size() : end + 1;
    line_ = text_.substr(position_, end == std::string_view::npos ? end : end - position_);
    if (!line_.empty() && line_.back() == '\r')
        line_.remove_suffix(1);
    peeked_ = true;
    return true;
}

void SmdTextSplitter::takeLine() {
    position_ = afterLine_;
    ++lineNumber_;
    peeked_ = false;
}

/// The asterisks of a banner around a description do not replace it.
void SmdTextSplitter::takeComment() {
    const std::string_view content = stripped(line_);
    if (content == "*")
        description_ = {};
    else if (!isAsterisksOnly(content))
        description_ = stripped(content.substr(1));
}

std::optional<SmdMessageText> SmdTextSplitter::next() {
    for (; atLine(); takeLine()) {
        const std::string_view content = stripped(line_);
        if (content.empty())
            continue;
        if (content.front() == '*') {
            takeComment();
            continue;
        }
        if (isBracketLine(content) || content.find(':') == std::string_view::npos) {
            tell(Severity::Error, "This line belongs to no message");
            description_ = {};
            continue;
        }
        SmdMessageText message;
        message.description = description_;
        message.head = content;
        message.headLine = lineNumber_ + 1;
        message.ended = content.back() == '.';
        if (message.ended)
            message.head = stripped(content.substr(0, content.size() - 1));
        description_ = {};
        takeLine();
        takeBody(message);
        return message;
    }
    return std::nullopt;
}

void SmdTextSplitter::takeBody(SmdMessageText& message) {
    const std::size_t start = position_;
    message.bodyLine = lineNumber_ + 1;
    while (!message.ended && atLine()) {
        const std::string_view content = stripped(line_);
        const bool isNext = isHead(line_) || (!line_.empty() && line_.front() == '*');
        if (isNext)
            break;
        message.ended = !content.empty() && endsMessage(content);
        takeLine();
    }
    message.body = text_.substr(start, position_ - start);
    if (!message.ended && findings_ != nullptr)
        findings_->push_back(
            {Severity::Warning, FindingPlace::atLine(lineNumber_), "The message does not end with \".\""});
}

void SmdBodyReader::tell(std::string text) {
    if (findings_ != nullptr)
        findings_->push_back({Severity::Error, FindingPlace::atLine(lineNumber_), std::move(text)});
}

bool SmdBodyReader::next(SmdItemText& item) {
    while (!body_.empty()) {
        const std::size_t end = body_.find('\n');
        const std::string_view line = body_.substr(0, end);
        body_ = end == std::string_view::npos ? std::string_view() : body_.substr(end + 1);
        ++lineNumber_;
        std::string_view content = stripped(line);
        if (content.empty() || content == ".")
            continue;
        item.line = lineNumber_;
        if (content.front() == '<') {
            takeBracketItem(content, item);
            return true;
        }
        if (content.front() == '>') {
            const Closing closing = stripClosers(content);
            if (!content.empty())
                tell("Only \">\" and the final \".\" may stand here");
            close(closing.closers, closing.ended);
            continue;
        }
        takeBareItem(line, item);
        return true;
    }
    if (openLists_ > 0) {
        tell("A list is not closed: \">\" is missing");
        openLists_ = 0;
    }
    return false;
}

void SmdBodyReader::takeBareItem(std::string_view line, SmdItemText& item) {
    const long depth = depthOfIndentation(line.find_first_not_of(kBlanks));
    if (level_ == 0)
        level_ = 1;
    else if (depth > lastDepth_)
        ++level_;
    else
        level_ = static_cast<int>(std::max<long>(1, level_ - (lastDepth_ - depth)));
    lastDepth_ = depth;
    std::string_view content = stripped(line);
    if (content.back() == '.' && stripped(body_).empty())
        content.remove_suffix(1);
    item.level = level_;
    item.text = trimmed(content);
}

void SmdBodyReader::takeBracketItem(std::string_view line, SmdItemText& item) {
    std::string_view content = line.substr(1);
    const Closing closing = content.empty() ? Closing{} : stripClosers(content);
    item.level = openLists_ + 1;
    item.text = cleanItemText(stripped(content));
    const bool isList = item.text == "L" || item.text.rfind("L ", 0) == 0;
    if (closing.closers > 0) {
        close(closing.closers - 1, closing.ended);
        return;
    }
    if (isList && openLists_ < kDeepestLevel)
        ++openLists_;
    else if (isList)
        tell("The lists are nested too deep");
    else
        tell("\">\" is missing at the end of the item");
}

void SmdBodyReader::close(std::size_t closers, bool ended) {
    if (closers > static_cast<std::size_t>(openLists_)) {
        tell("A \">\" closes no list");
        openLists_ = 0;
    } else {
        openLists_ -= static_cast<int>(closers);
    }
    if (ended && openLists_ > 0) {
        tell("The message ends inside a list");
        openLists_ = 0;
    }
}

} // namespace zb
