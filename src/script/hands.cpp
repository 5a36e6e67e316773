#include "script/hands.h"

#include "controls/desktop.h"
#include "controls/drag.h"
#include "controls/menu.h"
#include "script/program.h"

namespace zb {

UserHands StoreHands::user() const {
    return UserHands(program_.desktop());
}

Hands::Refusal StoreHands::click(const Target& target) {
    return user().click(target);
}
Hands::Refusal StoreHands::controlClick(const Target& target) {
    return user().controlClick(target);
}
Hands::Refusal StoreHands::rightClick(const Target& target) {
    return user().rightClick(target);
}
Hands::Refusal StoreHands::doubleClick(const Target& target) {
    return user().doubleClick(target);
}

Hands::Refusal StoreHands::dismiss() {
    if (program_.desktop().openPopup() == nullptr)
        return "no pop-up is open";
    user().dismiss();
    return {};
}

Hands::Refusal StoreHands::focus(Control& control) {
    return user().focus(control);
}
Hands::Refusal StoreHands::activate(Window& window) {
    return user().activate(window);
}
Hands::Refusal StoreHands::close(Window& window) {
    return user().close(window);
}
Hands::Refusal StoreHands::type(Control& control, std::string_view text) {
    return user().type(control, text);
}
Hands::Refusal StoreHands::key(Control& control, KeyEvent key) {
    return user().key(control, key);
}
Hands::Refusal StoreHands::paste(Control& control, std::string_view text) {
    return user().paste(control, text);
}
Hands::Refusal StoreHands::choose(Control& control, std::string_view text) {
    return user().choose(control, text);
}
Hands::Refusal StoreHands::drag(const Target& from, const Target& to) {
    return user().drag(from, to);
}
Hands::Refusal StoreHands::drop(const DragData& data, const Target& to) {
    return user().drop(data, to);
}

} // namespace zb
