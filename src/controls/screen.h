#pragma once

#include "platform/progress.h"

#include <chrono>
#include <functional>
#include <string>

namespace zb {

class Window;
class PopupMenu;

enum class Answer { OK, Cancel, Yes, No };
enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxButtons { OK, YesNo, YesNoCancel };

/// A message box. An empty title means the application's title.
struct Box {
    std::string text;
    std::string title;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::OK;
};

/// A dialog that asks for a file. `filter` is pairs of description and pattern, joined by "|".
struct FileDialog {
    std::string title;
    std::string filter;
    std::string extension;
    std::string folder;
    bool saves = false; ///< asks for the name of a file to write, and whether one that exists is replaced
};

/// What is on the clipboard that all programs share.
struct SharedClipboard {
    std::string text; ///< plain text; empty when there is none
    /// Messages or items that this program, or another instance of it, has put there: texts that lose
    /// nothing. Empty when another program put something there.
    std::string nodes;

    bool operator==(const SharedClipboard&) const = default;
};

/// The services of a screen. A script and the desktop program each have one.
class Screen {
public:
    virtual ~Screen() = default;
    virtual Answer showBox(const Box& box) = 0;
    /// The chosen path; empty when the dialog was cancelled.
    virtual std::string pickFile(const FileDialog& dialog) = 0;
    /// Returns when the window, which is already visible, has been hidden.
    virtual void runModal(Window& window) = 0;
    /// Does a work that touches no window and may take long. A screen may do it on another thread, show how
    /// far it is and let the user cancel it; `what` says what is being done. False when it was cancelled.
    virtual bool doLongWork(const std::string& /*what*/, const std::function<void(const Progress&)>& work) {
        work(Progress());
        return true;
    }
    /// The window was shown or made active.
    virtual void bringToFront(Window& window) = 0;
    virtual void openPopup(PopupMenu& menu) = 0;
    /// The window is being destroyed; its controls no longer exist.
    virtual void forget(Window& /*window*/) {}
    /// Starts the system information tool of the platform; false when there is none.
    virtual bool showSystemInformation() { return false; }
    /// Shows a file in the program that the user has for it, such as the browser; false when there is none.
    virtual bool openFile(const std::string& /*path*/) { return false; }
    /// Runs the function once, after this time, between two actions of the user. A screen without a clock
    /// never does.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): a screen with a clock keeps the function.
    virtual void callLater(std::chrono::milliseconds /*delay*/, std::function<void()> /*function*/) {}
    /// A screen without a clipboard has an empty one.
    /// @{
    virtual void putOnClipboard(const SharedClipboard& /*contents*/) {}
    virtual SharedClipboard clipboard() { return {}; }
    /// @}
    /// The local time, as "19:46".
    virtual std::string timeOfDay();
};

} // namespace zb
