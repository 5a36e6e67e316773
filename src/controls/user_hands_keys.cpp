#include "controls/user_hands.h"

#include "controls/desktop.h"
#include "controls/key_effects.h"
#include "controls/menu.h"
#include "controls/text_field.h"
#include "controls/user_hands_parts.h"

#include <utility>

namespace zb {

using namespace hands;
using Kind = Control::Kind;

UserHands::Refusal UserHands::keyDown(Control& control, KeyEvent key, const KeyAction& effect) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (!control.takesFocus())
        return describe(control) + " takes no keys";
    if (Refusal refusal = begin(Target::whole(control)); !refusal.empty())
        return refusal;
    return keyDownHere(control, key, effect);
}

UserHands::Refusal UserHands::keyDownHere(Control& control, KeyEvent key, const KeyAction& effect) {
    const UserSteps::Action action(desktop_.steps(), &control);
    ++begun_;
    lastRefusal_ = whyNot(control);
    if (!lastRefusal_.empty())
        return lastRefusal_;
    fire(control.onKeyDown, key);
    if (Refusal refusal = whyNot(control); !refusal.empty())
        return refusal;
    heldCommandKey_ = 0;
    if (takesUndoKey(control, key) || takesCommandKey(control, key))
        return {};
    if (effect)
        effect();
    else
        applyKey(control, key);
    return {};
}

void UserHands::keyUp(Control& control, KeyEvent key) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (key.code == std::exchange(heldCommandKey_, 0))
        return;
    if (control.window().visible())
        fire(control.onKeyUp, key);
}

namespace {

/// The text of a field that is written through is part of the document.
bool hasOwnHistory(const Control& control) {
    return control.kind() == Kind::TextField && !static_cast<const TextField&>(control).writesThrough();
}

} // namespace

// The key of a command never reaches the control again, as with the shortcuts of a menu.
bool UserHands::takesUndoKey(Control& control, KeyEvent key) {
    const UndoKey wish = undoKeyOf(key);
    if (wish == UndoKey::None || hasOwnHistory(control) || !desktop_.steps().move(control.window(), wish))
        return false;
    heldCommandKey_ = key.code;
    return true;
}

bool UserHands::takesCommandKey(Control& control, KeyEvent key) {
    const KeyCommand* command = desktop_.keys().find(control.window(), &control, key);
    if (command == nullptr || (command->forKeyboard && !atKeyboard_) ||
        (desktop_.modalWindow() != nullptr && command->place.window == nullptr))
        return false;
    // The command may destroy what it was found in.
    const std::function<bool()> run = command->run;
    if (!run())
        return false;
    heldCommandKey_ = key.code;
    return true;
}

bool UserHands::runCommandKey(Window& window, KeyEvent key) {
    const UserSteps::Action action(desktop_.steps(), nullptr);
    const KeyCommand* command = desktop_.keys().find(window, nullptr, key);
    if (command == nullptr || !desktop_.acceptsInput(window) ||
        (desktop_.modalWindow() != nullptr && command->place.window == nullptr))
        return false;
    const std::function<bool()> run = command->run;
    return run();
}

void UserHands::undo(Control& control) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (hasOwnHistory(control))
        as<TextField>(control).undo();
    else
        desktop_.steps().move(control.window(), UndoKey::Undo);
}

void UserHands::redo(Control& control) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (hasOwnHistory(control))
        as<TextField>(control).redo();
    else
        desktop_.steps().move(control.window(), UndoKey::Redo);
}

bool UserHands::canUndo(const Control& control) const {
    if (hasOwnHistory(control))
        return static_cast<const TextField&>(control).canUndo();
    const UndoHistory* history = desktop_.steps().find(control.window());
    return history != nullptr && history->canUndo();
}

bool UserHands::canRedo(const Control& control) const {
    if (hasOwnHistory(control))
        return static_cast<const TextField&>(control).canRedo();
    const UndoHistory* history = desktop_.steps().find(control.window());
    return history != nullptr && history->canRedo();
}

UserHands::Refusal UserHands::key(Control& control, KeyEvent key) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (!control.takesFocus())
        return describe(control) + " takes no keys";
    if (Refusal refusal = begin(Target::whole(control)); !refusal.empty())
        return refusal;
    return strike(control, key);
}

UserHands::Refusal UserHands::type(Control& control, std::string_view text) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (!control.takesFocus())
        return describe(control) + " takes no keys";
    for (const char character : text) {
        if (!keyOfCharacter(character))
            return "a US keyboard has no key for all of \"" + std::string(text) + "\"";
    }
    if (Refusal refusal = begin(Target::whole(control)); !refusal.empty())
        return refusal;
    for (const char character : text) {
        if (Refusal refusal = strike(control, *keyOfCharacter(character)); !refusal.empty())
            return refusal;
    }
    return {};
}

// Key down, its effect and key up, for the control with the focus. Shortcuts of the menu bar never reach the
// control.
UserHands::Refusal UserHands::strike(Control& control, KeyEvent key) {
    if (Refusal refusal = whyNot(control); !refusal.empty())
        return refusal;
    if (MenuEntry* entry = entryOfKey(control, key); entry != nullptr && whyNot(*entry).empty()) {
        fire(entry->onClick);
        return {};
    }
    if (keyDownHere(control, key).empty())
        keyUp(control, key);
    return {};
}

UserHands::Refusal UserHands::enterText(TextField& field, std::string_view text) {
    const UserSteps::Action action(desktop_.steps(), &field);
    const KeyEvent key{kKeyForeignText, 0};
    if (Refusal refusal = keyDown(field, key, [&] { field.insert(text); }); !refusal.empty())
        return refusal;
    keyUp(field, key);
    return {};
}

UserHands::Refusal UserHands::insert(Control& control, std::string_view text) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (control.kind() != Kind::TextField)
        return describe(control) + " is no text field";
    if (Refusal refusal = begin(Target::whole(control)); !refusal.empty())
        return refusal;
    as<TextField>(control).insert(text);
    return {};
}

UserHands::Refusal UserHands::insertAt(TextField& field, std::size_t place, std::string_view text) {
    const UserSteps::Action action(desktop_.steps(), &field);
    if (Refusal refusal = begin(Target::whole(field)); !refusal.empty())
        return refusal;
    field.select(place, place);
    field.insert(text);
    return {};
}

UserHands::Refusal UserHands::paste(Control& control, std::string_view text) {
    const UserSteps::Action action(desktop_.steps(), &control);
    if (control.kind() != Kind::TextField)
        return describe(control) + " is no text field";
    if (Refusal refusal = begin(Target::whole(control)); !refusal.empty())
        return refusal;
    auto& field = as<TextField>(control);
    field.selectAll();
    field.paste(text);
    return {};
}

} // namespace zb
