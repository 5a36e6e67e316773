// Keyboards of two layouts, dead keys and an input method at a display: what is typed arrives in the store.
#include "screen/script/spots.h"
#include "screen/support/program_on_screen.h"
#include "screen/x11/display.h"
#include "screen/x11/key_symbols.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QProcess>
#include <QThread>

namespace zb::test {
namespace {

constexpr xcb_keysym_t kDeadAcute = 0xfe51;
constexpr xcb_keysym_t kDeadCircumflex = 0xfe52;
constexpr xcb_keysym_t kCompose = 0xff20;
constexpr xcb_keysym_t kSharpS = 0x00df;

struct Keyboard : ::testing::TestWithParam<const char*> {
    Keyboard() {
        program.application.start("");
        program.application.showEditor();
        display.steps().rest();
    }
    ~Keyboard() override { useLayout("us"); }

    void useLayout(const char* layout, const char* variant = "", const char* option = "") {
        ASSERT_EQ(
            QProcess::execute(QStringLiteral("setxkbmap"),
                              {QStringLiteral("-layout"), layout, QStringLiteral("-variant"), variant,
                               QStringLiteral("-option"), QString(), QStringLiteral("-option"), option}),
            0);
        display.steps().rest();
    }

    TextField& description() { return program.application.frmSECSEditor.txtDescription; }
    QLineEdit& line() {
        return program.widget<QLineEdit>(program.application.frmSECSEditor, "txtDescription");
    }
    void clickField() {
        display.click(spotOf(program.screen, Target::whole(description())));
        ASSERT_TRUE(line().hasFocus());
    }

    ProgramOnScreen program{"/"};
    Display display{0};
};

TEST_P(Keyboard, EntersWhatItsKeysBear) {
    const std::string text =
        "The quick brown fox, jumps over: [the] {lazy} dog? 0123456789 @ yY zZ | <=> \\ ~ -_";
    useLayout(GetParam());
    clickField();
    std::string entered;
    for (const char character : text) {
        // Project files keep this one for themselves.
        if (character == ':')
            continue;
        ASSERT_TRUE(display.strike(symbolOf(character))) << character;
        entered += character;
        ASSERT_EQ(description().text(), entered);
    }
    EXPECT_EQ(line().text().toStdString(), entered);
}
INSTANTIATE_TEST_SUITE_P(Layouts, Keyboard, ::testing::Values("us", "de"));

TEST_F(Keyboard, AKeyThatIsHeldForLongIsNotRepeated) {
    constexpr int kLongerThanTheFirstRepeat = 1000; // ms
    clickField();
    const auto key = display.server().strokeOf(symbolOf('a'));
    display.steps().run({[&] { display.server().setKey(key->code, true); }});
    QThread::msleep(kLongerThanTheFirstRepeat);
    display.steps().run({[&] { display.server().setKey(key->code, false); }});
    EXPECT_EQ(description().text(), "a");
}

TEST_F(Keyboard, AKeyThatNoUsKeyboardHasEntersItsLetter) {
    useLayout("de");
    clickField();
    ASSERT_TRUE(display.strike(symbolOf('a')));
    ASSERT_TRUE(display.strike(kSharpS));
    EXPECT_EQ(description().text(), "aß");
    EXPECT_EQ(line().text(), QStringLiteral("aß"));
}

TEST_F(Keyboard, ADeadKeyAndALetterEnterOneLetter) {
    useLayout("us", "intl");
    clickField();
    ASSERT_TRUE(display.strike(kDeadAcute));
    EXPECT_EQ(description().text(), "");
    ASSERT_TRUE(display.strike(symbolOf('e')));
    EXPECT_EQ(description().text(), "é");
    EXPECT_EQ(line().text(), QStringLiteral("é"));
}

TEST_F(Keyboard, ADeadKeyOfAnotherLayoutEntersOneLetter) {
    useLayout("de");
    clickField();
    ASSERT_TRUE(display.strike(kDeadAcute));
    ASSERT_TRUE(display.strike(symbolOf('e')));
    ASSERT_TRUE(display.strike(kDeadCircumflex));
    ASSERT_TRUE(display.strike(symbolOf('o')));
    EXPECT_EQ(description().text(), "éô");
    EXPECT_EQ(line().text(), QStringLiteral("éô"));
}

TEST_F(Keyboard, AComposeSequenceEntersOneLetter) {
    useLayout("us", "", "compose:menu");
    clickField();
    for (const xcb_keysym_t symbol : {kCompose, symbolOf('a'), symbolOf('e')}) {
        EXPECT_EQ(description().text(), "");
        ASSERT_TRUE(display.strike(symbol)) << symbol;
    }
    EXPECT_EQ(description().text(), "æ");
    EXPECT_EQ(line().text(), QStringLiteral("æ"));
}

TEST_F(Keyboard, AnInputMethodComposesAndThenEnters) {
    clickField();
    QInputMethodEvent composing(QStringLiteral("にほん"), {});
    QCoreApplication::sendEvent(&line(), &composing);
    EXPECT_EQ(description().text(), "");
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("日本"));
    QCoreApplication::sendEvent(&line(), &done);
    display.steps().rest();
    EXPECT_EQ(description().text(), "日本");
    EXPECT_EQ(line().text(), QStringLiteral("日本"));
}

} // namespace
} // namespace zb::test
