// Runs scripts through the real windows: zeltobench-screen-script [--display [--jitter PIXELS]] FILE... It
// prints and answers what `zbc script` does. With --display the hands are those of an X server: its mouse,
// its keyboard and its clipboard, under a window manager.
#include "screen/script/answering_screen.h"
#include "screen/script/screen_eyes.h"
#include "screen/script/screen_hands.h"
#include "screen/support/palettes.h"
#include "screen/x11/display_foretold.h"
#include "screen/x11/display_hands.h"
#include "script/application_program.h"
#include "script/script_runner.h"

#include <QApplication>

#include <iostream>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace {

using namespace zb;

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kBadUsage = 2;
constexpr int kUnreadable = 3;

/// The program of one script in its windows. The members are in order of dependency.
class ProgramInWindows final : public ScriptedProgram {
public:
    /// Without a display the windows get events that nobody has made.
    ProgramInWindows(Screen& prepared, const std::string& applicationFolder, test::Display* display)
        : display_(display), screen_(makeScreen(prepared)), program_(*screen_, applicationFolder) {
        program_.onMade = [this](Application& application) {
            windows_.detach();
            windows_.attach(application.desktop);
        };
    }

    DesktopScreen& windows() { return windows_; }
    test::AnsweringScreen& screen() { return *screen_; }
    test::Display* display() { return display_; }

    void start(const std::string& commandLine) override {
        program_.start(commandLine);
        screen_->throwKept();
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
    std::unique_ptr<test::AnsweringScreen> makeScreen(Screen& prepared) {
        if (display_ != nullptr)
            return std::make_unique<test::DisplayForetold>(prepared, windows_, *display_);
        return std::make_unique<test::AnsweringScreen>(prepared, windows_);
    }

    test::Display* display_;
    DesktopScreen windows_;
    std::unique_ptr<test::AnsweringScreen> screen_;
    ApplicationProgram program_;
};

/// Acts on the windows and then reports questions without an answer.
class ReportingHands final : public Hands {
public:
    ReportingHands(ProgramInWindows& program) : program_(program), hands_(makeHands(program)) {}

    Refusal click(const Target& t) override { return tell(hands_->click(t)); }
    Refusal controlClick(const Target& t) override { return tell(hands_->controlClick(t)); }
    Refusal rightClick(const Target& t) override { return tell(hands_->rightClick(t)); }
    Refusal doubleClick(const Target& t) override { return tell(hands_->doubleClick(t)); }
    Refusal dismiss() override { return tell(hands_->dismiss()); }
    Refusal focus(Control& c) override { return tell(hands_->focus(c)); }
    Refusal activate(Window& w) override { return tell(hands_->activate(w)); }
    Refusal close(Window& w) override { return tell(hands_->close(w)); }
    Refusal type(Control& c, std::string_view text) override { return tell(hands_->type(c, text)); }
    Refusal key(Control& c, KeyEvent k) override { return tell(hands_->key(c, k)); }
    Refusal paste(Control& c, std::string_view text) override { return tell(hands_->paste(c, text)); }
    Refusal choose(Control& c, std::string_view text) override { return tell(hands_->choose(c, text)); }
    Refusal drag(const Target& from, const Target& to) override { return tell(hands_->drag(from, to)); }
    Refusal drop(const DragData& data, const Target& to) override { return tell(hands_->drop(data, to)); }

private:
    Refusal tell(Refusal refusal) {
        program_.screen().throwKept();
        return refusal;
    }

    static std::unique_ptr<Hands> makeHands(ProgramInWindows& program) {
        if (program.display() != nullptr)
            return std::make_unique<test::DisplayHands>(program, program.windows(), *program.display());
        return std::make_unique<test::ScreenHands>(program, program.windows());
    }

    ProgramInWindows& program_;
    std::unique_ptr<Hands> hands_;
};

ScriptUser userOfWindows() {
    return {[](ScriptedProgram& program) {
                return std::make_unique<ReportingHands>(static_cast<ProgramInWindows&>(program));
            },
            [](ScriptedProgram& program) {
                return std::make_unique<test::ScreenEyes>(program,
                                                          static_cast<ProgramInWindows&>(program).windows());
            }};
}

/// What the command line asks for.
struct Options {
    bool display = false;
    int jitter = 0;
    std::vector<std::string> files;
};

/// Nothing when it asks for nothing that is known.
std::optional<Options> optionsOf(std::span<char*> arguments) {
    Options options;
    const std::vector<std::string_view> words(arguments.begin(), arguments.end());
    for (std::size_t i = 0; i < words.size(); ++i) {
        bool good = true;
        if (words[i] == "--display")
            options.display = true;
        else if (words[i] == "--jitter" && i + 1 < words.size())
            options.jitter = QByteArray(words[++i].data()).toInt(&good);
        else
            options.files.emplace_back(words[i]);
        if (!good)
            return std::nullopt;
    }
    return options.files.empty() ? std::nullopt : std::optional(options);
}

/// The clicks of scripts follow each other faster than a hand's: none of them is the second of a double
/// click, and no list waits for the end of one.
std::unique_ptr<test::Display> sitDown(const Options& options) {
    if (!options.display)
        return nullptr;
    QApplication::setDoubleClickInterval(0);
    return std::make_unique<test::Display>(options.jitter);
}

int runScripts(const Options& options, test::Display* display) {
    const auto makeProgram = [display](Screen& screen, const std::string& applicationFolder) {
        return std::make_unique<ProgramInWindows>(screen, applicationFolder, display);
    };
    ScriptRunner runner(makeProgram, std::cout, std::cerr, userOfWindows());
    int result = kDone;
    for (const std::string& file : options.files) {
        const ScriptRunner::Outcome outcome = runner.run(file);
        if (outcome == ScriptRunner::Outcome::Failed)
            result = kFailed;
        else if (outcome == ScriptRunner::Outcome::Unreadable && result == kDone)
            result = kUnreadable;
    }
    return result;
}

} // namespace

int main(int argc, char* argv[]) {
    const auto options = optionsOf(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    if (!options) {
        std::cerr << "usage: zeltobench-screen-script [--display [--jitter PIXELS]] FILE...\n";
        return kBadUsage;
    }
    // The toolkit has an option of the same name.
    int own = 1;
    QApplication qt(own, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    test::dress(qt, test::Shade::Light);
    const auto display = sitDown(*options);
    return runScripts(*options, display.get());
}
