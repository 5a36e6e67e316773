#include "unit/messages/strict_sml.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <map>
#include <stdexcept>

namespace zb::test {

namespace {

struct Range {
    double least;
    double most;
};

const std::map<std::string, Range>& ranges() {
    static const std::map<std::string, Range> kKnown{
        {"I1", {-128, 127}},        {"I2", {-32768, 32767}}, {"I4", {-2147483648.0, 2147483647.0}},
        {"I8", {-9.3e18, 9.3e18}},  {"U1", {0, 255}},        {"U2", {0, 65535}},
        {"U4", {0, 4294967295.0}},  {"U8", {0, 1.9e19}},     {"F4", {-3.5e38, 3.5e38}},
        {"F8", {-1.7e308, 1.7e308}}};
    return kKnown;
}

class StrictReader {
public:
    explicit StrictReader(std::string_view text) : text_(text) {}

    std::vector<StrictMessage> read() {
        std::vector<StrictMessage> messages;
        for (skip(); at_ < text_.size(); skip())
            messages.push_back(readMessage());
        return messages;
    }

private:
    StrictMessage readMessage() {
        StrictMessage message;
        expect('S');
        message.stream = readNumber(127);
        expect('F');
        message.function = readNumber(255);
        skip();
        if (peek() == 'W') {
            if (message.function % 2 == 0)
                fail("a primary message");
            ++at_;
            message.wait = true;
        }
        skip();
        if (peek() == '<')
            message.items.push_back(readItem());
        skip();
        expect('.');
        return message;
    }

    StrictItem readItem() {
        expect('<');
        StrictItem item;
        item.type = readWord();
        skip();
        if (item.type == "L") {
            for (; peek() == '<'; skip())
                item.items.push_back(readItem());
        } else if (item.type == "A" || item.type == "J") {
            item.text = readText();
        } else {
            for (; peek() != '>'; skip())
                item.values.push_back(valueOf(item.type, readWord()));
        }
        skip();
        expect('>');
        return item;
    }

    std::string readText() {
        expect('"');
        const std::size_t end = text_.find_first_of("\"\r\n", at_);
        if (end == std::string_view::npos || text_[end] != '"')
            fail("a quote on the same line");
        std::string text(text_.substr(at_, end - at_));
        at_ = end + 1;
        return text;
    }

    double valueOf(const std::string& type, const std::string& word) {
        if (type == "BOOLEAN") {
            if (word != "T" && word != "F")
                fail("T or F");
            return word == "T" ? 1 : 0;
        }
        if (type == "B") {
            if (word.size() != 4 || !word.starts_with("0x"))
                fail("two hexadecimal digits");
            return numberOf(word.substr(2), 16);
        }
        const auto range = ranges().find(type);
        if (range == ranges().end())
            fail("a type");
        const bool floating = type.front() == 'F';
        if (word.find_first_not_of(floating ? "0123456789-.eE+" : "0123456789-") != std::string::npos)
            fail("a number");
        const std::size_t point = word.find('.');
        if (point != std::string::npos && (point == 0 || point + 1 == word.size()))
            fail("digits on both sides of the point");
        const double value = floating ? floatOf(word) : numberOf(word, 10);
        if (value < range->second.least || value > range->second.most)
            fail("a number in the range of " + type);
        return value;
    }

    double numberOf(const std::string& word, int base) {
        long long value = 0;
        const auto read = std::from_chars(word.data(), word.data() + word.size(), value, base);
        if (read.ec != std::errc() || read.ptr != word.data() + word.size())
            fail("a whole number");
        return static_cast<double>(value);
    }

    double floatOf(const std::string& word) {
        double value = 0;
        const auto read = std::from_chars(word.data(), word.data() + word.size(), value);
        if (read.ec != std::errc() || read.ptr != word.data() + word.size())
            fail("a number");
        return value;
    }

    int readNumber(int most) {
        std::string digits;
        while (peek() >= '0' && peek() <= '9')
            digits += text_[at_++];
        const double value = numberOf(digits, 10);
        if (value > most)
            fail("a smaller number");
        return static_cast<int>(value);
    }

    std::string readWord() {
        const std::size_t end = std::min(text_.find_first_of(" \r\n<>", at_), text_.size());
        if (end == at_)
            fail("a word");
        std::string word(text_.substr(at_, end - at_));
        at_ = end;
        return word;
    }

    void expect(char character) {
        if (peek() != character)
            fail(std::string(1, character));
        ++at_;
    }
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    void skip() { at_ = std::min(text_.find_first_not_of(" \r\n", at_), text_.size()); }
    [[noreturn]] void fail(const std::string& expected) const {
        throw std::runtime_error("expected " + expected + " at \"" + std::string(text_.substr(at_, 40)) +
                                 "\"");
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace

std::vector<StrictMessage> readStrictSml(std::string_view text) {
    return StrictReader(text).read();
}

} // namespace zb::test
