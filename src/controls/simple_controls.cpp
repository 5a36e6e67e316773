#include "controls/simple_controls.h"

namespace zb {

void Label::setText(std::string_view text) {
    if (text_ == text)
        return;
    text_ = text;
    ring(Change::Value);
}

void CheckBox::setChecked(bool checked) {
    if (checked_ == checked)
        return;
    checked_ = checked;
    ring(Change::Value);
    fire(onChange);
}

Option::Option(Window& window, std::string name, std::string caption, OptionGroup& group, Control* pane)
    : Control(Kind::Option, window, std::move(name), pane), group_(group) {
    setCaption(std::move(caption));
    group.add(*this);
}

void Option::setOn(bool on) {
    if (on_ == on)
        return;
    if (on) {
        for (Option* other : group_.options()) {
            if (other != this)
                other->setOn(false);
        }
    }
    on_ = on;
    ring(Change::Value);
}

} // namespace zb
