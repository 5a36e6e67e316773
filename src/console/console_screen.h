#pragma once

#include "controls/screen.h"

#include <string>

namespace zb {

/// The screen of a console that asks nobody: boxes are remembered for the one line that tells of a fault.
class ConsoleScreen final : public Screen {
public:
    /// The text of the last box, on one line.
    const std::string& lastText() const { return lastText_; }

    Answer showBox(const Box& box) override;
    std::string pickFile(const FileDialog& /*dialog*/) override { return {}; }
    void runModal(Window& /*window*/) override {}
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}

private:
    std::string lastText_;
};

} // namespace zb
