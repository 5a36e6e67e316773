#include "controls/key_commands.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zb {

namespace {

constexpr int kFirstFunctionKey = 112; // F1
constexpr int kLastFunctionKey = 135;

constexpr std::array<std::pair<int, const char*>, 16> kNamedKeys{{
    {kKeyBackspace, "Backspace"},
    {kKeyTab, "Tab"},
    {kKeyEnter, "Enter"},
    {kKeyEscape, "Esc"},
    {kKeySpace, "Space"},
    {kKeyPageUp, "PgUp"},
    {kKeyPageDown, "PgDn"},
    {kKeyEnd, "End"},
    {kKeyHome, "Home"},
    {kKeyLeft, "Left"},
    {kKeyUp, "Up"},
    {kKeyRight, "Right"},
    {kKeyDown, "Down"},
    {kKeyInsert, "Ins"},
    {kKeyDelete, "Del"},
    {kKeyForeignText, "text"},
}};

/// How well a command fits: 0 for not at all.
int fit(const KeyCommand& command, const Window& window, const Control* focused) {
    const KeyPlace& place = command.place;
    if (place.window != nullptr && place.window != &window)
        return 0;
    if (place.controls.empty())
        return place.window == nullptr ? 1 : 2;
    const bool isOne =
        std::find(place.controls.begin(), place.controls.end(), focused) != place.controls.end();
    return focused != nullptr && isOne ? 3 : 0;
}

} // namespace

const KeyCommand* KeyCommands::find(const Window& window, const Control* focused, KeyEvent key) const {
    const KeyCommand* best = nullptr;
    int bestFit = 0;
    for (const KeyCommand& command : commands_) {
        if (command.key != key)
            continue;
        if (const int found = fit(command, window, focused); found > bestFit) {
            best = &command;
            bestFit = found;
        }
    }
    return best;
}

std::string nameOfKey(KeyEvent key) {
    std::string name;
    if ((key.shift & kControlKey) != 0)
        name += "Ctrl+";
    if ((key.shift & kAltKey) != 0)
        name += "Alt+";
    if ((key.shift & kShiftKey) != 0)
        name += "Shift+";
    for (const auto& [code, word] : kNamedKeys) {
        if (code == key.code)
            return name + word;
    }
    if (key.code >= kFirstFunctionKey && key.code <= kLastFunctionKey)
        return name + "F" + std::to_string(key.code - kFirstFunctionKey + 1);
    const auto character = characterOfKey({key.code, 0});
    if (!character)
        return name + "key " + std::to_string(key.code);
    const bool letter = *character >= 'a' && *character <= 'z';
    return name + static_cast<char>(letter ? *character - 'a' + 'A' : *character);
}

} // namespace zb
