// Runs scripts through the real windows: zeltobench-screen-script FILE... It prints and answers what `zbc
// script` does.
#include "screen/script/foretold_screen.h"
#include "screen/script/screen_eyes.h"
#include "screen/script/screen_hands.h"
#include "screen/support/palettes.h"
#include "script/application_program.h"
#include "script/script_runner.h"

#include <QApplication>

#include <iostream>

namespace {

using namespace zb;

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kBadUsage = 2;
constexpr int kUnreadable = 3;

/// One script's program in its windows. The parts go in the order in which they need each other.
class ProgramInWindows final : public ScriptedProgram {
public:
    ProgramInWindows(Screen& foretold, const std::string& applicationFolder)
        : screen_(foretold, windows_), program_(screen_, applicationFolder) {
        program_.onMade = [this](Application& application) {
            windows_.detach();
            windows_.attach(application.desktop);
        };
    }

    DesktopScreen& windows() { return windows_; }
    test::ForetoldScreen& screen() { return screen_; }

    void start(const std::string& commandLine) override {
        program_.start(commandLine);
        screen_.throwKept();
    }
    bool running() const override { return program_.running(); }
    Desktop& desktop() override { return program_.desktop(); }
    std::optional<PropertyValue> property(std::string_view name) override { return program_.property(name); }
    std::vector<std::string> propertyNames() const override { return program_.propertyNames(); }
    std::string setting(std::string_view name) override { return program_.setting(name); }
    void setSetting(std::string_view name, const std::string& value) override {
        program_.setSetting(name, value);
    }
    void setGeneratorAnswer(const std::string& text) override { program_.setGeneratorAnswer(text); }
    CodePage codePage() override { return program_.codePage(); }

private:
    DesktopScreen windows_;
    test::ForetoldScreen screen_;
    ApplicationProgram program_;
};

/// Acts on the windows and then tells what the script had not foretold.
class TellingHands final : public Hands {
public:
    TellingHands(ProgramInWindows& program) : program_(program), hands_(program, program.windows()) {}

    Refusal click(const Target& t) override { return tell(hands_.click(t)); }
    Refusal controlClick(const Target& t) override { return tell(hands_.controlClick(t)); }
    Refusal rightClick(const Target& t) override { return tell(hands_.rightClick(t)); }
    Refusal doubleClick(const Target& t) override { return tell(hands_.doubleClick(t)); }
    Refusal dismiss() override { return tell(hands_.dismiss()); }
    Refusal focus(Control& c) override { return tell(hands_.focus(c)); }
    Refusal activate(Window& w) override { return tell(hands_.activate(w)); }
    Refusal close(Window& w) override { return tell(hands_.close(w)); }
    Refusal type(Control& c, std::string_view text) override { return tell(hands_.type(c, text)); }
    Refusal key(Control& c, KeyEvent k) override { return tell(hands_.key(c, k)); }
    Refusal paste(Control& c, std::string_view text) override { return tell(hands_.paste(c, text)); }
    Refusal choose(Control& c, std::string_view text) override { return tell(hands_.choose(c, text)); }
    Refusal drag(const Target& from, const Target& to) override { return tell(hands_.drag(from, to)); }
    Refusal drop(const DragData& data, const Target& to) override { return tell(hands_.drop(data, to)); }

private:
    Refusal tell(Refusal refusal) {
        program_.screen().throwKept();
        return refusal;
    }

    ProgramInWindows& program_;
    test::ScreenHands hands_;
};

ScriptUser userOfWindows() {
    return {[](ScriptedProgram& program) {
                return std::make_unique<TellingHands>(static_cast<ProgramInWindows&>(program));
            },
            [](ScriptedProgram& program) {
                return std::make_unique<test::ScreenEyes>(program,
                                                          static_cast<ProgramInWindows&>(program).windows());
            }};
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication qt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    test::dress(qt, test::Shade::Light);
    if (argc < 2) {
        std::cerr << "usage: zeltobench-screen-script FILE...\n";
        return kBadUsage;
    }
    const auto makeProgram = [](Screen& screen, const std::string& applicationFolder) {
        return std::make_unique<ProgramInWindows>(screen, applicationFolder);
    };
    ScriptRunner runner(makeProgram, std::cout, std::cerr, userOfWindows());
    int result = kDone;
    for (int i = 1; i < argc; ++i) {
        const ScriptRunner::Outcome outcome = runner.run(argv[i]);
        if (outcome == ScriptRunner::Outcome::Failed)
            result = kFailed;
        else if (outcome == ScriptRunner::Outcome::Unreadable && result == kDone)
            result = kUnreadable;
    }
    return result;
}
