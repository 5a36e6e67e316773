#pragma once

#include "controls/screen.h"
#include "desktop/desktop_screen.h"

#include <exception>

namespace zb::test {

/// Shows everything in the real windows, and answers boxes, file dialogs and modal windows with the answers
/// of a script. A missing answer is a failure; it is stored until the event that caused it has been handled,
/// since exceptions must not pass through the toolkit.
class AnsweringScreen : public Screen {
public:
    AnsweringScreen(Screen& prepared, DesktopScreen& shown) : prepared_(prepared), shown_(shown) {}

    /// Throws the stored failure.
    void throwKept();

    Answer showBox(const Box& box) override;
    std::string pickFile(const FileDialog& dialog) override;
    void runModal(Window& window) override;
    void bringToFront(Window& window) override { shown_.bringToFront(window); }
    void openPopup(PopupMenu& menu) override { shown_.openPopup(menu); }
    void forget(Window& window) override { shown_.forget(window); }
    void putOnClipboard(const SharedClipboard& contents) override { shown_.putOnClipboard(contents); }
    SharedClipboard clipboard() override { return shown_.clipboard(); }
    std::string timeOfDay() override { return prepared_.timeOfDay(); }

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
    Screen& prepared() { return prepared_; }
    DesktopScreen& shown() { return shown_; }

private:
    Screen& prepared_;
    DesktopScreen& shown_;
    std::exception_ptr kept_;
};

} // namespace zb::test
