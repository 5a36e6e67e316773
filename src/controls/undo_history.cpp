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

void appendPart(std::unique_ptr<StepPart>& to, std::unique_ptr<StepPart> from) {
    if (from == nullptr)
        return;
    if (to == nullptr)
        to = std::move(from);
    else
        to->append(std::move(from));
}

/// The place of the joint step among the steps; their number when it is not there.
std::size_t placeOf(JointStep joint, const std::deque<UndoHistory::Step>& steps) {
    const auto found =
        std::find_if(steps.begin(), steps.end(), [&](const auto& step) { return step.joint == joint; });
    return static_cast<std::size_t>(found - steps.begin());
}

} // namespace

UndoHistory::Step UndoHistory::takeStep(const std::string& name, TypingPlace place, JointStep joint) {
    Step step{name, place, {}, joint};
    step.parts.reserve(sources_.size());
    bool any = false;
    for (StepSource* source : sources_) {
        step.parts.push_back(source->take());
        any = any || step.parts.back() != nullptr;
    }
    if (!any && joint == kNotJoint)
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

void UndoHistory::closeStep(const std::string& name, TypingPlace place, JointStep joint) {
    if (moving_ || (joint == kNotJoint && !hasChanged()))
        return;
    if (joint == kNotJoint && isTypingAt(place)) {
        // Each key comes here: the step that goes on takes the changes without another one.
        Step& last = undone_.back();
        bool changed = false;
        bytes_ -= bytesOf(last);
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            std::unique_ptr<StepPart> part = sources_[i]->take();
            changed = changed || (part != nullptr && part->changesDocument());
            appendPart(last.parts[i], std::move(part));
        }
        bytes_ += bytesOf(last);
        if (changed) {
            dropRedone(redone_.size());
            tell();
        }
        dropOldest();
        return;
    }
    Step step = takeStep(name, place, joint);
    if (step.parts.empty())
        return;
    if (joint != kNotJoint || changesDocument(step)) {
        push(std::move(step));
        tell();
    } else if (!undone_.empty()) {
        append(undone_.back(), std::move(step));
    }
    dropOldest();
}

void UndoHistory::push(Step step) {
    dropRedone(redone_.size());
    bytes_ += bytesOf(step);
    undone_.push_back(std::move(step));
}

void UndoHistory::append(Step& to, Step from) {
    bytes_ -= bytesOf(to);
    for (std::size_t i = 0; i < from.parts.size(); ++i)
        appendPart(to.parts[i], std::move(from.parts[i]));
    bytes_ += bytesOf(to);
}

void UndoHistory::endTyping() {
    if (!undone_.empty())
        undone_.back().place = {};
}

// Those that are redone last go first; the saved state may be gone with them.
void UndoHistory::dropRedone(std::size_t count) {
    std::vector<JointStep> joints;
    for (; count > 0; --count) {
        bytes_ -= bytesOf(redone_.front());
        joints.push_back(redone_.front().joint);
        redone_.pop_front();
    }
    if (saved_ && *saved_ > undone_.size() + redone_.size())
        saved_.reset();
    forgotten(joints);
}

void UndoHistory::dropOldest() {
    std::size_t count = 0;
    std::size_t bytes = bytes_;
    // The last step stays, however large it is.
    while (undone_.size() - count > 1 && (undone_.size() - count > mostSteps_ || bytes > mostBytes_))
        bytes -= bytesOf(undone_[count++]);
    dropUndone(count);
}

void UndoHistory::dropUndone(std::size_t count) {
    std::vector<JointStep> joints;
    for (; count > 0; --count) {
        bytes_ -= bytesOf(undone_.front());
        joints.push_back(undone_.front().joint);
        undone_.pop_front();
        if (saved_ && *saved_ == 0)
            saved_.reset();
        else if (saved_)
            --*saved_;
    }
    forgotten(joints);
}

void UndoHistory::forgotten(const std::vector<JointStep>& joints) const {
    for (const JointStep joint : joints) {
        if (joint != kNotJoint && onJointForgotten)
            onJointForgotten(joint);
    }
}

void UndoHistory::forgetJoint(JointStep joint) {
    if (const std::size_t place = placeOf(joint, undone_); place < undone_.size())
        dropUndone(place + 1);
    else if (const std::size_t later = placeOf(joint, redone_); later < redone_.size())
        dropRedone(later + 1);
    else
        return;
    tell();
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
    if (beforeMove)
        beforeMove();
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
            if (to.back().joint != kNotJoint && onJointMoved)
                onJointMoved(to.back(), way);
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

std::size_t UndoHistory::moveTo(JointStep joint, Way way) {
    const auto& from = way == Way::Undone ? undone_ : redone_;
    if (moving_ || placeOf(joint, from) == from.size())
        return 0;
    std::size_t others = 0;
    for (; from.back().joint != joint; ++others)
        move(way);
    move(way);
    return others;
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
