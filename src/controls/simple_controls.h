#pragma once

#include "controls/control.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Text that the user cannot change.
class Label : public Control {
public:
    Label(Window& window, std::string name, std::string text = {}, Control* pane = nullptr)
        : Control(Kind::Label, window, std::move(name), pane), text_(std::move(text)) {}

    const std::string& text() const { return text_; }
    void setText(std::string_view text);

private:
    std::string text_;
};

/// A pane, a frame or a picture. Controls inside it are usable only while it is usable.
class Pane : public Control {
public:
    Pane(Window& window, std::string name, std::string caption = {}, Control* pane = nullptr)
        : Control(Kind::Pane, window, std::move(name), pane) {
        setCaption(std::move(caption));
    }

    std::function<void()> onPress;
    /// Pressed and released, and not dragged.
    std::function<void()> onClick;
};

/// A push button.
class Button : public Control {
public:
    Button(Window& window, std::string name, std::string caption, Control* pane = nullptr)
        : Control(Kind::Button, window, std::move(name), pane) {
        setCaption(std::move(caption));
    }

    std::function<void()> onClick;
};

/// A check box. Its value changes before its release and click are reported.
class CheckBox : public Control {
public:
    CheckBox(Window& window, std::string name, std::string caption, Control* pane = nullptr)
        : Control(Kind::CheckBox, window, std::move(name), pane) {
        setCaption(std::move(caption));
    }

    bool checked() const { return checked_; }
    void setChecked(bool checked);

    /// The value changed, by the user or the program.
    std::function<void()> onChange;
    /// The user released the space bar or the left mouse button.
    std::function<void()> onRelease;

private:
    bool checked_ = false;
};

class Option;

/// Options of which at most one is on.
class OptionGroup {
public:
    void add(Option& option) { options_.push_back(&option); }
    const std::vector<Option*>& options() const { return options_; }

private:
    std::vector<Option*> options_;
};

/// One choice of a group.
class Option : public Control {
public:
    Option(Window& window, std::string name, std::string caption, OptionGroup& group,
           Control* pane = nullptr);

    bool on() const { return on_; }
    /// Turning an option on turns the others of its group off. No click is reported.
    void setOn(bool on);
    const OptionGroup& group() const { return group_; }

    /// The user turned it on.
    std::function<void()> onClick;

private:
    OptionGroup& group_;
    bool on_ = false;
};

} // namespace zb
