#include "controls/text_field.h"

#include <algorithm>

namespace zb {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Marks a change as the user's, with all that its handling sets.
class ByUser {
public:
    explicit ByUser(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~ByUser() { flag_ = before_; }
    ByUser(const ByUser&) = delete;
    ByUser& operator=(const ByUser&) = delete;

private:
    bool& flag_;
    bool before_;
};

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
    if (!changedByUser_)
        history_.clear();
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
    if (const UndoKey wish = undoKeyOf(key); wish != UndoKey::None) {
        wish == UndoKey::Undo ? undo() : redo();
        return;
    }
    if (key.code == kKeyBackspace || key.code == kKeyDelete) {
        if (anchor_ == caret_) {
            if (key.code == kKeyBackspace)
                anchor_ = positionBefore(caret_);
            else
                caret_ = positionAfter(caret_);
        }
        replaceSelection({}, TextHistory::Step::Whole);
    } else if (key.code == kKeyEnter && lines_ == Lines::Many) {
        replaceSelection("\n", TextHistory::Step::Whole);
    } else if (const auto character = characterOfKey(key)) {
        replaceSelection(std::string_view(&*character, 1), TextHistory::Step::Character);
    }
}

void TextField::insert(std::string_view characters) {
    if (!locked_ && !readOnly_)
        replaceSelection(fitting(characters), TextHistory::Step::Whole);
}

void TextField::paste(std::string_view text) {
    if (locked_ || readOnly_)
        return;
    text = fitting(text);
    // A field that is written through has the history of its document.
    if (text != text_ && !writesThrough_)
        history_.remember(state(), TextHistory::Step::Whole);
    const ByUser byUser(changedByUser_);
    setText(text);
}

void TextField::undo() {
    if (!locked_ && !readOnly_)
        restore(history_.undo(state()));
}

void TextField::redo() {
    if (!locked_ && !readOnly_)
        restore(history_.redo(state()));
}

void TextField::restore(const std::optional<TextState>& state) {
    if (!state)
        return;
    const ByUser byUser(changedByUser_);
    text_ = state->text;
    anchor_ = state->anchor;
    caret_ = state->caret;
    changed();
}

std::string_view TextField::fitting(std::string_view text) const {
    return lines_ == Lines::One ? text.substr(0, text.find_first_of("\r\n")) : text;
}

void TextField::replaceSelection(std::string_view text, TextHistory::Step step) {
    const auto [from, to] = std::minmax(anchor_, caret_);
    if (from == to && text.empty())
        return;
    const bool same = std::string_view(text_).substr(from, to - from) == text;
    if (!same && !writesThrough_)
        history_.remember(state(), step);
    const ByUser byUser(changedByUser_);
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
        target = positionBefore(caret_);
        break;
    case kKeyRight:
        target = positionAfter(caret_);
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

std::size_t TextField::positionBefore(std::size_t position) const {
    return position == 0 ? 0 : characterStart(text_, position - 1);
}

std::size_t TextField::positionAfter(std::size_t position) const {
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
