#pragma once

#include "controls/screen.h"
#include "desktop/desktop_screen.h"

#include <exception>

namespace zb::test {

/// Shows everything in the real windows, and has boxes, file dialogs and modal windows answered by what a
/// script foretold. What a script did not foretell is a failure; it is kept until the event that led there
/// has been handled, since nothing may be thrown through the toolkit.
class ForetoldScreen : public Screen {
public:
    ForetoldScreen(Screen& foretold, DesktopScreen& shown) : foretold_(foretold), shown_(shown) {}

    /// Throws what was kept.
    void throwKept();

    Answer showBox(const Box& box) override;
    std::string pickFile(const FileDialog& dialog) override;
    void runModal(Window& window) override;
    void bringToFront(Window& window) override { shown_.bringToFront(window); }
    void openPopup(PopupMenu& menu) override { shown_.openPopup(menu); }
    void forget(Window& window) override { shown_.forget(window); }

protected:
    /// Keeps what is thrown meanwhile, and then goes on with the other result.
    template<typename Result, typename Ask>
    Result keep(Result otherwise, Ask ask) {
        if (kept_)
            return otherwise;
        try {
            return ask();
        } catch (...) {
            kept_ = std::current_exception();
            return otherwise;
        }
    }
    Screen& foretold() { return foretold_; }
    DesktopScreen& shown() { return shown_; }

private:
    Screen& foretold_;
    DesktopScreen& shown_;
    std::exception_ptr kept_;
};

} // namespace zb::test
