#pragma once

#include "controls/drag.h"
#include "controls/key.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace zb {

class Control;
class PopupMenu;
class Window;

/// What a store reports to its screen: enough to know what to read again.
enum class Change {
    State,     ///< enabled, visible, locked, caption, checked, pointer, ...
    Value,     ///< text, value, chosen entry
    Selection, ///< selected text, row or node; the caret
    Rows,      ///< rows, columns, entries, panels or nodes were added, removed or changed
};

/// One listener per store: the screen that shows it.
using Bell = std::function<void(Change)>;

/// A control store: the state and behaviour of one control of a window, independent of a screen. Handlers of
/// the program are set in the on... members; the actions of the user are in UserHands.
class Control {
public:
    enum class Kind {
        TextField,
        Label,
        CheckBox,
        Option,
        Button,
        Pane,
        MenuEntry,
        PopupMenu,
        Toolbar,
        StatusBar,
        Combo,
        FolderField,
        List,
        Tree,
    };

    /// `name` is the address of the control within its window ("txtStream", "optSrcGen[1]"). A control
    /// within a pane can be used only while the pane is enabled and visible.
    Control(Kind kind, Window& window, std::string name, Control* pane = nullptr);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    Window& window() const { return window_; }
    Control* pane() const { return pane_; }

    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    /// A control that is disabled or hidden while it has the focus passes the focus to the next one.
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    /// Enabled and visible, and all panes around it are too.
    bool usable() const;

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string text);

    /// Whether clicks and Tab bring the focus here.
    bool takesFocus() const;
    /// A press on the control leaves the active window, and the focus in it, as they are.
    bool leavesFocus() const { return leavesFocus_; }
    void setLeavesFocus() { leavesFocus_ = true; }
    bool focused() const;
    /// Moves the focus here; no effect on a control that cannot be used.
    void setFocus();

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    std::function<void(KeyEvent)> onKeyDown;
    std::function<void(KeyEvent)> onKeyUp;

    /// The pop-up that a right click on a list or tree opens, for one whose own handlers open none; null for
    /// none. Whether the click selects is up to those handlers.
    /// @{
    PopupMenu* contextMenu() const { return contextMenu_; }
    void setContextMenu(PopupMenu* menu) { contextMenu_ = menu; }
    /// @}

    /// Starts of a drag on the control as a whole, and drops on it. Trees and lists have separate ones for
    /// their members.
    std::function<std::optional<DragData>()> onDragData;
    std::function<void(const DragData&)> onDropData;

    Bell bell;
    void ring(Change change) const;

private:
    friend class Desktop;
    virtual void focusArrives() {}

    Kind kind_;
    bool enabled_ = true;
    bool visible_ = true;
    bool leavesFocus_ = false;
    Window& window_;
    Control* pane_;
    PopupMenu* contextMenu_ = nullptr;
    std::string name_;
    std::string caption_;
    std::string toolTip_;
};

/// Runs a handler if there is one. The handler is copied first, since it may replace itself.
template<typename... Args, typename... Given>
void fire(const std::function<void(Args...)>& handler, Given&&... given) {
    if (handler) {
        const auto running = handler;
        running(std::forward<Given>(given)...);
    }
}

} // namespace zb
