#pragma once

#include "controls/screen.h"
#include "script/prepared_answers.h"

#include <functional>

namespace zb {

/// A screen without a display: all answers are given in advance.
class ScriptScreen final : public Screen {
public:
    explicit ScriptScreen(PreparedAnswers& prepared) : prepared_(prepared) {}

    /// Runs the commands of the script for a modal window.
    std::function<void(Window&)> onModal;

    Answer showBox(const Box& box) override { return prepared_.answerBox(box); }
    std::string pickFile(const FileDialog& dialog) override { return prepared_.answerDialog(dialog); }
    void runModal(Window& window) override { onModal(window); }
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}
    void putOnClipboard(const SharedClipboard& contents) override { clipboard_ = contents; }
    SharedClipboard clipboard() override { return clipboard_; }
    /// Scripts run alike at every time of the day.
    std::string timeOfDay() override { return "12:00"; }

private:
    PreparedAnswers& prepared_;
    SharedClipboard clipboard_;
};

} // namespace zb
