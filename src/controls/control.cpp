#include "controls/control.h"

#include "controls/desktop.h"
#include "controls/window.h"

#include <utility>

namespace zb {

Control::Control(Kind kind, Window& window, std::string name, Control* pane)
    : kind_(kind), window_(window), pane_(pane), name_(std::move(name)) {
    window_.add(*this);
}

Control::~Control() {
    window_.remove(*this);
}

void Control::setEnabled(bool enabled) {
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    ring(Change::State);
    window_.passFocusOnWhenLost();
}

void Control::setVisible(bool visible) {
    if (visible_ == visible)
        return;
    visible_ = visible;
    ring(Change::State);
    window_.passFocusOnWhenLost();
}

bool Control::usable() const {
    for (const Control* control = this; control != nullptr; control = control->pane_) {
        if (!control->enabled_ || !control->visible_)
            return false;
    }
    return true;
}

void Control::setCaption(std::string caption) {
    if (caption_ == caption)
        return;
    caption_ = std::move(caption);
    ring(Change::State);
}

void Control::setToolTip(std::string text) {
    if (toolTip_ == text)
        return;
    toolTip_ = std::move(text);
    ring(Change::State);
}

bool Control::takesFocus() const {
    if (leavesFocus_)
        return false;
    switch (kind_) {
    case Kind::TextField:
    case Kind::CheckBox:
    case Kind::Option:
    case Kind::Button:
    case Kind::Combo:
    case Kind::FolderField:
    case Kind::List:
    case Kind::Tree:
        return true;
    default:
        return false;
    }
}

bool Control::focused() const {
    return window_.desktop().hasFocus(*this);
}

void Control::setFocus() {
    window_.desktop().focus(*this);
}

void Control::ring(Change change) const {
    if (bell)
        bell(change);
}

} // namespace zb
