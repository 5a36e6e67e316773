#include "messages/secs2/sml_data.h"

#include <algorithm>
#include <string>

namespace zb::secs2 {

namespace {

/// Deeper lines are not indented further: the indentation would exceed the data by far.
constexpr std::size_t kDeepestIndent = 40;
/// The bytes in front of two-byte characters that name their encoding.
constexpr std::size_t kEncodingSize = 2;

void appendCode(std::string& text, char character) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(character);
    text.append("0x").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
}

/// A character that is written within quotes. A backslash at the end would escape the quote after it.
bool isPlain(std::string_view data, std::size_t at) {
    const char c = data[at];
    if (c == '\\')
        return at + 1 < data.size() && data[at + 1] != '\\' && isPlain(data, at + 1);
    return c >= ' ' && c <= '~' && c != '"';
}

/// The encoding of two-byte characters is written as codes: a text alone would be read as UTF-8.
void appendText(std::string& text, Format format, std::string_view data) {
    if (format == Format::Char2) {
        for (const char byte : data.substr(0, kEncodingSize)) {
            text += ' ';
            appendCode(text, byte);
        }
        data.remove_prefix(std::min(data.size(), kEncodingSize));
    } else if (data.empty()) {
        text += " \"\"";
    }
    for (std::size_t at = 0; at < data.size();) {
        text += ' ';
        if (!isPlain(data, at)) {
            appendCode(text, data[at++]);
            continue;
        }
        text += '"';
        while (at < data.size() && isPlain(data, at))
            text += data[at++];
        text += '"';
    }
}

class Writer {
public:
    Writer(std::string& text, const Items& items, std::size_t indent)
        : text_(text), items_(items), indent_(indent) {}

    void write() {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            closeBefore(i);
            writeItem(i);
        }
        closeBefore(items_.size());
    }

private:
    void writeItem(std::size_t index) {
        const Item& item = items_[index];
        const FormatTraits& traits = traitsOf(item.format);
        startLine();
        text_.append("<")
            .append(traits.word)
            .append(" [")
            .append(std::to_string(Items::count(item)))
            .append("]");
        if (traits.kind == ValueKind::List) {
            open_.push_back(item.end);
            text_ += '\n';
            return;
        }
        if (traits.kind == ValueKind::Text)
            appendText(text_, item.format, items_.data(item));
        else
            appendValues(item, traits.kind);
        text_ += ">\n";
    }

    void appendValues(const Item& item, ValueKind kind) {
        for (std::size_t i = 0; i < Items::count(item); ++i) {
            text_ += ' ';
            if (kind == ValueKind::Binary)
                appendCode(text_, items_.data(item)[i]);
            else
                items_.appendValue(text_, item, i);
        }
    }

    void closeBefore(std::size_t index) {
        while (!open_.empty() && open_.back() <= index) {
            open_.pop_back();
            startLine();
            text_ += ">\n";
        }
    }

    void startLine() { text_.append(2 * std::min(indent_ + open_.size(), kDeepestIndent), ' '); }

    std::string& text_;
    const Items& items_;
    std::size_t indent_;
    std::vector<std::size_t> open_; // the ends of the open lists
};

} // namespace

void appendSmlData(std::string& text, const Items& items, std::size_t indent) {
    Writer(text, items, indent).write();
}

} // namespace zb::secs2
