#include "controls/menu.h"

#include "controls/desktop.h"
#include "controls/window.h"

namespace zb {

PopupMenu::~PopupMenu() {
    if (companion_ != nullptr)
        companion_->host_ = nullptr;
    if (host_ != nullptr)
        host_->companion_ = nullptr;
}

void PopupMenu::setCompanion(PopupMenu& companion) {
    companion_ = &companion;
    companion.host_ = this;
    companion.setLeavesFocus();
}

void PopupMenu::open() {
    window().desktop().popup(*this);
}

bool PopupMenu::isOpen() const {
    const PopupMenu* open = window().desktop().openPopup();
    return open != nullptr && (open == this || open == host_);
}

PopupMenu* MenuEntry::popup() const {
    Control* above = menu_;
    while (above != nullptr && above->kind() == Kind::MenuEntry)
        above = static_cast<MenuEntry*>(above)->menu();
    return above == nullptr ? nullptr : static_cast<PopupMenu*>(above);
}

void MenuEntry::setChecked(bool checked) {
    if (checked_ == checked)
        return;
    checked_ = checked;
    ring(Change::Value);
}

} // namespace zb
