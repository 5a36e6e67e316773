#include "unit/libraries/smd_text.h"

#include <regex>
#include <stdexcept>

namespace zb::test {

namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    std::vector<Message> readAll() {
        std::vector<Message> messages;
        advance();
        while (!ended_)
            messages.push_back(readMessage());
        return messages;
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        throw std::runtime_error("line " + std::to_string(number_) + ": " + what + ": " + line_);
    }

    void advance() {
        text_ += line_ + "\r\n";
        ++number_;
        ended_ = rest_.empty();
        if (ended_)
            return;
        const auto end = rest_.find("\r\n");
        line_ = std::string(rest_.substr(0, end));
        if (end == std::string_view::npos || line_.find_first_of("\r\n") != std::string::npos)
            fail("the line does not end in CR LF");
        rest_.remove_prefix(end + 2);
    }

    void take(const std::string& expected) {
        if (ended_ || line_ != expected)
            fail("expected '" + expected + "'");
        advance();
    }

    Message readMessage() {
        Message message;
        text_.clear();
        take(std::string(70, '*'));
        if (!line_.starts_with("* "))
            fail("expected a title");
        message.title = line_.substr(2);
        advance();
        take(std::string(70, '*'));
        if (readHead(message))
            return finish(message);
        do
            message.items.push_back(readItem(0));
        while (!pointSeen_);
        return finish(message);
    }

    Message finish(Message& message) {
        message.text = text_;
        return std::move(message);
    }

    // True when a point after the head ends the message.
    bool readHead(Message& message) {
        static const std::regex kForm(
            R"(([^: ]+): S(\d+) F(\d+)( W)?( <R>)?( <NL>)? (H->E|H<-E|H<->E)(\.)?)");
        std::smatch part;
        if (ended_ || !std::regex_match(line_, part, kForm))
            fail("expected a head");
        message.name = part[1];
        message.stream = std::stoi(part[2]);
        message.function = std::stoi(part[3]);
        message.wait = part[4].matched;
        message.autoReply = part[5].matched;
        message.direction = part[7];
        const bool ends = part[8].matched;
        advance();
        return ends;
    }

    Item readItem(int depth) {
        const std::string indentation(static_cast<std::size_t>(depth + 1) * 4, ' ');
        if (ended_ || !line_.starts_with(indentation + "<"))
            fail("expected an item at depth " + std::to_string(depth));
        auto inner = line_.substr(indentation.size() + 1);
        pointSeen_ = depth == 0 && inner.ends_with(">.");
        const bool closed = pointSeen_ || inner.ends_with(">");
        if (closed)
            inner.resize(inner.size() - (pointSeen_ ? 2 : 1));
        auto item = parseItem(inner);
        advance();
        if (!closed)
            readChildren(item, depth, indentation);
        return item;
    }

    void readChildren(Item& list, int depth, const std::string& indentation) {
        if (list.type != "L")
            fail("only a list may stay open");
        while (!ended_ && line_.starts_with(indentation + "    "))
            list.children.push_back(readItem(depth + 1));
        if (list.children.empty())
            fail("an open list needs an item");
        pointSeen_ = depth == 0 && line_ == indentation + ">.";
        take(indentation + (pointSeen_ ? ">." : ">"));
    }

    Item parseItem(const std::string& inner) const {
        static const std::regex kForm(
            R"(([A-Z][A-Z0-9]*) (\d+)(V)?(?: ([A-Za-z_][A-Za-z0-9_]*))?(?: (.*))?)");
        std::smatch part;
        if (!std::regex_match(inner, part, kForm))
            fail("expected an item");
        Item item;
        item.type = part[1];
        item.count = std::stoi(part[2]);
        item.variable = part[3].matched;
        item.name = part[4];
        parseValues(item, part[5]);
        return item;
    }

    static void parseValues(Item& item, std::string text) {
        item.quoted = text.size() >= 2 && text.front() == '\'' && text.back() == '\'';
        if (item.quoted) {
            item.values.push_back(text.substr(1, text.size() - 2));
            return;
        }
        while (!text.empty()) {
            const auto blank = text.find(' ');
            item.values.push_back(text.substr(0, blank));
            text.erase(0, blank == std::string::npos ? blank : blank + 1);
        }
    }

    std::string_view rest_;
    std::string line_;
    std::string text_;
    int number_ = 0;
    bool ended_ = false;
    bool pointSeen_ = false;
};

std::string layoutOf(const Item& item) {
    if (item.type != "L")
        return item.name;
    std::string members;
    for (const auto& child : item.children)
        members += (members.empty() ? "" : ", ") + layoutOf(child);
    return (item.variable ? "L*[" : "L[") + members + "]";
}

} // namespace

std::vector<Message> readSmdText(std::string_view text) {
    return Reader(text).readAll();
}

std::string layoutOf(const Message& message) {
    std::string layout;
    for (const auto& item : message.items)
        layout += (layout.empty() ? "" : " ") + layoutOf(item);
    return layout.empty() ? "-" : layout;
}

} // namespace zb::test
