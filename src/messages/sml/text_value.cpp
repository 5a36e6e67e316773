#include "messages/sml/text_value.h"

#include "platform/text.h"

namespace zb::sml {

namespace {

// Replaces the apostrophe: the same length, and the most similar character.
constexpr char kApostropheStandIn = '`';

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t';
}

std::string withoutEscapes(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        switch (text[++i]) {
        case 'n':
        case 'r':
            result += ' ';
            break;
        case 't':
            result += '\t';
            break;
        case '\\':
            result += '\\';
            break;
        default:
            result += '\\';
            result += text[i];
        }
    }
    return result;
}

} // namespace

void TextValue::begin() {
    text_.clear();
    bytes_.clear();
    apostrophe_ = control_ = backslash_ = resolved_ = false;
}

void TextValue::appendText(std::string_view text) {
    flushBytes();
    std::size_t done = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '\'' && !isControl(c))
            continue;
        text_ += text.substr(done, i - done);
        done = i + 1;
        if (c == '\'') {
            apostrophe_ = true;
            text_ += kApostropheStandIn;
            continue;
        }
        control_ = true;
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue; // the pair is one line end
        text_ += ' ';
    }
    text_ += text.substr(done);
}

void TextValue::appendCode(unsigned char code) {
    if (code >= 0x80)
        bytes_ += static_cast<char>(code);
    else
        appendCharacter(static_cast<char>(code));
}

void TextValue::flushBytes() {
    if (bytes_.empty())
        return;
    text_ += codePage_.toUtf8(bytes_);
    bytes_.clear();
}

std::size_t TextValue::measure(std::string_view text) const {
    return isAscii(text) ? text.size() : codePage_.ansiByteLength(text);
}

void TextValue::end(const std::size_t* declaredCount) {
    flushBytes();
    ansiLength_ = measure(text_);
    if (!backslash_ || declaredCount == nullptr || *declaredCount == ansiLength_)
        return;
    std::string plain = withoutEscapes(text_);
    const std::size_t length = measure(plain);
    if (length != *declaredCount || plain == text_)
        return;
    text_ = std::move(plain);
    ansiLength_ = length;
    resolved_ = true;
}

} // namespace zb::sml
