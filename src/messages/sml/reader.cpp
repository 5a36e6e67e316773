#include "messages/sml/reader.h"

#include "messages/sml/directive.h"

namespace zb::sml {

SmlLibrary Reader::read(const Progress& progress) {
    const std::size_t all = scanner_.text().size();
    for (skipBetween(); !scanner_.atEnd(); skipBetween()) {
        readTopLevel();
        progress.at(scanner_.offset(), all);
    }
    nameMessages(messages_, offsets_, *texts_, findings_);
    return {std::move(messages_), unread_, findings_.take(), std::move(texts_)};
}

void Reader::skipBetween() {
    scanner_.skip();
    for (const Comment& comment : scanner_.comments())
        if (lastWasRead_ && !comment.onOwnLine)
            applyTrailingComment(comment);
        else
            gatherComment(comment);
    lastWasRead_ = false;
}

// A comment on the line where the last message ended belongs to that message.
void Reader::applyTrailingComment(const Comment& comment) {
    SmlMessage& message = messages_.back();
    const std::string words = commentWords(comment.text);
    if (words.empty() || applyMarks(message, words) || message.description == words)
        return;
    if (message.description.empty())
        message.description = kept(words);
    else
        findings_.note(comment.offset, "the message has a description already; this comment has no place");
}

// The comment directly before a message becomes its description; earlier ones cannot be used.
void Reader::gatherComment(const Comment& comment) {
    const std::string words = commentWords(comment.text);
    if (words.empty())
        return;
    if (comment.afterBlankLine && !leadingComment_.empty()) {
        findings_.note(leadingOffset_, "a comment between the messages has no place in a definition");
        leadingComment_.clear();
    }
    if (leadingComment_.empty())
        leadingOffset_ = comment.offset;
    else
        leadingComment_ += ' ';
    leadingComment_ += words;
}

void Reader::readTopLevel() {
    const std::size_t offset = scanner_.offset();
    if (atDirective(scanner_.text(), offset)) {
        passDirective();
        return;
    }
    if (passTitle())
        return;
    if (const std::optional<Head> head = headAt(scanner_.text(), offset))
        readMessage(*head);
    else
        passUnknown();
}

bool Reader::headFollows() const {
    return headAt(scanner_.text(), scanner_.offset()) || atDirective(scanner_.text(), scanner_.offset());
}

// A quoted line directly before a head is its title, even when it looks like a head itself.
bool Reader::passTitle() {
    if (!isQuote(scanner_.peek()))
        return false;
    const std::string_view text = scanner_.text();
    const std::size_t start = scanner_.offset() + 1;
    std::size_t end = start;
    while (end < text.size() && text[end] != text[start - 1] && text[end] != '\n')
        ++end;
    if (end >= text.size() || text[end] == '\n')
        return false;
    std::size_t next = end + 1;
    while (next < text.size() && isInlineSpace(text[next]))
        ++next;
    if (next >= text.size() || !isLineEnd(text[next]))
        return false;
    while (next < text.size() && isSpace(text[next]))
        ++next;
    if (!headAt(text, next))
        return false;
    title_ = stripped(text.substr(start, end - start));
    scanner_.moveTo(next);
    return true;
}

void Reader::passDirective() {
    if (scanner_.peek() == '#') {
        passDefine();
        return;
    }
    const std::size_t offset = scanner_.offset();
    const bool rule = isWord(scanner_.word(), "IF");
    findings_.warn(offset, rule ? "a rule of what to send when is not taken over"
                                : "a timer of what to send is not taken over");
    if (rule && !passParenthesis())
        return;
    passRule();
}

void Reader::passDefine() {
    const std::size_t offset = scanner_.offset();
    scanner_.advance();
    const std::string_view directive = scanner_.word();
    const auto passBlanks = [this] {
        while (!scanner_.atEnd() && isInlineSpace(scanner_.peek()))
            scanner_.advance();
    };
    if (!isWord(directive, "DEFINE")) {
        findings_.warn(offset, "the directive #" + std::string(directive) + " is not taken over");
        scanner_.passLine();
        return;
    }
    passBlanks();
    const std::string_view name = scanner_.word();
    passBlanks();
    const std::string_view number = scanner_.valueWord();
    std::size_t value = 0;
    const bool isCount =
        !number.empty() && number.size() <= 9 && number.find_first_not_of("0123456789") == number.npos;
    for (const char c : number.substr(0, isCount ? number.size() : 0))
        value = value * 10 + static_cast<std::size_t>(c - '0');
    if (isCount && !name.empty())
        defines_.insert_or_assign(std::string(name), value);
    findings_.warn(offset,
                   isCount ? "the directive #define is not kept; its number is used in counts that name it"
                           : "the directive #define is not taken over");
    scanner_.passLine();
}

// The rest of a rule or timer: up to its point, or to the end of the line.
void Reader::passRule() {
    scanner_.skip();
    const std::string_view text = scanner_.text();
    std::size_t at = scanner_.offset();
    while (at < text.size() && !isLineEnd(text[at]) &&
           !(text[at] == '.' && (at + 1 == text.size() || isSpace(text[at + 1]))))
        ++at;
    scanner_.moveTo(at < text.size() && text[at] == '.' ? at + 1 : at);
}

bool Reader::passParenthesis() {
    scanner_.skip();
    const std::size_t offset = scanner_.offset();
    std::size_t depth = 0;
    while (!scanner_.atEnd()) {
        const char c = scanner_.peek();
        if (isQuote(c)) {
            const std::string_view text = scanner_.text();
            const std::size_t end = text.find_first_of(c == '"' ? "\"\n" : "'\n", scanner_.offset() + 1);
            scanner_.moveTo(end == text.npos ? text.size() : end + 1);
            continue;
        }
        depth += c == '(' ? 1 : 0;
        depth -= c == ')' ? 1 : 0;
        scanner_.advance();
        if (depth == 0)
            return true;
        scanner_.skip();
        if (!scanner_.passedLineEnd())
            continue;
        // A head with a name, or another rule, cannot be inside a condition.
        const std::optional<Head> head = headAt(scanner_.text(), scanner_.offset());
        if ((head && head->named) || atDirective(scanner_.text(), scanner_.offset()))
            break;
    }
    findings_.fail(offset, "expected \")\" for the condition that begins here");
    return false;
}

void Reader::passUnknown() {
    const char c = scanner_.peek();
    if (c == '.' || c == '>') {
        if (c == '.')
            findings_.warn(scanner_.offset(), "a point ends no message");
        else
            findings_.fail(scanner_.offset(), "expected a message, found \">\"");
        scanner_.advance();
        return;
    }
    findings_.fail(scanner_.offset(),
                   "expected a message, found " + foundAt(scanner_.text(), scanner_.offset()));
    leadingComment_.clear();
    passToNextHead();
}

// To the next line that starts a message or a directive.
void Reader::passToNextHead() {
    for (scanner_.passLine(); !scanner_.atEnd(); scanner_.passLine()) {
        scanner_.skip();
        for (const Comment& comment : scanner_.comments())
            gatherComment(comment);
        if (headFollows() || isQuote(scanner_.peek()))
            return;
    }
}

} // namespace zb::sml
