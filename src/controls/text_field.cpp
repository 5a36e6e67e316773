#include "controls/text_field.h"

#include <algorithm>

namespace zb {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::size_t characterStart(std::string_view text, std::size_t position) {
    position = std::min(position, text.size());
    while (position > 0 && position < text.size() && isContinuation(text[position]))
        --position;
    return position;
}

} // namespace

void TextField::setText(std::string_view text) {
    if (text_ == text) {
        caretToEnd();
        return;
    }
    text_ = text;
    caret_ = anchor_ = text_.size();
    changed();
}

void TextField::setLocked(bool locked) {
    if (locked_ == locked)
        return;
    locked_ = locked;
    ring(Change::State);
}

std::string TextField::selectedText() const {
    const auto [from, to] = std::minmax(anchor_, caret_);
    return text_.substr(from, to - from);
}

void TextField::select(std::size_t anchor, std::size_t caret) {
    anchor_ = characterStart(text_, anchor);
    caret_ = characterStart(text_, caret);
    ring(Change::Selection);
}

void TextField::enterKey(KeyEvent key) {
    if (key.code >= kKeyEnd && key.code <= kKeyRight && key.code != kKeyUp) {
        moveCaret(key);
        return;
    }
    if (locked_ || readOnly_)
        return;
    if (key.code == kKeyBackspace || key.code == kKeyDelete) {
        if (anchor_ == caret_) {
            if (key.code == kKeyBackspace)
                anchor_ = before(caret_);
            else
                caret_ = behind(caret_);
        }
        replaceSelection({});
    } else if (const auto character = characterOfKey(key)) {
        replaceSelection(std::string_view(&*character, 1));
    }
}

void TextField::insert(std::string_view characters) {
    if (!locked_ && !readOnly_)
        replaceSelection(characters);
}

void TextField::paste(std::string_view text) {
    if (locked_ || readOnly_)
        return;
    if (lines_ == Lines::One)
        text = text.substr(0, text.find_first_of("\r\n"));
    setText(text);
}

void TextField::replaceSelection(std::string_view text) {
    const auto [from, to] = std::minmax(anchor_, caret_);
    if (from == to && text.empty())
        return;
    const bool same = std::string_view(text_).substr(from, to - from) == text;
    const std::size_t start = from;
    text_.replace(start, to - start, text);
    caret_ = anchor_ = start + text.size();
    if (!same)
        changed();
    else
        ring(Change::Selection);
}

void TextField::moveCaret(KeyEvent key) {
    std::size_t target = caret_;
    switch (key.code) {
    case kKeyLeft:
        target = before(caret_);
        break;
    case kKeyRight:
        target = behind(caret_);
        break;
    case kKeyHome:
        target = 0;
        break;
    case kKeyEnd:
        target = text_.size();
        break;
    default:
        break;
    }
    const bool extend = (key.shift & kShiftKey) != 0;
    select(extend ? anchor_ : target, target);
}

std::size_t TextField::before(std::size_t position) const {
    return position == 0 ? 0 : characterStart(text_, position - 1);
}

std::size_t TextField::behind(std::size_t position) const {
    if (position >= text_.size())
        return text_.size();
    ++position;
    while (position < text_.size() && isContinuation(text_[position]))
        ++position;
    return position;
}

void TextField::changed() {
    ring(Change::Value);
    fire(onChange);
}

} // namespace zb
