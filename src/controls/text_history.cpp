#include "controls/text_history.h"

namespace zb {

namespace {

constexpr std::size_t kMostStates = 100;

} // namespace

void TextHistory::remember(const TextState& before, Step step) {
    redone_.clear();
    const bool joins = step == Step::Character && before.anchor == before.caret && before.caret == typedTo_;
    typedTo_ = std::string::npos;
    if (step == Step::Character)
        typedTo_ = (before.anchor < before.caret ? before.anchor : before.caret) + 1;
    if (joins)
        return;
    if (undone_.size() == kMostStates)
        undone_.erase(undone_.begin());
    undone_.push_back(before);
}

std::optional<TextState> TextHistory::undo(const TextState& now) {
    typedTo_ = std::string::npos;
    return swap(undone_, redone_, now);
}

std::optional<TextState> TextHistory::redo(const TextState& now) {
    typedTo_ = std::string::npos;
    return swap(redone_, undone_, now);
}

// A change that the program has refused at once leaves a state equal to the current one, which is skipped.
std::optional<TextState> TextHistory::swap(States& from, States& to, const TextState& now) {
    while (!from.empty() && from.back().text == now.text)
        from.pop_back();
    if (from.empty())
        return std::nullopt;
    const TextState state = from.back();
    from.pop_back();
    to.push_back(now);
    return state;
}

void TextHistory::clear() {
    undone_.clear();
    redone_.clear();
    typedTo_ = std::string::npos;
}

} // namespace zb
