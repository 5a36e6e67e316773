#pragma once

#include <string>
#include <vector>

namespace zb {

class Window;
class PopupMenu;

enum class Answer { OK, Cancel, Yes, No };
enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxButtons { OK, YesNo, YesNoCancel };

/// A message box. An empty title stands for the application's own.
struct Box {
    std::string text;
    std::string title;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::OK;
};

/// An open-file dialog. `filter` is pairs of description and pattern, joined by "|".
struct FileDialog {
    std::string title;
    std::string filter;
    std::string extension;
    std::string folder;
};

/// What only a screen can do. A script and the desktop program each have one.
class Screen {
public:
    virtual ~Screen() = default;
    virtual Answer showBox(const Box& box) = 0;
    /// The path chosen; empty when the dialog was cancelled.
    virtual std::string pickFile(const FileDialog& dialog) = 0;
    /// Returns when the window, already visible, has been hidden.
    virtual void runModal(Window& window) = 0;
    /// The window has come up or was made active.
    virtual void bringToFront(Window& window) = 0;
    virtual void openPopup(PopupMenu& menu) = 0;
    /// The window is being destroyed; its controls are gone already.
    virtual void forget(Window& /*window*/) {}
    /// Starts the platform's system information tool; false where there is none.
    virtual bool showSystemInformation() { return false; }
};

} // namespace zb
