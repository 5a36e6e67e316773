#include "messages/sml/reader.h"

#include "platform/text.h"

#include <algorithm>

namespace zb::sml {

namespace {

constexpr long kHighestStream = 127;
constexpr long kHighestFunction = 255;
// A longer comment is an explanation, or a message that was disabled.
constexpr std::size_t kLongestDescription = 200;

// The characters of a name after a head.
bool isNameMark(char c) {
    return !isSpace(c) && !isQuote(c) && c != '.' && c != '<' && c != '>' && c != '=' && c != '[' && c != '*';
}

} // namespace

bool applyMarks(SmlMessage& message, std::string_view words) {
    if (const std::string_view direction = directionOf(words); !direction.empty()) {
        message.direction = direction;
        return true;
    }
    SmlMessage marked;
    std::string_view direction;
    for (const std::string& word : splitAtBlanks(words)) {
        if (word == "<R>")
            marked.autoReply = true;
        else if (word == "<NL>")
            marked.noLogging = true;
        else if (direction = directionOf(word); direction.empty())
            return false;
        else
            marked.direction = direction;
    }
    message.direction = marked.direction;
    message.autoReply = marked.autoReply;
    message.noLogging = marked.noLogging;
    return true;
}

bool Reader::checkNumbers(const Head& head) {
    const std::size_t offset = scanner_.offset();
    // Definitions accept 128.
    if (head.stream == kHighestStream + 1)
        findings_.warn(offset, "expected a stream from 0 to 127, found 128");
    else if (head.stream > kHighestStream)
        findings_.fail(offset, "expected a stream from 0 to 127, found " + std::to_string(head.stream));
    if (head.function > kHighestFunction)
        findings_.fail(offset, "expected a function from 0 to 255, found " + std::to_string(head.function));
    return head.stream <= kHighestStream + 1 && head.function <= kHighestFunction;
}

void Reader::readMessage(const Head& head) {
    ReadMessage read;
    read.offset = scanner_.offset();
    read.name = head.name;
    read.message.stream = static_cast<int>(head.stream);
    read.message.function = static_cast<int>(head.function);
    read.message.wait = head.wait;
    if (leadingComment_.size() <= kLongestDescription)
        read.description = leadingComment_;
    else
        findings_.note(leadingOffset_, "a comment of this length is no description, and has no place");
    leadingComment_.clear();
    const bool numbersAreRight = checkNumbers(head);
    scanner_.moveTo(head.end);
    Step step = readMarks(read);
    if (step == Step::Body)
        step = readBody(head.bracketed) ? Step::Ended : Step::Broken;
    if (step == Step::Broken)
        passBroken();
    if (step != Step::Broken && numbersAreRight)
        finish(read);
    else
        ++unread_;
    title_.clear();
}

void Reader::finish(ReadMessage& read) {
    SmlMessage& message = read.message;
    items_.reportComments();
    const std::optional<std::string_view> body = body_.compose(findings_);
    if (!body) {
        ++unread_;
        return;
    }
    if (message.wait && message.function % 2 == 0)
        findings_.warn(read.offset, "W is set on an even function, which is a reply");
    if (read.name.empty())
        read.name = title_;
    else if (read.description.empty())
        read.description = title_;
    message.name = kept(read.name);
    message.description = kept(read.description);
    message.body = kept(*body);
    makeRoom(read.offset);
    messages_.push_back(message);
    offsets_.push_back(read.offset);
    lastWasRead_ = true;
}

// Most lists have messages of one size, so the part that was read predicts the number of messages. Moving all
// of them each time that their number doubles would cost as much as reading them.
void Reader::makeRoom(std::size_t offset) {
    constexpr std::size_t kFirst = 16;
    constexpr std::size_t kFastestGrowth = 16;
    const std::size_t count = messages_.size();
    if (count < messages_.capacity())
        return;
    const double share = static_cast<double>(offset + 1) / static_cast<double>(scanner_.text().size() + 1);
    const double expected = static_cast<double>(count) / share * 1.05;
    const double most = static_cast<double>(std::max(count, kFirst) * kFastestGrowth);
    const auto room = static_cast<std::size_t>(std::min(expected, most));
    messages_.reserve(std::max({room, count * 3 / 2, kFirst}));
}

Reader::Step Reader::endWithoutPoint() {
    findings_.warn(scanner_.offset(), "expected \".\" at the end of the message, found " +
                                          foundAt(scanner_.text(), scanner_.offset()));
    return Step::Ended;
}

void Reader::applyHeadComment(ReadMessage& read, const Comment& comment) {
    const std::string words = commentWords(comment.text);
    std::string& description = read.description;
    if (words.empty() || applyMarks(read.message, words) || words == description)
        return;
    if (description.size() + words.size() + 2 > kLongestDescription)
        findings_.note(comment.offset, "the message has a description already; this comment has no place");
    else
        description += description.empty() ? words : "; " + words;
}

Reader::Step Reader::readMarks(ReadMessage& read) {
    items_.clear();
    Step step = Step::Next;
    while (step == Step::Next) {
        scanner_.skip();
        for (const Comment& comment : scanner_.comments())
            applyHeadComment(read, comment);
        step = readMark(read);
    }
    return step;
}

Reader::Step Reader::readMark(ReadMessage& read) {
    if (scanner_.atEnd())
        return endWithoutPoint();
    const char c = scanner_.peek();
    if (c == '.') {
        scanner_.advance();
        return Step::Ended;
    }
    if (scanner_.passedLineEnd() && headFollows())
        return endWithoutPoint();
    if (c == '<')
        return Step::Body;
    if (c == '[')
        return readBracketedWait(read);
    if (c == '=') {
        scanner_.advance();
        scanner_.skip();
        read.name.clear();
    }
    if (isWordStart(scanner_.peek()) || isDigit(scanner_.peek()))
        return readMarkWord(read);
    if (scanner_.passedLineEnd())
        return endWithoutPoint();
    findings_.fail(scanner_.offset(),
                   "expected W, an item or \".\", found " + foundAt(scanner_.text(), scanner_.offset()));
    return Step::Broken;
}

Reader::Step Reader::readBracketedWait(ReadMessage& read) {
    const std::size_t end = scanner_.text().substr(scanner_.offset(), 16).find(']');
    if (end == std::string_view::npos ||
        !isWord(stripped(scanner_.text().substr(scanner_.offset() + 1, end - 1)), "W")) {
        findings_.fail(scanner_.offset(),
                       "expected [W], found " + foundAt(scanner_.text(), scanner_.offset()));
        return Step::Broken;
    }
    read.message.wait = true;
    scanner_.advance(end + 1);
    return Step::Next;
}

// "H->E" and similar words; their letters alone would be a name.
bool Reader::passArrow(ReadMessage& read) {
    constexpr std::size_t kLongest = 12;
    const std::string_view reach = scanner_.text().substr(scanner_.offset(), kLongest);
    const char first = upperLetter(reach[0]);
    if (first != 'H' && first != 'E')
        return false;
    const std::size_t last = reach.find_first_of(first == 'H' ? "Ee" : "Hh", 1);
    if (last == std::string_view::npos)
        return false;
    const std::string_view direction = directionOf(reach.substr(0, last + 1));
    if (direction.empty())
        return false;
    read.message.direction = direction;
    scanner_.advance(last + 1);
    return true;
}

Reader::Step Reader::readMarkWord(ReadMessage& read) {
    if (passArrow(read))
        return Step::Next;
    const std::size_t offset = scanner_.offset();
    while (!scanner_.atEnd() && isNameMark(scanner_.peek()))
        scanner_.advance();
    const std::string_view word = scanner_.text().substr(offset, scanner_.offset() - offset);
    if (isWord(word, "W")) {
        read.message.wait = true;
    } else if (isWord(word, "INPUT")) {
        read.message.direction = "H<-E"; // the lists with these words are written for hosts
    } else if (isWord(word, "OUTPUT")) {
        read.message.direction = "H->E";
    } else if (scanner_.passedLineEnd()) {
        scanner_.moveTo(offset);
        return endWithoutPoint();
    } else {
        if (!read.name.empty())
            read.name += ' ';
        read.name += word;
    }
    return Step::Next;
}

// Skips a message that cannot be read: to its end, or to the next line that starts one.
void Reader::passBroken() {
    const std::string_view text = scanner_.text();
    const auto pastSpace = [text](std::size_t at) {
        while (at < text.size() && isSpace(text[at]))
            ++at;
        return at;
    };
    for (std::size_t at = scanner_.offset(); at < text.size(); ++at) {
        if (isQuote(text[at])) {
            const std::size_t end = text.find_first_of(text[at] == '"' ? "\"\n" : "'\n", at + 1);
            if (end != text.npos && text[end] != '\n')
                at = end;
            else if (end != text.npos)
                at = end - 1;
        } else if (text[at] == '>') {
            const std::size_t next = pastSpace(at + 1);
            if (next < text.size() && text[next] == '.' && text.substr(next, 3) != "...") {
                scanner_.moveTo(next + 1);
                return;
            }
        } else if (text[at] == '\n') {
            scanner_.moveTo(pastSpace(at));
            if (headFollows())
                return;
            at = scanner_.offset() - 1;
        }
    }
    scanner_.moveTo(text.size());
}

bool Reader::readBody(bool bracketedHead) {
    std::size_t roots = 1;
    // "<S1F1 W>" is closed by an extra ">" after the items.
    bool closerExpected = bracketedHead;
    Step step = readRoot();
    while (step == Step::Next) {
        items_.skip();
        step = stepPastRoot(roots, closerExpected);
    }
    return step == Step::Ended;
}

Reader::Step Reader::readRoot() {
    switch (items_.read()) {
    case ItemReader::Outcome::Closed:
        return Step::Next;
    case ItemReader::Outcome::CutShort:
        if (scanner_.peek() == '.' && !scanner_.atEllipsis())
            scanner_.advance();
        return Step::Ended;
    default:
        return Step::Broken;
    }
}

Reader::Step Reader::stepPastRoot(std::size_t& roots, bool& closerExpected) {
    if (scanner_.atEnd())
        return endWithoutPoint();
    if (scanner_.atEllipsis()) {
        findings_.warn(scanner_.offset(),
                       "a message repeats no items outside of a list; \"...\" is left out");
        scanner_.passEllipsis();
        return Step::Next;
    }
    switch (scanner_.peek()) {
    case '.':
        scanner_.advance();
        return Step::Ended;
    case '=':
        return items_.passGivenName() ? Step::Next : Step::Broken;
    case '>':
        if (!closerExpected)
            findings_.fail(scanner_.offset(), "expected \".\", found one \">\" more than there are items");
        closerExpected = false;
        scanner_.advance();
        return Step::Next;
    default:
        break;
    }
    if (headFollows())
        return endWithoutPoint();
    if (scanner_.peek() == '<') {
        if (++roots == 2)
            findings_.warn(scanner_.offset(), "the message has more than one item outside of a list");
        return readRoot();
    }
    if (scanner_.passedLineEnd() && isQuote(scanner_.peek()))
        return endWithoutPoint();
    findings_.fail(scanner_.offset(), "expected \".\", found " + foundAt(scanner_.text(), scanner_.offset()));
    return Step::Broken;
}

} // namespace zb::sml

namespace zb {

SmlLibrary readSml(std::string_view text, const CodePage& codePage, const Progress& progress) {
    return sml::Reader(text, codePage).read(progress);
}

} // namespace zb
