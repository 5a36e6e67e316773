#pragma once

#include "controls/key_commands.h"
#include "controls/notices.h"
#include "controls/screen.h"
#include "controls/user_steps.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class Control;
class PopupMenu;
class Window;

/// The title of message boxes that have none of their own.
inline constexpr std::string_view kApplicationTitle = "Zeltobench";

/// All windows of one program: which of them is active, which control has the focus, which dialogs are modal
/// and which pop-up is open.
class Desktop {
public:
    explicit Desktop(Screen& screen) : screen_(screen) {}
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    Screen& screen() const { return screen_; }
    /// The undoable steps of what the user does.
    UserSteps& steps() { return steps_; }

    /// The window with that name; of several, the one shown last. Null when there is none.
    Window* find(std::string_view name) const;
    const std::vector<Window*>& windows() const { return windows_; }

    Window* activeWindow() const { return active_; }
    /// The window that takes all input while it is open; null when there is no modal one.
    Window* modalWindow() const { return modal_.empty() ? nullptr : modal_.back().window; }
    /// Whether the user can act in the window: it is visible, and not blocked by a modal one.
    bool acceptsInput(const Window& window) const;

    /// The active window loses the focus, with all its handlers, and `window` gets it.
    void activate(Window& window);
    void show(Window& window);
    void hide(Window& window);
    /// Shows a window that is part of another one: it becomes active only when the user turns to a control
    /// in it that takes the focus.
    void showPart(Window& window);
    /// The active window keeps its focus while the dialog is open.
    void showModal(Window& window);

    /// Another window has become active.
    std::function<void()> onActivated;

    /// The document in front in the window; null when it has none.
    Window* frontDocument(const Window& frame) const;

    /// How many actions of the user have begun: without a new one, nothing that the user made has changed.
    /// @{
    int actions() const { return actions_; }
    void countAction() { ++actions_; }
    /// @}

    bool hasFocus(const Control& control) const;
    void focus(Control& control);

    Answer showBox(Box box);
    Answer showBox(std::string text) {
        return showBox(Box{std::move(text), {}, BoxIcon::None, BoxButtons::OK});
    }
    Answer showBox(std::string text, BoxIcon icon) {
        return showBox(Box{std::move(text), {}, icon, BoxButtons::OK});
    }
    std::string pickFile(const FileDialog& dialog) { return screen_.pickFile(dialog); }

    /// Tells the user something that needs no answer; without a place for notices nothing is shown.
    void post(Notice notice) {
        if (notices_ != nullptr)
            notices_->post(std::move(notice));
    }
    /// Takes the notice of that topic back; nothing happens when there is none.
    void withdraw(std::string_view topic) {
        if (notices_ != nullptr)
            notices_->withdraw(topic);
    }
    /// Where notices go from now on; null for nowhere.
    void showNoticesIn(Notices* place) { notices_ = place; }

    /// The keys of commands that are in no menu bar.
    KeyCommands& keys() { return keys_; }

    /// The menu that was opened; its companion is open with it.
    PopupMenu* openPopup() const { return popup_; }
    void popup(PopupMenu& menu);
    void closePopup();

    /// During the lifetime of one, neither the focus nor the active window moves, whatever handlers request.
    /// Keys that walk through a tree show what a click would show, and the next key continues the walk.
    class FocusStays {
    public:
        explicit FocusStays(Desktop& desktop) : held_(desktop.focusHeld_), before_(desktop.focusHeld_) {
            held_ = true;
        }
        ~FocusStays() { held_ = before_; }
        FocusStays(const FocusStays&) = delete;
        FocusStays& operator=(const FocusStays&) = delete;

    private:
        bool& held_;
        bool before_;
    };

private:
    friend class Window;
    struct ModalEntry {
        Window* window;
        Window* activeBefore;
    };

    /// Removes the innermost dialog again, also after an exception.
    class ModalGuard {
    public:
        explicit ModalGuard(std::vector<ModalEntry>& modal) : modal_(modal) {}
        ~ModalGuard() { modal_.pop_back(); }
        ModalGuard(const ModalGuard&) = delete;
        ModalGuard& operator=(const ModalGuard&) = delete;

    private:
        std::vector<ModalEntry>& modal_;
    };

    /// Marks the window whose loss of the focus is being handled.
    class Leaving {
    public:
        Leaving(const Window*& slot, const Window& window) : slot_(slot), before_(slot) { slot_ = &window; }
        ~Leaving() { slot_ = before_; }
        Leaving(const Leaving&) = delete;
        Leaving& operator=(const Leaving&) = delete;

    private:
        const Window*& slot_;
        const Window* before_;
    };

    void add(Window& window) { windows_.push_back(&window); }
    void remove(Window& window);
    void forget(const Control& control);
    const Window* standingModal() const;
    void leave(Window& window);
    void enter(Window& window);
    void moveFocus(Window& window, Control* control);
    Window* topVisible(const Window* except) const;

    Screen& screen_;
    UserSteps steps_;
    KeyCommands keys_;
    std::vector<Window*> windows_; // the one shown last is at the end
    std::vector<ModalEntry> modal_;
    Window* active_ = nullptr;
    const Window* leaving_ = nullptr;
    PopupMenu* popup_ = nullptr;
    Notices* notices_ = nullptr;
    int actions_ = 0;
    bool focusHeld_ = false;
};

} // namespace zb
