#include "controls/window.h"

#include "controls/desktop.h"
#include "controls/simple_controls.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zb {

namespace {

bool canTakeFocus(const Control* control) {
    return control->takesFocus() && control->usable();
}

} // namespace

Window::Window(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {
    desktop_.add(*this);
}

Window::~Window() {
    desktop_.remove(*this);
}

void Window::setCaption(std::string caption) {
    caption_ = std::move(caption);
    ring(Change::State);
}

void Window::setTitleNote(std::string note) {
    if (titleNote_ == note)
        return;
    titleNote_ = std::move(note);
    ring(Change::State);
}

void Window::setPointer(Pointer pointer) {
    if (pointer_ == pointer)
        return;
    pointer_ = pointer;
    ring(Change::State);
}

void Window::show() {
    desktop_.show(*this);
}

void Window::hide() {
    desktop_.hide(*this);
}

void Window::showModal() {
    desktop_.showModal(*this);
}

void Window::closeByFrame() {
    hide();
}

Control* Window::find(std::string_view name) const {
    const auto found = byName_.find(std::string(name));
    return found == byName_.end() ? nullptr : found->second;
}

void Window::add(Control& control) {
    controls_.push_back(&control);
    byName_.emplace(control.name(), &control);
}

void Window::remove(const Control& control) {
    // Members are destroyed in reverse order, so a search from the end finds a control of a closing window at
    // once.
    const auto found = std::find(controls_.rbegin(), controls_.rend(), &control);
    if (found != controls_.rend())
        controls_.erase(std::next(found).base());
    const auto named = byName_.find(control.name());
    if (named != byName_.end() && named->second == &control)
        byName_.erase(named);
    if (focusControl_ == &control)
        focusControl_ = nullptr;
    if (cancelButton_ == &control)
        cancelButton_ = nullptr;
    if (defaultButton_ == &control)
        defaultButton_ = nullptr;
    desktop_.forget(control);
}

Control* Window::firstFocusable() const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), canTakeFocus);
    return found == controls_.end() ? nullptr : *found;
}

void Window::passFocusOnWhenLost() {
    if (focusControl_ == nullptr || focusControl_->usable())
        return;
    const auto here = std::find(controls_.begin(), controls_.end(), focusControl_);
    auto next = std::find_if(here, controls_.end(), canTakeFocus);
    if (next == controls_.end()) {
        next = std::find_if(controls_.begin(), here, canTakeFocus);
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
