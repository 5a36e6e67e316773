#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

/// What a field of text holds, with its selection.
struct TextState {
    std::string text;
    std::size_t anchor = 0;
    std::size_t caret = 0;
};

/// What a field of text held before each change of the user, so that changes can be taken back one by one.
class TextHistory {
public:
    /// Characters that are typed one after the other are one change.
    enum class Step { Whole, Character };

    /// The user is about to change `before`.
    void remember(const TextState& before, Step step);
    /// The previous or the next state; nothing when there is none. `now` is the content of the field.
    std::optional<TextState> undo(const TextState& now);
    std::optional<TextState> redo(const TextState& now);
    bool canUndo() const { return !undone_.empty(); }
    bool canRedo() const { return !redone_.empty(); }
    void clear();

private:
    using States = std::vector<TextState>;
    static std::optional<TextState> swap(States& from, States& to, const TextState& now);

    States undone_; // states to go back to, the latest last
    States redone_;
    std::size_t typedTo_ = std::string::npos; // the caret before the next character of the same change
};

} // namespace zb
