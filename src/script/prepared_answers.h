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

/// The answers that a script has given in advance for boxes, file dialogs and modal windows, and which of
/// those were shown. A screen requests its answers here.
class PreparedAnswers {
public:
    /// Each box and dialog is printed on `out` as it is shown.
    explicit PreparedAnswers(std::ostream& out) : out_(out) {}

    void sayAnswer(std::size_t line, Answer answer) { answers_.push_back({line, answer}); }
    void sayPick(std::size_t line, std::string path) { picks_.push_back({line, std::move(path)}); }
    /// The command must live as long as this object.
    void sayDuring(std::string window, const ScriptCommand& during);

    /// Each throws ScriptFailure when there is no matching answer.
    /// @{
    Answer answerBox(const Box& box);
    std::string answerDialog(const FileDialog& dialog);
    const ScriptCommand& takeDuring(const std::string& window);
    /// @}
    /// The first failure that any of them has thrown: a handler of the program that catches exceptions must
    /// not hide it.
    const std::optional<ScriptFailure>& failure() const { return failure_; }

    /// The oldest one that was not checked yet; it then counts as checked.
    std::optional<Box> lookAtBox();
    std::optional<FileDialog> lookAtDialog();

    /// An answer that was not used.
    struct Unused {
        std::size_t line = 0;
        std::string what;
    };
    /// The first one.
    std::optional<Unused> firstUnused() const;

    /// Call this before each command: boxes are counted from here, so that a program that shows them
    /// endlessly is stopped.
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
