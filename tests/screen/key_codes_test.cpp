#include "desktop/key_codes.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <string>

namespace zb {
namespace {

struct KeyCase {
    std::string name;
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
    int code;
    int shift;
};

void PrintTo(const KeyCase& tested, std::ostream* out) {
    *out << tested.name;
}

struct KeyCodes : ::testing::TestWithParam<KeyCase> {};

TEST_P(KeyCodes, AreThoseOfAUsKeyboard) {
    const KeyCase& tested = GetParam();
    const QKeyEvent event(QEvent::KeyPress, tested.key, tested.modifiers, tested.text);
    const KeyMeaning meaning = meaningOf(event);
    ASSERT_TRUE(meaning.key);
    EXPECT_EQ(meaning.key->code, tested.code);
    EXPECT_EQ(meaning.key->shift, tested.shift);
    EXPECT_EQ(meaning.text, "");
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyCodes,
    ::testing::Values(KeyCase{"letter", Qt::Key_A, Qt::NoModifier, "a", 65, 0},
                      KeyCase{"capital", Qt::Key_A, Qt::ShiftModifier, "A", 65, kShiftKey},
                      KeyCase{"digit", Qt::Key_7, Qt::NoModifier, "7", 55, 0},
                      KeyCase{"star", Qt::Key_Asterisk, Qt::ShiftModifier, "*", 56, kShiftKey},
                      KeyCase{"underscore", Qt::Key_Underscore, Qt::ShiftModifier, "_", 189, kShiftKey},
                      KeyCase{"germanSlash", Qt::Key_Slash, Qt::ShiftModifier, "/", 191, 0},
                      KeyCase{"frenchDigit", Qt::Key_1, Qt::ShiftModifier, "1", 49, 0},
                      KeyCase{"altGrAt", Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@", 50,
                              kShiftKey},
                      KeyCase{"keypadDigit", Qt::Key_5, Qt::KeypadModifier, "5", 101, 0},
                      KeyCase{"keypadStar", Qt::Key_Asterisk, Qt::KeypadModifier, "*", 106, 0},
                      KeyCase{"keypadPlus", Qt::Key_Plus, Qt::KeypadModifier, "+", 107, 0},
                      KeyCase{"keypadMinus", Qt::Key_Minus, Qt::KeypadModifier, "-", 109, 0},
                      KeyCase{"keypadComma", Qt::Key_Comma, Qt::KeypadModifier, ",", 110, 0},
                      KeyCase{"keypadHomeWithoutNumLock", Qt::Key_Home, Qt::KeypadModifier, "", 36, 0},
                      KeyCase{"keypadEnter", Qt::Key_Enter, Qt::KeypadModifier, "\r", 13, 0},
                      KeyCase{"backspace", Qt::Key_Backspace, Qt::NoModifier, "\b", 8, 0},
                      KeyCase{"delete", Qt::Key_Delete, Qt::NoModifier, "\x7F", 46, 0},
                      KeyCase{"space", Qt::Key_Space, Qt::NoModifier, " ", 32, 0},
                      KeyCase{"f3", Qt::Key_F3, Qt::NoModifier, "", 114, 0},
                      KeyCase{"controlLetter", Qt::Key_V, Qt::ControlModifier, "\x16", 86, kControlKey},
                      KeyCase{"shiftHome", Qt::Key_Home, Qt::ShiftModifier, "", 36, kShiftKey}),
    [](const auto& tested) { return tested.param.name; });

TEST(KeyMeanings, ATextThatAUsKeyboardLacksComesByTheKeyOfAllSuchTexts) {
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Adiaeresis, Qt::NoModifier, QStringLiteral("\u00e4"));
    const KeyMeaning meaning = meaningOf(event);
    EXPECT_EQ(meaning.key, (KeyEvent{229, 0}));
    EXPECT_EQ(meaning.text, "\xC3\xA4");
}

TEST(KeyMeanings, AModifierAloneMeansNothing) {
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_FALSE(meaningOf(event).key);
    EXPECT_EQ(meaningOf(event).text, "");
}

} // namespace
} // namespace zb
