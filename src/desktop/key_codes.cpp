#include "desktop/key_codes.h"

#include "desktop/qt_text.h"

#include <QKeyEvent>

#include <array>
#include <utility>

namespace zb {

namespace {

constexpr std::array<std::pair<Qt::Key, int>, 17> kFunctionKeys{{
    {Qt::Key_Backspace, kKeyBackspace},
    {Qt::Key_Tab, kKeyTab},
    {Qt::Key_Backtab, kKeyTab},
    {Qt::Key_Return, kKeyEnter},
    {Qt::Key_Enter, kKeyEnter},
    {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, kKeySpace},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, kKeyEnd},
    {Qt::Key_Home, kKeyHome},
    {Qt::Key_Left, kKeyLeft},
    {Qt::Key_Up, kKeyUp},
    {Qt::Key_Right, kKeyRight},
    {Qt::Key_Down, kKeyDown},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, kKeyDelete},
}};

constexpr int kFirstFunctionKey = 112; // F1
constexpr int kKeypadZero = 96;

std::optional<int> functionCode(int key) {
    for (const auto& [qt, code] : kFunctionKeys) {
        if (key == qt)
            return code;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return kFirstFunctionKey + key - Qt::Key_F1;
    return std::nullopt;
}

std::optional<int> keypadCode(int key) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return kKeypadZero + key - Qt::Key_0;
    switch (key) {
    case Qt::Key_Asterisk:
        return 106;
    case Qt::Key_Plus:
        return 107;
    case Qt::Key_Minus:
        return 109;
    case Qt::Key_Period:
    case Qt::Key_Comma:
        return 110;
    case Qt::Key_Slash:
        return 111;
    default:
        return std::nullopt;
    }
}

int shiftState(Qt::KeyboardModifiers modifiers) {
    int state = 0;
    if (modifiers.testFlag(Qt::ShiftModifier))
        state |= kShiftKey;
    if (modifiers.testFlag(Qt::ControlModifier))
        state |= kControlKey;
    if (modifiers.testFlag(Qt::AltModifier))
        state |= kAltKey;
    return state;
}

bool isAscii(int key) {
    return key >= 0x21 && key <= 0x7E;
}

// Some platforms report AltGr as Ctrl and Alt together; if there is a character, it counts.
bool entersText(const QKeyEvent& event, int shift) {
    const int command = shift & (kControlKey | kAltKey);
    return !event.text().isEmpty() && event.text().at(0).isPrint() &&
           (command == 0 || command == (kControlKey | kAltKey));
}

} // namespace

KeyMeaning meaningOf(const QKeyEvent& event) {
    const int shift = shiftState(event.modifiers());
    if (const auto code = functionCode(event.key()))
        return {KeyEvent{*code, shift}, {}};
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (const auto code = keypadCode(event.key()))
            return {KeyEvent{*code, shift}, {}};
    }
    if (entersText(event, shift)) {
        const std::string text = fromQt(event.text());
        if (text.size() == 1) {
            if (const auto key = keyOfCharacter(text.front()))
                return {key, {}};
        }
        return {KeyEvent{kKeyForeignText, shift & kShiftKey}, text};
    }
    if (isAscii(event.key())) {
        // Without a text the letters are upper case, whatever Shift is.
        if (const auto key = keyOfCharacter(static_cast<char>(event.key())))
            return {KeyEvent{key->code, shift}, {}};
    }
    return {};
}

} // namespace zb
