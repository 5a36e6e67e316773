#pragma once

#include "controls/key.h"
#include "controls/undo_history.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

class Control;
class Window;

/// Makes undoable steps of what the user does: everything that happens during one outermost action is one
/// step of each document that it changed. The handlers of commands name the step.
class UserSteps {
public:
    UserSteps() = default;
    UserSteps(const UserSteps&) = delete;
    UserSteps& operator=(const UserSteps&) = delete;

    /// The history must outlive all actions.
    void add(UndoHistory& history);
    /// The history that the keys of a window undo and redo; null for none.
    std::function<UndoHistory*(const Window& window)> historyOf;
    UndoHistory* find(const Window& window) const { return historyOf ? historyOf(window) : nullptr; }

    /// Names the step of this action, such as "Delete S5F2". The first name counts: a command names its step
    /// before it calls others. Without a name the step has the caption of the control.
    void name(std::string name, TypingPlace place = {});
    /// Whether a name would count: none was given, or it would replace this one, which was given before the
    /// command knew whether it changes anything.
    bool wantsName(std::string_view before = {}) const { return !histories_.empty() && name_ == before; }
    void rename(std::string name) { name_ = std::move(name); }
    /// Whether typing at the place continues the last step, which keeps its name.
    bool isTypingAt(TypingPlace place) const;
    /// What has changed so far becomes a step, which a save marks as the saved one.
    void closeStep();
    /// The next typing begins a step of its own.
    void endTyping();

    /// Undoes or redoes in the history of the window; false when it has none.
    bool move(const Window& window, UndoKey way);
    /// A step of all documents was undone or redone in one of them, and with it in the others, where so many
    /// other steps had to go the same way.
    std::function<void(const UndoHistory::Step& step, UndoHistory::Way way, std::size_t others)> onJointMoved;

    /// Whose step a part of an action is: of each document that it changed, each with its own undo, or one of
    /// all documents, which are undone and redone together.
    enum class Reach { EachDocument, AllDocuments };

    /// An action of the user, for as long as this exists.
    class Action {
    public:
        Action(UserSteps& steps, const Control* control);
        ~Action();
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

    private:
        UserSteps& steps_;
    };

    /// A part of an action that is a step of its own, such as the end of typing in a field that a click on
    /// something else brings.
    class Part {
    public:
        Part(UserSteps& steps, std::string name, TypingPlace place = {}, Reach reach = Reach::EachDocument);
        ~Part();
        Part(const Part&) = delete;
        Part& operator=(const Part&) = delete;

    private:
        UserSteps& steps_;
        std::string nameBefore_;
        TypingPlace placeBefore_;
        Reach reachBefore_;
    };

private:
    void close() noexcept;
    void giveUp() noexcept;

    std::vector<UndoHistory*> histories_;
    int depth_ = 0;
    const Control* control_ = nullptr; // of the outermost action
    std::string name_;
    TypingPlace place_;
    Reach reach_ = Reach::EachDocument;
    JointStep lastJoint_ = kNotJoint;
};

} // namespace zb
