#pragma once

#include <optional>
#include <string_view>

namespace zb {

/// A key as the key filters of the windows see it: the virtual key code of a US keyboard and the state of the
/// modifier keys (a sum of the kShift... values).
struct KeyEvent {
    int code = 0;
    int shift = 0;

    friend bool operator==(const KeyEvent&, const KeyEvent&) = default;
};

inline constexpr int kShiftKey = 1;
inline constexpr int kControlKey = 2;
inline constexpr int kAltKey = 4;

inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeySpace = 32;
inline constexpr int kKeyPageUp = 33;
inline constexpr int kKeyPageDown = 34;
inline constexpr int kKeyEnd = 35;
inline constexpr int kKeyHome = 36;
inline constexpr int kKeyLeft = 37;
inline constexpr int kKeyUp = 38;
inline constexpr int kKeyRight = 39;
inline constexpr int kKeyDown = 40;
inline constexpr int kKeyInsert = 45;
inline constexpr int kKeyDelete = 46;
inline constexpr int kKeyF1 = 112;
inline constexpr int kKeyF2 = 113;
inline constexpr int kKeyF3 = 114;
/// A text that no key of a US keyboard enters: from another layout, a dead key or an input method.
inline constexpr int kKeyForeignText = 229;

/// 48-57 and the keypad's 96-105: the digits with Num Lock on.
bool isDigitKey(int code);

/// The printable character that a key enters on a US keyboard with Num Lock on; none for other keys, and none
/// with Ctrl or Alt held.
std::optional<char> characterOfKey(KeyEvent key);

/// The key that enters an ASCII character on a US keyboard; none for other characters.
std::optional<KeyEvent> keyOfCharacter(char character);

/// The key that a menu entry uses as its shortcut: "Del", or "Ctrl+" and a letter; none for other texts.
std::optional<KeyEvent> keyOfShortcut(std::string_view shortcut);

/// What a key asks of a history.
enum class UndoKey { None, Undo, Redo };
/// Ctrl+Z undoes, Ctrl+Shift+Z and Ctrl+Y redo.
UndoKey undoKeyOf(KeyEvent key);

} // namespace zb
