#include "messages/secs2/sml_data.h"
#include "messages/sml/characters.h"
#include "messages/sml/finding_collector.h"
#include "messages/sml/item_type.h"
#include "messages/sml/scanner.h"
#include "messages/sml/value.h"

#include <algorithm>
#include <charconv>

namespace zb::secs2 {

namespace {

using sml::isSpace;

/// What was declared between brackets, or after a comma.
struct Declared {
    std::optional<std::size_t> count;
};

class DataReader {
public:
    DataReader(std::string_view text, Items& items)
        : findings_(text), scanner_(text, findings_), text_(text), items_(items) {}

    std::optional<DecodeFault> read() {
        for (skip(); !fault_ && !scanner_.atEnd(); skip())
            step();
        if (!fault_ && items_.hasOpenList())
            fail("the message ends within a list");
        if (fault_)
            items_.clear();
        return fault_;
    }

private:
    void skip() { scanner_.skip(); }

    void fail(std::string text) {
        if (!fault_)
            fault_ = DecodeFault{scanner_.offset(), std::move(text)};
    }
    void failAtFound(std::string_view expected) {
        fail("expected " + std::string(expected) + ", found " + sml::foundAt(text_, scanner_.offset()));
    }

    /// Between items.
    void step() {
        const char c = scanner_.peek();
        if (c == '<') {
            if (!items_.hasOpenList() && !items_.empty())
                return fail("the message has more than one item outside of a list");
            scanner_.advance();
            return openItem();
        }
        if (c == '>' && items_.hasOpenList()) {
            items_.closeList();
            --depth_;
            return scanner_.advance();
        }
        if (c == '=')
            return passName();
        if (c == '.' && !items_.hasOpenList() && !scanner_.atEllipsis())
            return scanner_.moveTo(text_.size());
        failAtFound(items_.hasOpenList() ? "an item or \">\"" : "an item or \".\"");
    }

    /// "= Name" after an item.
    void passName() {
        scanner_.advance();
        skip();
        if (scanner_.word().empty())
            failAtFound("a name");
    }

    void openItem() {
        skip();
        const std::size_t offset = scanner_.offset();
        const std::string_view word = scanner_.word();
        const std::optional<sml::ItemType> type = sml::itemTypeOf(word);
        if (!type) {
            scanner_.moveTo(offset);
            return failAtFound("a format, as L or A");
        }
        const Declared declared = readDeclared();
        if (fault_)
            return;
        if (*type == sml::ItemType::List)
            openList();
        else if (sml::isQuotedType(*type))
            readText(textFormat(*type, word), declared);
        else
            readValues(*type);
    }

    static Format textFormat(sml::ItemType type, std::string_view word) {
        if (type == sml::ItemType::Jis8)
            return Format::Jis8;
        return sml::isWord(word, "W") ? Format::Char2 : Format::Ascii;
    }

    void openList() {
        if (depth_ == kDeepestList)
            return fail("more than " + std::to_string(kDeepestList) + " lists within each other");
        ++depth_;
        items_.openList();
    }

    /// "[6]", ",6", "[0..40]", "[NAME]", several of them.
    Declared readDeclared() {
        Declared declared;
        while (!fault_) {
            const std::size_t start = pastBlanks(scanner_.offset());
            const char c = start < text_.size() ? text_[start] : '\0';
            if (c != '[' && c != ',')
                break;
            const std::size_t end = c == '[' ? text_.find_first_of("]\n", start) : endOfDigits(start + 1);
            if (end == std::string_view::npos || (c == '[' && text_[end] != ']')) {
                scanner_.moveTo(start);
                fail("expected \"]\" after \"[\"");
                break;
            }
            const std::string_view words = sml::stripped(text_.substr(start + 1, end - start - 1));
            std::size_t count = 0;
            const auto [last, error] = std::from_chars(words.data(), words.data() + words.size(), count);
            if (error == std::errc() && last == words.data() + words.size())
                declared.count = count;
            scanner_.moveTo(c == '[' ? end + 1 : end);
        }
        return declared;
    }

    std::size_t pastBlanks(std::size_t at) const {
        while (at < text_.size() && isSpace(text_[at]))
            ++at;
        return at;
    }
    std::size_t endOfDigits(std::size_t at) const {
        while (at < text_.size() && (sml::isDigit(text_[at]) || text_[at] == ' '))
            ++at;
        return at;
    }

    void readText(Format format, const Declared& declared) {
        const std::size_t start = scanner_.offset();
        std::string value;
        const bool isRead = readPieces(format, value);
        if (isRead && (!declared.count || *declared.count == value.size())) {
            items_.addText(format, value);
            return;
        }
        // The pieces may be part of a text that looks like them.
        const std::size_t end = scanner_.offset();
        if (readWholeText(format, start, declared))
            return;
        scanner_.moveTo(end);
        if (isRead)
            items_.addText(format, value);
        else
            readBareText(format, start);
    }

    /// Strings and character codes up to the bracket; false at anything else.
    bool readPieces(Format format, std::string& value) {
        for (skip(); !scanner_.atEnd(); skip()) {
            const char c = scanner_.peek();
            if (c == '>') {
                scanner_.advance();
                return true;
            }
            if (sml::isQuote(c) ? !readString(c, format, value) : !appendCode(value))
                return false;
        }
        return false;
    }

