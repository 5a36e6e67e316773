#pragma once

#include "controls/control.h"

#include <deque>
#include <string>
#include <string_view>

namespace zb {

/// A button of a toolbar, addressed by its Key.
class ToolbarButton {
public:
    const std::string& key() const { return key_; }
    const std::string& toolTip() const { return toolTip_; }
    int index() const { return index_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// 1 while it is pressed, otherwise 0. Only the program sets it.
    int value() const { return value_; }
    void setValue(int value);
    /// The number of its picture, 0 for none.
    int image() const { return image_; }
    void setImage(int image);
    /// The name of its picture, for buttons with named pictures; otherwise empty.
    const std::string& picture() const { return picture_; }
    void setPicture(std::string name);

private:
    friend class Toolbar;
    Control* owner_ = nullptr;
    std::string key_;
    std::string toolTip_;
    int index_ = 0;
    bool enabled_ = true;
    int value_ = 0;
    int image_ = 0;
    std::string picture_;
};

class Toolbar : public Control {
public:
    Toolbar(Window& window, std::string name, Control* pane = nullptr)
        : Control(Kind::Toolbar, window, std::move(name), pane) {}

    ToolbarButton& addButton(std::string key, std::string toolTip = {});
    std::deque<ToolbarButton>& buttons() { return buttons_; }
    const std::deque<ToolbarButton>& buttons() const { return buttons_; }
    /// By Key, compared upper-cased; null when there is none.
    ToolbarButton* find(std::string_view key);
    /// The button with that Key, which must exist.
    ToolbarButton& button(std::string_view key);

    /// The user pressed a button; its value has not changed.
    std::function<void(ToolbarButton&)> onButtonClick;

private:
    std::deque<ToolbarButton> buttons_;
};

/// A panel of a status bar, addressed by its Key.
struct StatusPanel {
    std::string key;
    std::string text;
};

class StatusBar : public Control {
public:
    StatusBar(Window& window, std::string name) : Control(Kind::StatusBar, window, std::move(name)) {}

    void addPanel(std::string key) { panels_.push_back({std::move(key), {}}); }
    const std::deque<StatusPanel>& panels() const { return panels_; }
    const StatusPanel* find(std::string_view key) const;
    void setText(std::string_view key, std::string_view text);

private:
    std::deque<StatusPanel> panels_;
};

} // namespace zb
