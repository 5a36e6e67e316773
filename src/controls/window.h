#pragma once

#include "controls/control.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

class Button;
class Desktop;

/// The pointer that shows over a window.
enum class Pointer { Default = 0, Sizing = 9, Hourglass = 11 };

/// A window: named control stores and the handlers of their events. Windows derive from it and hold their
/// controls as members, declared in tab order.
class Window {
public:
    Window(Desktop& desktop, std::string name);
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    const std::string& name() const { return name_; }
    Desktop& desktop() const { return desktop_; }

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    /// Shown before the caption in the title bar, such as the name of a document; empty for none.
    const std::string& titleNote() const { return titleNote_; }
    void setTitleNote(std::string note);
    bool visible() const { return visible_; }
    Pointer pointer() const { return pointer_; }
    void setPointer(Pointer pointer);

    /// Shows the window and makes it active. A visible window comes to the front.
    void show();
    void hide();
    /// Returns when the window has been hidden.
    void showModal();

    /// All controls, in the order in which they were declared.
    const std::vector<Control*>& controls() const { return controls_; }
    /// By exact name; null when there is none.
    Control* find(std::string_view name) const;

    /// The control that has the focus whenever the window is active; may be null.
    Control* focusControl() const { return focusControl_; }
    /// The control that gets the focus when the window is first shown; by default the first one that can be
    /// used.
    void setFirstFocus(Control& control) { focusControl_ = &control; }

    /// The button that Escape presses; may be null.
    void setCancelButton(Button& button) { cancelButton_ = &button; }
    Button* cancelButton() const { return cancelButton_; }

    /// The button that Enter presses in a field of one line; may be null.
    void setDefaultButton(Button& button) { defaultButton_ = &button; }
    Button* defaultButton() const { return defaultButton_; }

    /// The window that contains this one as a document; null for an independent window. A press in the tool
    /// bar of a frame leaves the document active.
    void setFrame(Window& frame) { frame_ = &frame; }
    Window* frame() const { return frame_; }

    /// The user closes the window by its frame. The default hides it.
    virtual void closeByFrame();

    std::function<void()> onActivate;
    std::function<void()> onDeactivate;
    Bell bell;

private:
    friend class Control;
    friend class Desktop;
    void add(Control& control);
    void remove(const Control& control);
    Control* firstFocusable() const;
    void passFocusOnWhenLost();
    void ring(Change change) const;

    Desktop& desktop_;
    std::string name_;
    std::string caption_;
    std::string titleNote_;
    bool visible_ = false;
    Pointer pointer_ = Pointer::Default;
    Control* focusControl_ = nullptr;
    Button* cancelButton_ = nullptr;
    Button* defaultButton_ = nullptr;
    Window* frame_ = nullptr;
    std::vector<Control*> controls_;
    std::unordered_map<std::string, Control*> byName_;
};

/// Shows the hourglass on a window while a command runs, and the default pointer afterwards in any case.
class BusyPointer {
public:
    explicit BusyPointer(Window& window) : window_(window) { window_.setPointer(Pointer::Hourglass); }
    ~BusyPointer() { window_.setPointer(Pointer::Default); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Window& window_;
};

} // namespace zb
