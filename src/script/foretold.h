#pragma once

#include "controls/screen.h"
#include "script/script_failure.h"
#include "script/script_text.h"

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <optional>
#include <string>

namespace zb {

/// What a script has said beforehand about boxes, file dialogs and modal windows, and which of those were
/// shown. Whoever shows one asks here for the answer.
class Foretold {
public:
    /// Each box and dialog is told on `out` as it is shown.
    explicit Foretold(std::ostream& out) : out_(out) {}

    void sayAnswer(std::size_t line, Answer answer) { answers_.push_back({line, answer}); }
    void sayPick(std::size_t line, std::string path) { picks_.push_back({line, std::move(path)}); }
    /// The command must live as long as this does.
    void sayDuring(std::string window, const ScriptCommand& during);

    /// Each throws ScriptFailure when nothing that fits was said.
    /// @{
    Answer answerBox(const Box& box);
    std::string answerDialog(const FileDialog& dialog);
    const ScriptCommand& takeDuring(const std::string& window);
    /// @}
    /// The first failure that any of them has thrown: a handler of the program that keeps faults to itself
    /// must not swallow it.
    const std::optional<ScriptFailure>& failure() const { return failure_; }

    /// The oldest one that was not looked at yet, which counts as looked at then.
    std::optional<Box> lookAtBox();
    std::optional<FileDialog> lookAtDialog();

    /// Something that was said and not used.
    struct Unused {
        std::size_t line = 0;
        std::string what;
    };
    /// The one said first.
    std::optional<Unused> firstUnused() const;

    /// To be called before each command: boxes are counted from here on, so that a program that shows them
    /// without an end is stopped.
    void startCounting() { shown_ = 0; }

private:
    template<typename What>
    struct Said {
        std::size_t line;
        What what;
    };

    struct During {
        std::string window;
        const ScriptCommand* command;
    };

    void count();
    [[noreturn]] void fail(const std::string& expected, const std::string& found);

    std::ostream& out_;
    std::deque<Said<Answer>> answers_;
    std::deque<Said<std::string>> picks_;
    std::deque<During> durings_;
    std::deque<Box> boxes_;
    std::deque<FileDialog> dialogs_;
    std::optional<ScriptFailure> failure_;
    int shown_ = 0;
};

/// The names that scripts use.
/// @{
std::string_view iconName(BoxIcon icon);
std::vector<std::string> buttonNames(BoxButtons buttons);
std::string_view answerName(Answer answer);
std::optional<Answer> answerOf(std::string_view name);
/// @}

} // namespace zb
