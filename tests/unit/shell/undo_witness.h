#pragma once

#include "controls/undo_history.h"
#include "controls/user_hands.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zb::test {

/// Reports the first line that differs.
inline void expectEqual(const std::string& now, const std::string& wanted, const std::string& when) {
    if (now == wanted)
        return;
    std::istringstream lines(now);
    std::istringstream wantedLines(wanted);
    std::string line;
    std::string wantedLine;
    do {
        if (!std::getline(lines, line))
            line = "(the end)";
        if (!std::getline(wantedLines, wantedLine))
            wantedLine = "(the end)";
    } while (line == wantedLine && lines);
    FAIL() << when << "\n  " << line << "\n  instead of\n  " << wantedLine;
}

/// What one document was like before each of its steps.
class Witness {
public:
    /// What an action has left may be dumped in another way than what an undo or redo has left, when that
    /// takes less time and gives the same text.
    Witness(UndoHistory& history, std::function<std::string()> dump,
            std::function<std::string()> dumpAfterAction = {})
        : history_(history), dump_(std::move(dump)),
          dumpAfterAction_(dumpAfterAction ? std::move(dumpAfterAction) : dump_), now_(dump_()) {
        // An action may make several steps.
        history_.addListener([this] { historyChanged(); });
    }

    /// Takes note of what an action or a step of it has left.
    void look() {
        if (moves_)
            return;
        std::string before = std::exchange(now_, dumpAfterAction_());
        if (history_.count() > states_.size()) {
            states_.push_back(std::move(before));
            // "Change" is what a step is called that nobody has named.
            EXPECT_NE(history_.undoName(), "Change");
            EXPECT_NE(history_.undoName(), "");
        }
        states_.resize(history_.count());
    }

    void undo() {
        ASSERT_TRUE(history_.canUndo());
        moves_ = true;
        history_.undo();
        moves_ = false;
        now_ = dump_();
        ASSERT_EQ(history_.count() + 1, states_.size());
        expectEqual(now_, states_.back(), "after the undo of " + history_.redoName());
        states_.pop_back();
    }

    /// Undoes so many steps and redoes them, comparing each state on both ways.
    void goBackAndForth(std::size_t steps) {
        std::vector<std::string> passed;
        std::vector<std::string> before;
        for (std::size_t i = 0; i < steps; ++i) {
            passed.push_back(now_);
            before.push_back(states_.back());
            undo();
            if (testing::Test::HasFatalFailure())
                return;
        }
        for (; !passed.empty(); passed.pop_back()) {
            ASSERT_TRUE(history_.canRedo());
            moves_ = true;
            history_.redo();
            moves_ = false;
            now_ = dump_();
            expectEqual(now_, passed.back(), "after the redo of " + history_.undoName());
            states_.push_back(before.back());
            before.pop_back();
        }
    }

    std::size_t steps() const { return states_.size(); }

private:
    /// A joint step is made in one document after the other. When the first one drops its redone steps, this
    /// one does too, before its own changes are a step: what was there before them is still to be noted.
    void historyChanged() {
        if (!history_.hasChanged())
            look();
        else if (!moves_ && history_.count() < states_.size())
            states_.resize(history_.count());
    }

    UndoHistory& history_;
    std::function<std::string()> dump_;
    std::function<std::string()> dumpAfterAction_;
    std::string now_;
    bool moves_ = false;
    std::vector<std::string> states_; // before each step
};

/// Hands whose every action is looked at by witnesses.
class WatchedHands {
public:
    explicit WatchedHands(Desktop& desktop) : hands_(desktop) {}

    void click(const Target& target) {
        watch([&] { hands_.click(target); });
    }
    void rightClick(const Target& target) {
        watch([&] { hands_.rightClick(target); });
    }
    void drag(const Target& from, const Target& to) {
        watch([&] { hands_.drag(from, to); });
    }
    void key(Control& control, KeyEvent key) {
        watch([&] { hands_.key(control, key); });
    }
    void type(Control& control, const std::string& text) {
        watch([&] { hands_.type(control, text); });
    }
    void paste(Control& control, const std::string& text) {
        watch([&] { hands_.paste(control, text); });
    }
    void choose(Control& control, const std::string& text) {
        watch([&] { hands_.choose(control, text); });
    }

    std::function<void()> look;

private:
    // What is done in a dialog belongs to the action that opened it.
    void watch(const std::function<void()>& action) {
        ++depth_;
        action();
        if (--depth_ == 0 && look)
            look();
    }

    UserHands hands_;
    int depth_ = 0;
};

} // namespace zb::test
