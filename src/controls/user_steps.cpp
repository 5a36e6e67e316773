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
    for (UndoHistory* history : histories_)
        history->closeStep(name, place_);
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
    if (way == UndoKey::Undo)
        history->undo();
    else
        history->redo();
    return true;
}

// Without memory for a step there is nothing to go back to. Destructors must not fail.
void UserSteps::close() noexcept {
    try {
        closeStep();
    } catch (...) {
        for (UndoHistory* history : histories_)
            history->giveUp();
    }
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

UserSteps::Part::Part(UserSteps& steps, std::string name, TypingPlace place)
    : steps_(steps), placeBefore_(steps.place_) {
    steps_.close();
    nameBefore_ = std::exchange(steps_.name_, std::move(name));
    steps_.place_ = place;
}

UserSteps::Part::~Part() {
    steps_.close();
    steps_.name_ = std::move(nameBefore_);
    steps_.place_ = placeBefore_;
}

} // namespace zb
