#include "platform/stores/window.h"

#include "platform/stores/desktop.h"

#include <algorithm>
#include <utility>

namespace zb {

Window::Window(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {
    desktop_.add(*this);
}

Window::~Window() { desktop_.remove(*this); }

void Window::setCaption(std::string caption) {
    caption_ = std::move(caption);
    ring(Change::State);
}

void Window::setPointer(Pointer pointer) {
    if (pointer_ == pointer)
        return;
    pointer_ = pointer;
    ring(Change::State);
}

void Window::show() { desktop_.show(*this); }

void Window::hide() { desktop_.hide(*this); }

void Window::showModal() { desktop_.showModal(*this); }

void Window::closeByFrame() { hide(); }

Control* Window::find(std::string_view name) const {
    const auto found = byName_.find(std::string(name));
    return found == byName_.end() ? nullptr : found->second;
}

void Window::add(Control& control) {
    controls_.push_back(&control);
    byName_.emplace(control.name(), &control);
}

void Window::passFocusOnWhenLost() {
    if (focusControl_ == nullptr || focusControl_->usable())
        return;
    const auto canTake = [](const Control* control) { return control->takesFocus() && control->usable(); };
    const auto here = std::find(controls_.begin(), controls_.end(), focusControl_);
    auto next = std::find_if(here, controls_.end(), canTake);
    if (next == controls_.end()) {
        next = std::find_if(controls_.begin(), here, canTake);
        if (next == here)
            next = controls_.end();
    }
    desktop_.moveFocus(*this, next == controls_.end() ? nullptr : *next);
}

void Window::ring(Change change) const {
    if (bell)
        bell(change);
}

} // namespace zb
