#include "controls/key.h"

#include <array>

namespace zb {

namespace {

struct PrintingKey {
    int code;
    char plain;
    char shifted;
};

// The keys of the main block that print a character other than a letter.
constexpr std::array<PrintingKey, 22> kPrintingKeys{{
    {32, ' ', ' '},  {48, '0', ')'},   {49, '1', '!'},  {50, '2', '@'},   {51, '3', '#'},  {52, '4', '$'},
    {53, '5', '%'},  {54, '6', '^'},   {55, '7', '&'},  {56, '8', '*'},   {57, '9', '('},  {186, ';', ':'},
    {187, '=', '+'}, {188, ',', '<'},  {189, '-', '_'}, {190, '.', '>'},  {191, '/', '?'}, {192, '`', '~'},
    {219, '[', '{'}, {220, '\\', '|'}, {221, ']', '}'}, {222, '\'', '"'},
}};

std::optional<char> characterOfKeypad(int code) {
    if (code >= 96 && code <= 105)
        return static_cast<char>('0' + (code - 96));
    switch (code) {
    case 106:
        return '*';
    case 107:
        return '+';
    case 109:
        return '-';
    case 110:
        return '.';
    case 111:
        return '/';
    default:
        return std::nullopt;
    }
}

} // namespace

bool isDigitKey(int code) {
    return (code >= 48 && code <= 57) || (code >= 96 && code <= 105);
}

std::optional<char> characterOfKey(KeyEvent key) {
    if ((key.shift & (kControlKey | kAltKey)) != 0)
        return std::nullopt;
    const bool shifted = (key.shift & kShiftKey) != 0;
    if (key.code >= 65 && key.code <= 90)
        return static_cast<char>(shifted ? key.code : key.code + ('a' - 'A'));
    for (const PrintingKey& candidate : kPrintingKeys) {
        if (candidate.code == key.code)
            return shifted ? candidate.shifted : candidate.plain;
    }
    return characterOfKeypad(key.code);
}

std::optional<KeyEvent> keyOfShortcut(std::string_view shortcut) {
    constexpr std::string_view kControl = "Ctrl+";
    if (shortcut == "Del")
        return KeyEvent{kKeyDelete, 0};
    if (shortcut.size() != kControl.size() + 1 || !shortcut.starts_with(kControl))
        return std::nullopt;
    const char letter = shortcut.back();
    return letter >= 'A' && letter <= 'Z' ? std::optional(KeyEvent{letter, kControlKey}) : std::nullopt;
}

std::optional<KeyEvent> keyOfCharacter(char character) {
    if (character >= 'a' && character <= 'z')
        return KeyEvent{character - ('a' - 'A'), 0};
    if (character >= 'A' && character <= 'Z')
        return KeyEvent{character, kShiftKey};
    for (const PrintingKey& candidate : kPrintingKeys) {
        if (candidate.plain == character)
            return KeyEvent{candidate.code, 0};
        if (candidate.shifted == character)
            return KeyEvent{candidate.code, kShiftKey};
    }
    return std::nullopt;
}

UndoKey undoKeyOf(KeyEvent key) {
    constexpr int kLetterY = 'Y';
    constexpr int kLetterZ = 'Z';
    if (key.code == kLetterY && key.shift == kControlKey)
        return UndoKey::Redo;
    if (key.code != kLetterZ)
        return UndoKey::None;
    if (key.shift == (kControlKey | kShiftKey))
        return UndoKey::Redo;
    return key.shift == kControlKey ? UndoKey::Undo : UndoKey::None;
}

} // namespace zb
