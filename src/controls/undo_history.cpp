#include "controls/undo_history.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

std::size_t bytesOf(const UndoHistory::Step& step) {
    std::size_t sum = sizeof step + step.name.capacity();
    for (const auto& part : step.parts)
        sum += sizeof part + (part ? part->bytes() : 0);
    return sum;
}

} // namespace

UndoHistory::Step UndoHistory::takeStep(const std::string& name, TypingPlace place) {
    Step step{name, place, {}};
    bool any = false;
    for (StepSource* source : sources_) {
        step.parts.push_back(source->take());
        any = any || step.parts.back() != nullptr;
    }
    if (!any)
        step.parts.clear();
    return step;
}

bool UndoHistory::changesDocument(const Step& step) {
    return std::any_of(step.parts.begin(), step.parts.end(),
                       [](const auto& part) { return part != nullptr && part->changesDocument(); });
}

bool UndoHistory::hasChanged() const {
    return std::any_of(sources_.begin(), sources_.end(),
                       [](const StepSource* source) { return source->hasChanged(); });
}

bool UndoHistory::isTypingAt(TypingPlace place) const {
    return place && !undone_.empty() && undone_.back().place == place && !isSaved();
}

void UndoHistory::closeStep(const std::string& name, TypingPlace place) {
    if (moving_ || !hasChanged())
        return;
    Step step = takeStep(name, place);
    if (step.parts.empty())
        return;
    if (changesDocument(step)) {
        push(std::move(step));
        tell();
    } else if (!undone_.empty()) {
        append(undone_.back(), std::move(step));
    }
    dropOldest();
}

void UndoHistory::push(Step step) {
    dropRedone();
    if (isTypingAt(step.place)) {
        append(undone_.back(), std::move(step));
    } else {
        bytes_ += bytesOf(step);
        undone_.push_back(std::move(step));
    }
}

void UndoHistory::append(Step& to, Step from) {
    bytes_ -= bytesOf(to);
    for (std::size_t i = 0; i < from.parts.size(); ++i) {
        if (from.parts[i] == nullptr)
            continue;
        if (to.parts[i] == nullptr)
            to.parts[i] = std::move(from.parts[i]);
        else
            to.parts[i]->append(std::move(from.parts[i]));
    }
    bytes_ += bytesOf(to);
}

void UndoHistory::endTyping() {
    if (!undone_.empty())
        undone_.back().place = {};
}

// The saved state is gone with the steps that led to it.
void UndoHistory::dropRedone() {
    if (saved_ && *saved_ > undone_.size())
        saved_.reset();
    for (const Step& step : redone_)
        bytes_ -= bytesOf(step);
    redone_.clear();
}

void UndoHistory::dropOldest() {
    // The last step stays, however large it is.
    while (undone_.size() > 1 && (undone_.size() > mostSteps_ || bytes_ > mostBytes_)) {
        bytes_ -= bytesOf(undone_.front());
        undone_.pop_front();
        if (saved_ && *saved_ == 0)
            saved_.reset();
        else if (saved_)
            --*saved_;
    }
}

/// What an undo or redo does is not recorded again.
class UndoHistory::Recording {
public:
    explicit Recording(UndoHistory& history) : history_(history) {
        history_.moving_ = true;
        history_.setRecording(false);
    }
    ~Recording() {
        history_.setRecording(true);
        history_.moving_ = false;
    }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

private:
    UndoHistory& history_;
};

void UndoHistory::move(Way way) {
    // A change that has not become a step yet is the first to be undone.
    closeStep("Change");
    auto& from = way == Way::Undone ? undone_ : redone_;
    auto& to = way == Way::Undone ? redone_ : undone_;
    if (moving_ || from.empty())
        return;
    {
        const Recording off(*this);
        try {
            to.push_back(std::move(from.back()));
            from.pop_back();
            to.back().place = {};
            apply(to.back(), way);
        } catch (...) {
            giveUp(); // half a step cannot be followed by others
            throw;
        }
        endTyping();
        if (onMoved)
            onMoved(to.back(), way);
    }
    tell();
}

void UndoHistory::apply(const Step& step, Way way) {
    for (const auto& part : step.parts) {
        if (part == nullptr)
            continue;
        if (way == Way::Undone)
            part->undo();
        else
            part->redo();
    }
}

void UndoHistory::setRecording(bool on) {
    for (StepSource* source : sources_)
        source->setRecording(on);
}

void UndoHistory::clear() {
    forget();
    setRecording(true);
    tell();
}

void UndoHistory::stop() {
    forget();
    setRecording(false);
    tell();
}

void UndoHistory::giveUp() noexcept {
    forget();
    saved_.reset();
}

void UndoHistory::forget() noexcept {
    for (StepSource* source : sources_)
        source->drop();
    undone_.clear();
    redone_.clear();
    bytes_ = 0;
    saved_ = 0;
}

void UndoHistory::markSaved() {
    saved_ = undone_.size();
    tell();
}

void UndoHistory::markUnsaved() {
    saved_.reset();
    tell();
}

void UndoHistory::tell() const {
    for (const auto& listener : listeners_)
        listener();
}

} // namespace zb
