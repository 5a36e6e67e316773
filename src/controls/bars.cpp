#include "controls/bars.h"

#include "platform/text.h"

#include <stdexcept>
#include <utility>

namespace zb {

void ToolbarButton::setEnabled(bool enabled) {
    enabled_ = enabled;
    owner_->ring(Change::Rows);
}

void ToolbarButton::setValue(int value) {
    value_ = value;
    owner_->ring(Change::Rows);
}

void ToolbarButton::setImage(int image) {
    image_ = image;
    owner_->ring(Change::Rows);
}

void ToolbarButton::setPicture(std::string name) {
    picture_ = std::move(name);
    owner_->ring(Change::Rows);
}

ToolbarButton& Toolbar::addButton(std::string key, std::string toolTip) {
    ToolbarButton& button = buttons_.emplace_back();
    button.owner_ = this;
    button.key_ = std::move(key);
    button.toolTip_ = std::move(toolTip);
    button.index_ = static_cast<int>(buttons_.size());
    return button;
}

ToolbarButton* Toolbar::find(std::string_view key) {
    for (ToolbarButton& button : buttons_) {
        if (equalsIgnoringCase(button.key_, key))
            return &button;
    }
    return nullptr;
}

ToolbarButton& Toolbar::button(std::string_view key) {
    if (ToolbarButton* found = find(key); found != nullptr)
        return *found;
    throw std::logic_error("no toolbar button " + std::string(key));
}

const StatusPanel* StatusBar::find(std::string_view key) const {
    for (const StatusPanel& panel : panels_) {
        if (equalsIgnoringCase(panel.key, key))
            return &panel;
    }
    return nullptr;
}

void StatusBar::setText(std::string_view key, std::string_view text) {
    for (StatusPanel& panel : panels_) {
        if (equalsIgnoringCase(panel.key, key)) {
            panel.text = text;
            ring(Change::Rows);
        }
    }
}

} // namespace zb
