#pragma once

#include "controls/screen.h"
#include "controls/window.h"

namespace zb {

/// A screen on which every question is answered at once and nothing is seen.
class SilentScreen final : public Screen {
public:
    Answer showBox(const Box& /*box*/) override { return Answer::OK; }
    std::string pickFile(const FileDialog& /*dialog*/) override { return {}; }
    void runModal(Window& window) override { window.hide(); }
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}
};

} // namespace zb
