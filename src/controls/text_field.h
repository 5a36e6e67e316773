#pragma once

#include "controls/control.h"
#include "controls/text_history.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// A text field. Positions are byte offsets into the UTF-8 text, always at the start of a character.
class TextField : public Control {
public:
    enum class Lines { One, Many };

    TextField(Window& window, std::string name, Control* pane = nullptr, Lines lines = Lines::One)
        : Control(Kind::TextField, window, std::move(name), pane), lines_(lines) {}

    const std::string& text() const { return text_; }
    /// Runs the change handler at once when the text differs; the caret moves to the end.
    void setText(std::string_view text);

    /// A locked field accepts no character; key filters lock and unlock it at each key down.
    bool locked() const { return locked_; }
    void setLocked(bool locked);
    /// A read-only field is never changed by the user.
    bool readOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly) {
        readOnly_ = readOnly;
        ring(Change::State);
    }
    Lines lines() const { return lines_; }
    /// Each change of the text changes the document at once, so that it is the document's history that takes
    /// it back.
    void setWritesThrough() { writesThrough_ = true; }
    bool writesThrough() const { return writesThrough_; }
    /// The field's own handling acts on Enter, so that the window's default button does not.
    void setAnswersEnter() { answersEnter_ = true; }
    bool answersEnter() const { return answersEnter_; }

    std::size_t caret() const { return caret_; }
    std::size_t anchor() const { return anchor_; }
    std::string selectedText() const;
    /// Moves the caret to `caret` and selects from `anchor` to it; both are moved to character starts.
    void select(std::size_t anchor, std::size_t caret);
    void selectAll() { select(0, text_.size()); }
    void caretToEnd() { select(text_.size(), text_.size()); }

    /// The actions of the user. Each respects locked and read-only; none checks enabled or visible.
    /// @{
    /// A key's effect on the text or caret, after its key down has been handled.
    void enterKey(KeyEvent key);
    /// A text as a whole, as from an input method or the clipboard; it replaces the selection. A field of one
    /// line takes what is before the first line break.
    void insert(std::string_view characters);
    /// The whole text is replaced by `text`: one change, none when it stays the same. A field of one line
    /// takes what is before the first line break.
    void paste(std::string_view text);
    /// Takes the user's last change back, or makes it again. Texts that the program has set since leave
    /// nothing to take back.
    void undo();
    void redo();
    /// @}

    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }

    std::function<void()> onChange;

private:
    void focusArrives() override { caretToEnd(); }
    void replaceSelection(std::string_view text, TextHistory::Step step);
    void restore(const std::optional<TextState>& state);
    TextState state() const { return {text_, anchor_, caret_}; }
    std::string_view fitting(std::string_view text) const;
    void moveCaret(KeyEvent key);
    std::size_t positionBefore(std::size_t position) const;
    std::size_t positionAfter(std::size_t position) const;
    void changed();

    Lines lines_;
    std::string text_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0;
    TextHistory history_;
    bool changedByUser_ = false;
    bool locked_ = false;
    bool readOnly_ = false;
    bool answersEnter_ = false;
    bool writesThrough_ = false;
};

} // namespace zb
