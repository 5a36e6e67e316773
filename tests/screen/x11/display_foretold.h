#pragma once

#include "screen/script/answering_screen.h"
#include "screen/x11/display.h"

namespace zb::test {

/// Boxes come up as the user sees them, and are answered by a click on their button. Modal windows run in
/// their own event loop.
class DisplayForetold final : public AnsweringScreen {
public:
    DisplayForetold(Screen& prepared, DesktopScreen& shown, Display& display)
        : AnsweringScreen(prepared, shown), display_(display) {}

    Answer showBox(const Box& box) override;
    void runModal(Window& window) override;

private:
    void pressAnswer(Answer answer);

    Display& display_;
};

} // namespace zb::test
