#include "controls/menu.h"

#include "controls/desktop.h"
#include "controls/window.h"

namespace zb {

void PopupMenu::open() {
    window().desktop().popup(*this);
}

bool PopupMenu::isOpen() const {
    return window().desktop().openPopup() == this;
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
