#pragma once

#include "controls/screen.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace zb::test {

// A screen without a user: boxes are recorded and answered with the prepared answers, otherwise with the
// answer that changes least.
class SilentScreen final : public Screen {
public:
    std::vector<Box> boxes;
    std::deque<Answer> answers;
    std::deque<std::string> picks;
    std::function<void(Window&)> modal;
    std::function<void()> onBox;
    // What is to be called later; the test calls it.
    struct Later {
        std::chrono::milliseconds delay;
        std::function<void()> run;
    };
    std::vector<Later> later;
    /// Does long works in place of the screen; false when it cancelled one.
    std::function<bool(const std::function<void(const Progress&)>& work)> longWork;

    Answer showBox(const Box& box) override {
        boxes.push_back(box);
        if (onBox)
            onBox();
        if (box.buttons == BoxButtons::OK)
            return Answer::OK;
        if (answers.empty())
            return Answer::Cancel;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::string pickFile(const FileDialog& /*dialog*/) override {
        if (picks.empty())
            return {};
        std::string path = picks.front();
        picks.pop_front();
        return path;
    }
    void runModal(Window& window) override {
        if (modal)
            modal(window);
    }
    bool doLongWork(const std::string& what, const std::function<void(const Progress&)>& work) override {
        return longWork ? longWork(work) : Screen::doLongWork(what, work);
    }
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}
    void callLater(std::chrono::milliseconds delay, std::function<void()> function) override {
        later.push_back({delay, std::move(function)});
    }
    void putOnClipboard(const SharedClipboard& contents) override { shared_ = contents; }
    SharedClipboard clipboard() override { return shared_; }
    std::string timeOfDay() override { return "12:00"; }

private:
    SharedClipboard shared_;
};

} // namespace zb::test
