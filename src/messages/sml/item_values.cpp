#include "messages/sml/item_reader.h"

#include <algorithm>

// The text between the brackets of an item that is not a list.
namespace zb::sml {

ItemReader::Step ItemReader::readValues(std::size_t index) {
    value_.begin();
    valueBegin_ = body_.values().size();
    valueCount_ = 0;
    Step step = Step::Next;
    while (step == Step::Next) {
        skip();
        step = stepInValues(index);
    }
    if (step == Step::Broken)
        return step;
    endValues(index);
    return step == Step::Closed ? Step::Next : step;
}

ItemReader::Step ItemReader::stepInValues(std::size_t index) {
    if (scanner_.atEnd())
        return cutShort();
    const char c = scanner_.peek();
    if (c == '>') {
        scanner_.advance();
        return Step::Closed;
    }
    if (isDigit(c) || c == '+' || c == '-' || (c == '.' && isDigit(scanner_.peek(1))))
        return readNumber(index);
    if (scanner_.atEllipsis()) {
        scanner_.passEllipsis();
        body_.item(index).repeats = true;
        return Step::Next;
    }
    if (isQuote(c))
        return readString(index);
    if (c == '.' || atNextMessage())
        return cutShort();
    if (isWordStart(c))
        return readWord(index);
    if (c == '[')
        return readBracket(index);
    if (c == ',' && valueCount_ > 0) {
        findings_.warn(scanner_.offset(),
                       "values are separated by white space; the comma was read as white space");
        scanner_.advance();
        return Step::Next;
    }
    if (c == '<') {
        fail("\">\"");
        return Step::Closed;
    }
    return fail(std::string(expectedValue(body_.item(index).type)) + " or \">\"");
}

ItemReader::Step ItemReader::readString(std::size_t index) {
    const std::size_t offset = scanner_.offset();
    const char quote = scanner_.peek();
    const bool isText = isQuotedType(body_.item(index).type);
    if (!isText)
        value_.begin();
    scanner_.advance();
    if (!passString(quote)) {
        findings_.fail(offset, std::string("expected a closing ") + quote + " for the text that begins here");
        return Step::Broken;
    }
    body_.item(index).valued = true;
    return isText ? Step::Next : applyQuotedWords(index, offset);
}

// A quote directly before a letter does not end a text: 'Joe's lot'.
bool ItemReader::isQuoteWithin(std::size_t offset) const {
    const std::string_view text = scanner_.text();
    return offset + 1 < text.size() && isWordStart(text[offset + 1]);
}

// A quote after a backslash ends the text when the item ends after it: 'C:\'> .
bool ItemReader::isEscapedQuote(std::size_t offset) const {
    const std::string_view text = scanner_.text();
    std::size_t next = offset + 1;
    while (next < text.size() && isSpace(text[next]))
        ++next;
    if (next >= text.size() || text[next] != '>')
        return true;
    return next + 1 < text.size() && text[next + 1] == text[offset];
}

bool ItemReader::passString(char quote) {
    const std::string_view text = scanner_.text();
    std::size_t done = scanner_.offset();
    for (std::size_t at = done; at < text.size(); ++at) {
        const char c = text[at];
        if (c == quote && !isQuoteWithin(at)) {
            value_.appendText(text.substr(done, at - done));
            scanner_.moveTo(at + 1);
            return true;
        }
        if (c == '\\' && at + 1 < text.size() && text[at + 1] == quote && isEscapedQuote(at + 1)) {
            value_.appendText(text.substr(done, at - done));
            done = ++at;
        } else if (c == '\\') {
            value_.sawBackslash();
        } else if (c == quote) {
            findings_.warn(at, "a quote is inside the text that it starts");
        } else if (c == '\n') {
            std::size_t next = at + 1;
            while (next < text.size() && isInlineSpace(text[next]))
                ++next;
            if (headFollows(next)) {
                scanner_.moveTo(at);
                return false;
            }
            // There may be many blanks; they are scanned only once.
            at = next - 1;
        }
    }
    scanner_.moveTo(text.size());
    return false;
}

ItemReader::Step ItemReader::applyQuotedWords(std::size_t index, std::size_t offset) {
    value_.end(nullptr);
    std::string_view rest = value_.text();
    while (!(rest = stripped(rest)).empty()) {
        const std::size_t end = std::min(rest.find_first_of(" \t,"), rest.size());
        if (end > 0)
            if (const Step step = applyValue(index, rest.substr(0, end), offset); step != Step::Next)
                return step;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return Step::Next;
}

ItemReader::Step ItemReader::applyValue(std::size_t index, std::string_view word, std::size_t offset) {
    const ItemType type = body_.item(index).type;
    std::string& values = body_.values();
    if (valueCount_ > 0)
        values += ' ';
    const std::size_t before = values.size();
    const ValueFault fault = appendValue(values, type, word);
    if (fault != ValueFault::None)
        reportValue(type, word, fault, values.substr(before), offset);
    if (fault == ValueFault::NotOfType)
        return Step::Broken;
    ++valueCount_;
    body_.item(index).valued = true;
    return Step::Next;
}

void ItemReader::reportValue(ItemType type, std::string_view word, ValueFault fault, const std::string& read,
                             std::size_t offset) {
    const std::string written(word);
    switch (fault) {
    case ValueFault::BareHex:
        findings_.warn(offset, written + " was read as a hexadecimal number");
        return;
    case ValueFault::SignedByte:
        findings_.warn(offset, written + " was read as the byte " + read);
        return;
    default:
        break;
    }
    std::string text =
        "expected " + std::string(expectedValue(type)) + ", found " + foundAt(scanner_.text(), offset);
    if (fault == ValueFault::OutOfRange)
        text += "; it was read as " + read;
    findings_.fail(offset, std::move(text));
}

ItemReader::Step ItemReader::readNumber(std::size_t index) {
    const std::size_t offset = scanner_.offset();
    const std::string_view word = scanner_.valueWord();
    Item& item = body_.item(index);
    if (!isQuotedType(item.type))
        return applyValue(index, word, offset);
    item.valued = true;
    if (item.type != ItemType::Any)
        return applyCharacterCode(word, offset);
    if (valueCount_++ > 0)
        value_.appendCharacter(' ');
    value_.appendText(word);
    return Step::Next;
}

ItemReader::Step ItemReader::applyCharacterCode(std::string_view word, std::size_t offset) {
    const std::optional<Integer> code = parseInteger(word);
    if (!code || code->negative || code->magnitude > 0xFF) {
        const bool isNumber = looksLikeInteger(word);
        findings_.fail(offset, "expected a text or a character code from 0 to 255, found " +
                                   foundAt(scanner_.text(), offset) + (isNumber ? "; it was left out" : ""));
        return isNumber ? Step::Next : Step::Broken;
    }
    value_.appendCode(static_cast<unsigned char>(code->magnitude));
    return Step::Next;
}

ItemReader::Step ItemReader::readWord(std::size_t index) {
    const std::size_t offset = scanner_.offset();
    const std::string_view word = passIndexedName();
    const ItemType type = body_.item(index).type;
    if (type == ItemType::Boolean || (type == ItemType::Binary && word.size() <= 2)) {
        std::string trial;
        const ValueFault fault = appendValue(trial, type, word);
        if (fault == ValueFault::None || fault == ValueFault::BareHex)
            return applyValue(index, word, offset);
    }
    if (!isQuotedType(type) &&
        (isWord(word, "T") || isWord(word, "F") || isWord(word, "TRUE") || isWord(word, "FALSE"))) {
        scanner_.moveTo(offset);
        return fail(std::string(expectedValue(type)));
    }
    if (body_.item(index).valued && !isQuotedType(type))
        findings_.note(offset, "the name among the values became the name of the item");
    giveName(index, word, offset);
    return Step::Next;
}

void ItemReader::endValues(std::size_t index) {
    Item& item = body_.item(index);
    if (!isQuotedType(item.type)) {
        item.values = valueCount_;
        body_.endValue(item, valueBegin_);
        return;
    }
    const bool counted = item.valued && item.count.kind == Count::Kind::Fixed;
    value_.end(counted ? &item.count.number : nullptr);
    item.values = value_.ansiLength();
    body_.setValue(item, value_.text());
    if (value_.changedApostrophe())
        findings_.warn(item.offset, "a text cannot contain an apostrophe; it was replaced by `");
    if (value_.changedControl())
        findings_.warn(item.offset, "a text is one line without control codes; they were replaced by blanks");
    if (value_.resolvedEscapes())
        findings_.note(item.offset, "the declared count shows that backslashes are escapes");
}

} // namespace zb::sml
