#include "controls/user_steps.h"

#include "controls/control.h"
#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

/// The caption of a control without its access key: "Delete(&D)" and "&Delete" are "Delete".
std::string plainCaption(const Control& control) {
    std::string caption = control.caption();
    if (const std::size_t key = caption.find("(&"); key != std::string::npos)
        caption.resize(key);
    return trim(replaceAll(caption, "&", ""));
}

} // namespace

void UserSteps::add(UndoHistory& history) {
    histories_.push_back(&history);
    history.beforeMove = [this] { closeStep(); };
    history.onJointMoved = [this, &history](const UndoHistory::Step& step, UndoHistory::Way way) {
        std::size_t others = 0;
        for (UndoHistory* other : histories_) {
            if (other != &history)
                others += other->moveTo(step.joint, way);
        }
        // Not for the ones that follow: they are on their way within this one.
        const bool isFirst = std::none_of(histories_.begin(), histories_.end(), [&](const auto* other) {
            return other != &history && other->isMoving();
        });
        if (isFirst && onJointMoved)
            onJointMoved(step, way, others);
    };
    history.onJointForgotten = [this](JointStep joint) {
        for (UndoHistory* other : histories_)
            other->forgetJoint(joint);
    };
}

void UserSteps::name(std::string name, TypingPlace place) {
    if (!name_.empty())
        return;
    // Names of messages may have any length, and the name of a step is shown as a whole.
    constexpr std::size_t kLongest = 120;
    if (name.size() > kLongest) {
        std::size_t end = kLongest;
        while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U)
            --end; // within a character
        name.resize(end);
        name += "...";
    }
    name_ = std::move(name);
    place_ = place;
}

bool UserSteps::isTypingAt(TypingPlace place) const {
    return std::any_of(histories_.begin(), histories_.end(),
                       [&](const UndoHistory* history) { return history->isTypingAt(place); });
}

void UserSteps::closeStep() {
    const bool changed = std::any_of(histories_.begin(), histories_.end(),
                                     [](const UndoHistory* history) { return history->hasChanged(); });
    if (!changed)
        return;
    std::string name = name_;
    if (name.empty() && control_ != nullptr)
        name = plainCaption(*control_);
    if (name.empty())
        name = "Change";
    const JointStep joint = reach_ == Reach::AllDocuments ? ++lastJoint_ : kNotJoint;
    for (UndoHistory* history : histories_)
        history->closeStep(name, place_, joint);
}

void UserSteps::endTyping() {
    for (UndoHistory* history : histories_)
        history->endTyping();
}

bool UserSteps::move(const Window& window, UndoKey way) {
    UndoHistory* history = find(window);
    if (history == nullptr || way == UndoKey::None)
        return false;
    closeStep();
    try {
        if (way == UndoKey::Undo)
            history->undo();
        else
            history->redo();
    } catch (...) {
        giveUp();
        throw;
    }
    return true;
}

// Without memory for a step there is nothing to go back to. Destructors must not fail.
void UserSteps::close() noexcept {
    try {
        closeStep();
    } catch (...) {
        giveUp();
    }
}

void UserSteps::giveUp() noexcept {
    for (UndoHistory* history : histories_)
        history->giveUp();
}

UserSteps::Action::Action(UserSteps& steps, const Control* control) : steps_(steps) {
    if (steps_.depth_++ > 0)
        return;
    // What changed between two actions is a step of its own.
    steps_.close();
    steps_.control_ = control;
}

UserSteps::Action::~Action() {
    if (--steps_.depth_ > 0)
        return;
    steps_.close();
    steps_.control_ = nullptr;
    steps_.name_.clear();
    steps_.place_ = {};
}

UserSteps::Part::Part(UserSteps& steps, std::string name, TypingPlace place, Reach reach)
    : steps_(steps), placeBefore_(steps.place_), reachBefore_(steps.reach_) {
    steps_.close();
    nameBefore_ = std::exchange(steps_.name_, std::move(name));
    steps_.place_ = place;
    steps_.reach_ = reach;
}

UserSteps::Part::~Part() {
    steps_.close();
    steps_.name_ = std::move(nameBefore_);
    steps_.place_ = placeBefore_;
    steps_.reach_ = reachBefore_;
}

} // namespace zb
