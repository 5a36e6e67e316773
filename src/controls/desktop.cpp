#include "controls/desktop.h"

#include "controls/control.h"
#include "controls/menu.h"
#include "controls/window.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

void ringWithCompanion(const PopupMenu& menu) {
    menu.ring(Change::State);
    if (menu.companion() != nullptr)
        menu.companion()->ring(Change::State);
}

} // namespace

Window* Desktop::find(std::string_view name) const {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(),
                                    [&](const Window* window) { return window->name() == name; });
    return found == windows_.rend() ? nullptr : *found;
}

bool Desktop::acceptsInput(const Window& window) const {
    if (!window.visible())
        return false;
    // Windows that a dialog has opened in front of itself also take input; those below it do not.
    const Window* modal = standingModal();
    if (modal == nullptr || modal == &window)
        return true;
    const auto place = [&](const Window* wanted) {
        return std::find(windows_.begin(), windows_.end(), wanted);
    };
    return place(&window) > place(modal);
}

/// A dialog that is being closed no longer counts, but the dialogs below it still do.
const Window* Desktop::standingModal() const {
    const auto found = std::find_if(modal_.rbegin(), modal_.rend(),
                                    [](const ModalEntry& entry) { return entry.window->visible(); });
    return found == modal_.rend() ? nullptr : found->window;
}

void Desktop::activate(Window& window) {
    if (active_ == &window || !window.visible() || focusHeld_)
        return;
    if (active_ != nullptr)
        leave(*active_);
    enter(window);
    screen_.bringToFront(window);
}

void Desktop::show(Window& window) {
    if (!window.visible_) {
        window.visible_ = true;
        window.ring(Change::State);
    } else if (focusHeld_) {
        return;
    }
    if (acceptsInput(window) || modal_.empty())
        activate(window);
    screen_.bringToFront(window);
}

void Desktop::hide(Window& window) {
    if (!window.visible_)
        return;
    window.visible_ = false;
    if (popup_ != nullptr && &popup_->window() == &window)
        closePopup();
    // A window may hide itself because it loses the focus. The next owner of the focus is decided then.
    const bool wasActive = active_ == &window && leaving_ != &window;
    if (wasActive) {
        leave(window);
        active_ = nullptr;
    }
    window.ring(Change::State);
    if (!wasActive || active_ != nullptr)
        return;
    if (!modal_.empty() && modal_.back().window == &window) {
        Window* before = modal_.back().activeBefore;
        if (before != nullptr && before->visible()) {
            active_ = before;
            return;
        }
    }
    if (Window* next = topVisible(&window); next != nullptr)
        enter(*next);
}

void Desktop::showPart(Window& window) {
    if (window.visible_)
        return;
    // Below all others: when one of them closes, the user returns to another one and not to a part.
    std::erase(windows_, &window);
    windows_.insert(windows_.begin(), &window);
    window.visible_ = true;
    window.ring(Change::State);
}

void Desktop::showModal(Window& window) {
    modal_.push_back({&window, active_});
    const ModalGuard guard(modal_);
    const bool held = std::exchange(focusHeld_, false);
    active_ = nullptr;
    window.visible_ = true;
    enter(window);
    window.ring(Change::State);
    screen_.bringToFront(window);
    screen_.runModal(window);
    if (window.visible_)
        hide(window);
    focusHeld_ = held;
}

Window* Desktop::frontDocument(const Window& frame) const {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(), [&](const Window* window) {
        return window->visible() && window->frame() == &frame;
    });
    return found == windows_.rend() ? nullptr : *found;
}

bool Desktop::hasFocus(const Control& control) const {
    const Window& window = control.window();
    if (window.focusControl_ != &control)
        return false;
    return active_ == &window || std::any_of(modal_.begin(), modal_.end(), [&](const ModalEntry& entry) {
               return entry.activeBefore == &window;
           });
}

void Desktop::focus(Control& control) {
    if (!control.takesFocus() || !control.usable() || focusHeld_)
        return;
    Window& window = control.window();
    if (acceptsInput(window))
        activate(window);
    moveFocus(window, &control);
}

Answer Desktop::showBox(Box box) {
    if (box.title.empty())
        box.title = std::string(kApplicationTitle);
    return screen_.showBox(box);
}

void Desktop::popup(PopupMenu& menu) {
    closePopup();
    fire(menu.onOpen);
    if (menu.companion() != nullptr)
        fire(menu.companion()->onOpen);
    popup_ = &menu;
    ringWithCompanion(menu);
    screen_.openPopup(menu);
}

void Desktop::closePopup() {
    if (popup_ == nullptr)
        return;
    PopupMenu& menu = *popup_;
    popup_ = nullptr;
    ringWithCompanion(menu);
    if (menu.companion() != nullptr)
        fire(menu.companion()->onClosed);
    fire(menu.onClosed);
}

void Desktop::remove(Window& window) {
    std::erase(windows_, &window);
    if (active_ == &window)
        active_ = nullptr;
    if (popup_ != nullptr && &popup_->window() == &window)
        popup_ = nullptr;
    for (ModalEntry& entry : modal_) {
        if (entry.activeBefore == &window)
            entry.activeBefore = nullptr;
    }
    screen_.forget(window);
}

void Desktop::forget(const Control& control) {
    if (popup_ == &control)
        popup_ = nullptr;
}

void Desktop::leave(Window& window) {
    const Leaving leaving(leaving_, window);
    Control* focused = window.focusControl_;
    if (focused != nullptr)
        fire(focused->onLostFocus);
    steps_.endTyping();
    fire(window.onDeactivate);
}

void Desktop::enter(Window& window) {
    active_ = &window;
    std::erase(windows_, &window);
    windows_.push_back(&window);
    fire(onActivated);
    fire(window.onActivate);
    if (active_ != &window)
        return;
    if (window.focusControl_ == nullptr || !window.focusControl_->usable())
        window.focusControl_ = window.firstFocusable();
    Control* focused = window.focusControl_;
    if (focused == nullptr)
        return;
    focused->focusArrives();
    fire(focused->onGotFocus);
    focused->ring(Change::State);
}

void Desktop::moveFocus(Window& window, Control* control) {
    Control* before = window.focusControl_;
    if (before == control)
        return;
    window.focusControl_ = control;
    if (active_ != &window)
        return;
    if (before != nullptr) {
        fire(before->onLostFocus);
        steps_.endTyping();
        before->ring(Change::State);
    }
    // The handler may have moved the focus elsewhere.
    if (window.focusControl_ != control || control == nullptr)
        return;
    control->focusArrives();
    fire(control->onGotFocus);
    control->ring(Change::State);
}

Window* Desktop::topVisible(const Window* except) const {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(), [&](const Window* window) {
        return window != except && window->visible() && acceptsInput(*window);
    });
    return found == windows_.rend() ? nullptr : *found;
}

} // namespace zb
