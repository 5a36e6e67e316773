#include "controls/desktop.h"
#include "controls/text_field.h"
#include "controls/user_hands.h"
#include "controls/window.h"
#include "unit/controls/silent_screen.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace zb {
namespace {

using ::testing::ElementsAre;

struct TextEditing : ::testing::Test {
    TextEditing() { window.show(); }

    void type(std::string_view text) { EXPECT_EQ(hands.type(field, text), ""); }

    SilentScreen screen;
    Desktop desktop{screen};
    Window window{desktop, "frmTest"};
    TextField field{window, "txtField"};
    TextField other{window, "txtOther"};
    UserHands hands{desktop};
    std::vector<std::string> log;
};

TEST_F(TextEditing, AForeignTextIsAKeyThatTheFilterSees) {
    field.onKeyDown = [this](KeyEvent key) { log.push_back("down" + std::to_string(key.code)); };
    field.onChange = [this] { log.push_back(field.text()); };
    field.onKeyUp = [this](KeyEvent key) { log.push_back("up" + std::to_string(key.code)); };
    EXPECT_EQ(hands.enterText(field, "\xC3\xA9"), "");
    EXPECT_THAT(log, ElementsAre("down229", "\xC3\xA9", "up229"));
    field.onKeyDown = [this](KeyEvent) { field.setLocked(true); };
    EXPECT_EQ(hands.enterText(field, "\xC3\x9F"), "");
    EXPECT_EQ(field.text(), "\xC3\xA9");
}

TEST_F(TextEditing, AKeyWithAnEffectOfTheScreenRunsTheFilterFirst) {
    field.onKeyDown = [this](KeyEvent key) { log.push_back(std::to_string(key.code)); };
    EXPECT_EQ(hands.keyDown(field, {'V', kControlKey}, [this] { field.insert("pasted"); }), "");
    EXPECT_THAT(log, ElementsAre("86"));
    EXPECT_EQ(field.text(), "pasted");
}

TEST_F(TextEditing, UndoTakesWordsBackAndRedoBringsThemAgain) {
    type("ab");
    field.insert("-pasted");
    type("c");
    field.undo();
    EXPECT_EQ(field.text(), "ab-pasted");
    field.undo();
    EXPECT_EQ(field.text(), "ab");
    field.undo();
    EXPECT_EQ(field.text(), "");
    field.undo();
    EXPECT_EQ(field.text(), "");
    field.redo();
    field.redo();
    EXPECT_EQ(field.text(), "ab-pasted");
    type("x");
    EXPECT_FALSE(field.canRedo());
}

TEST_F(TextEditing, UndoBringsTheSelectionBackAndReportsTheChange) {
    field.insert("abcd");
    field.select(1, 3);
    field.insert("");
    field.onChange = [this] { log.push_back(field.text()); };
    field.undo();
    EXPECT_THAT(log, ElementsAre("abcd"));
    EXPECT_EQ(field.selectedText(), "bc");
}

TEST_F(TextEditing, UndoDoesNotReachAfterATextOfTheProgram) {
    type("typed");
    field.setText("set");
    field.undo();
    EXPECT_EQ(field.text(), "set");
}

TEST_F(TextEditing, UndoPassesOverAChangeThatTheProgramRefused) {
    type("7");
    field.onChange = [this] {
        if (field.text().size() > 1)
            field.setText("7");
    };
    type("8");
    EXPECT_EQ(field.text(), "7");
    field.undo();
    EXPECT_EQ(field.text(), "");
}

TEST_F(TextEditing, ALockedFieldIsNotUndone) {
    type("a");
    field.setLocked(true);
    field.undo();
    EXPECT_EQ(field.text(), "a");
}

TEST_F(TextEditing, AFieldOfOneLineTakesTheFirstLineOfAnInsertion) {
    field.insert("one\r\ntwo");
    EXPECT_EQ(field.text(), "one");
}

TEST_F(TextEditing, ADroppedTextIsPastedAfterTheOther) {
    field.setText("ab");
    EXPECT_EQ(hands.drop({"cd", nullptr}, Target::whole(field)), "");
    EXPECT_EQ(field.text(), "abcd");
    EXPECT_EQ(hands.insertAt(field, 1, "X"), "");
    EXPECT_EQ(field.text(), "aXbcd");
    field.setLocked(true);
    EXPECT_EQ(hands.drop({"ef", nullptr}, Target::whole(field)), "");
    EXPECT_EQ(field.text(), "aXbcd");
}

} // namespace
} // namespace zb
