#include "controls/key_commands.h"

#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/text_field.h"
#include "controls/user_hands.h"
#include "controls/window.h"
#include "silent_screen.h"

#include <gtest/gtest.h>
#include <string>

namespace zb {
namespace {

constexpr KeyEvent kInsert{kKeyInsert, 0};

class Keyed final : public Window {
public:
    Keyed(Desktop& desktop, std::string name) : Window(desktop, std::move(name)) {
        first.onKeyDown = [this](KeyEvent key) { log += "down" + std::to_string(key.code) + " "; };
        first.onKeyUp = [this](KeyEvent key) { log += "up" + std::to_string(key.code) + " "; };
        remove.setShortcut("Del");
        remove.onClick = [this] { log += "delete "; };
    }
    std::string log;
    MenuEntry edit{*this, "mnuEdit", "Edit"};
    MenuEntry remove{*this, "mnuDelete", "Delete", &edit};
    TextField first{*this, "txtFirst"};
    List second{*this, "lvwSecond"};
};

class KeyCommandsTest : public testing::Test {
protected:
    KeyCommandsTest() {
        other.show();
        window.show();
    }
    void add(KeyEvent key, KeyPlace place, const std::string& word, bool runs = true) {
        desktop.keys().add({key, std::move(place), "", "", [this, word, runs] {
                                window.log += word + " ";
                                return runs;
                            }});
    }
    SilentScreen screen;
    Desktop desktop{screen};
    Keyed window{desktop, "frmKeyed"};
    Keyed other{desktop, "frmOther"};
    UserHands hands{desktop};
};

TEST_F(KeyCommandsTest, TheNearestPlaceCounts) {
    add(kInsert, {}, "all");
    add(kInsert, {&window}, "window");
    add(kInsert, {&window, {&window.second}}, "second");
    hands.key(window.second, kInsert);
    hands.key(window.first, kInsert);
    hands.key(other.second, kInsert);
    EXPECT_EQ(window.log, "second down45 window all ");
}

TEST_F(KeyCommandsTest, TheControlHearsTheKeyDownButNotItsEffectAndNotTheKeyUp) {
    add({'A', 0}, {&window, {&window.first}}, "ran");
    hands.key(window.first, {'A', 0});
    EXPECT_EQ(window.log, "down65 ran ");
    EXPECT_EQ(window.first.text(), "");
}

TEST_F(KeyCommandsTest, ACommandThatHasNothingToDoLeavesTheKeyToTheControl) {
    add({'A', 0}, {&window, {&window.first}}, "refused", false);
    hands.key(window.first, {'A', 0});
    EXPECT_EQ(window.log, "down65 refused up65 ");
    EXPECT_EQ(window.first.text(), "a");
}

TEST_F(KeyCommandsTest, OtherModifiersAreAnotherKey) {
    add(kInsert, {&window}, "plain");
    hands.key(window.second, {kKeyInsert, kShiftKey});
    EXPECT_EQ(window.log, "");
}

TEST_F(KeyCommandsTest, ShortcutsOfTheMenuBarComeFirst) {
    add({kKeyDelete, 0}, {&window}, "never");
    hands.key(window.second, {kKeyDelete, 0});
    EXPECT_EQ(window.log, "delete ");
}

TEST_F(KeyCommandsTest, AWindowWithoutAFocusedControlRunsOnlyWhatNeedsNone) {
    add(kInsert, {&window, {&window.second}}, "second");
    EXPECT_FALSE(hands.runCommandKey(window, kInsert));
    add(kInsert, {}, "all");
    EXPECT_TRUE(hands.runCommandKey(window, kInsert));
    EXPECT_EQ(window.log, "all ");
}

TEST_F(KeyCommandsTest, KeysAreNamedAsOnTheKeyboard) {
    EXPECT_EQ(nameOfKey({'1', kControlKey | kShiftKey}), "Ctrl+Shift+1");
    EXPECT_EQ(nameOfKey({'P', kControlKey}), "Ctrl+P");
    EXPECT_EQ(nameOfKey({kKeyUp, kAltKey}), "Alt+Up");
    EXPECT_EQ(nameOfKey({118, 0}), "F7");
}

} // namespace
} // namespace zb
