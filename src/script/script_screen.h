#pragma once

#include "controls/screen.h"
#include "script/foretold.h"

#include <functional>

namespace zb {

/// A screen that nobody sees: what has to be answered was foretold.
class ScriptScreen final : public Screen {
public:
    explicit ScriptScreen(Foretold& foretold) : foretold_(foretold) {}

    /// Carries out what the script says for a modal window.
    std::function<void(Window&)> onModal;

    Answer showBox(const Box& box) override { return foretold_.answerBox(box); }
    std::string pickFile(const FileDialog& dialog) override { return foretold_.answerDialog(dialog); }
    void runModal(Window& window) override { onModal(window); }
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}

private:
    Foretold& foretold_;
};

} // namespace zb