    /// A text of the declared count: without quotes, or in quotes that it contains itself.
    bool readWholeText(Format format, std::size_t offset, const Declared& declared) {
        if (!declared.count || *declared.count == 0)
            return false;
        const std::size_t first = pastBlanks(offset);
        const char quote = first < text_.size() && sml::isQuote(text_[first]) ? text_[first] : '\0';
        const std::size_t bare = offset + (offset < text_.size() && text_[offset] == ' ' ? 1 : 0);
        return (quote != '\0' && takeWholeText(format, first + 1, *declared.count, quote)) ||
               takeWholeText(format, bare, *declared.count, '\0');
    }

    bool takeWholeText(Format format, std::size_t start, std::size_t count, char quote) {
        if (start > text_.size() || count >= text_.size() - start)
            return false;
        std::size_t closer = start + count;
        if (quote != '\0' && text_[closer++] != quote)
            return false;
        closer = pastBlanks(closer);
        if (closer >= text_.size() || text_[closer] != '>')
            return false;
        items_.addText(format, text_.substr(start, count));
        scanner_.moveTo(closer + 1);
        return true;
    }

    /// A text without quotes and count ends at the bracket.
    void readBareText(Format format, std::size_t offset) {
        const std::size_t start = pastBlanks(offset);
        const std::size_t end = text_.find_first_of(">\n", start);
        if (end == std::string_view::npos || text_[end] != '>' || sml::isQuote(text_[start])) {
            scanner_.moveTo(std::min(start, text_.size()));
            return failAtFound("a text and \">\"");
        }
        items_.addText(format, sml::stripped(text_.substr(start, end - start)));
        scanner_.moveTo(end + 1);
    }

    /// False when the string is not closed.
    bool readString(char quote, Format format, std::string& value) {
        const std::size_t start = scanner_.offset() + 1;
        std::size_t end = text_.find(quote, start);
        // A quote directly before a letter does not end a text: 'Joe's lot'.
        while (end != std::string_view::npos && end + 1 < text_.size() && sml::isWordStart(text_[end + 1]))
            end = text_.find(quote, end + 1);
        if (end == std::string_view::npos)
            return false;
        if (format == Format::Char2 && value.empty())
            value.append({'\0', '\2'}); // the encoding UTF-8
        value += text_.substr(start, end - start);
        scanner_.moveTo(end + 1);
        return true;
    }

    /// A character code among texts; false when there is none.
    bool appendCode(std::string& value) {
        const std::size_t offset = scanner_.offset();
        const std::optional<sml::Integer> code = sml::parseInteger(scanner_.valueWord());
        if (code && !code->negative && code->magnitude <= 0xFF) {
            value += static_cast<char>(code->magnitude);
            return true;
        }
        scanner_.moveTo(offset);
        return false;
    }

    void readValues(sml::ItemType type) {
        items_.addValues(*formatOfWord(sml::typeWord(type)));
        for (skip(); !fault_; skip()) {
            if (scanner_.atEnd())
                return fail("the message ends within an item");
            const char c = scanner_.peek();
            if (c == '>')
                return scanner_.advance();
            if (c == ',' || sml::isQuote(c)) {
                scanner_.advance(); // between values, or around them
                continue;
            }
            readValue(type);
        }
    }

    void readValue(sml::ItemType type) {
        const std::size_t offset = scanner_.offset();
        const std::string_view word = scanner_.valueWord();
        words_.clear();
        const sml::ValueFault fault = word.empty() ? sml::ValueFault::NotOfType : readWord(type, word);
        if (fault == sml::ValueFault::NotOfType || fault == sml::ValueFault::OutOfRange) {
            scanner_.moveTo(offset);
            failAtFound(std::string(sml::expectedValue(type)) + " or \">\"");
        }
    }

    /// Adds the value of a word. The normal form of the word has few shapes.
    sml::ValueFault readWord(sml::ItemType type, std::string_view word) {
        const sml::ValueFault fault = appendValue(words_, type, word);
        if (fault == sml::ValueFault::NotOfType || fault == sml::ValueFault::OutOfRange)
            return fault;
        if (type == sml::ItemType::Boolean) {
            items_.appendInteger(words_ == "True" ? 1 : 0);
        } else if (type == sml::ItemType::F4 || type == sml::ItemType::F8) {
            double number = 0;
            const char* const begin = words_.data() + (words_.starts_with('+') ? 1 : 0);
            std::from_chars(begin, words_.data() + words_.size(), number);
            items_.appendFloat(number);
        } else {
            const std::optional<sml::Integer> integer = sml::parseInteger(words_);
            items_.appendInteger(integer->negative ? 0 - integer->magnitude : integer->magnitude);
        }
        return fault;
    }

    sml::FindingCollector findings_;
    sml::Scanner scanner_;
    std::string_view text_;
    Items& items_;
    std::string words_;
    std::size_t depth_ = 0;
    std::optional<DecodeFault> fault_;
};

} // namespace

std::optional<DecodeFault> readSmlData(std::string_view text, Items& items) {
    items.clear();
    return DataReader(text, items).read();
}

} // namespace zb::secs2
