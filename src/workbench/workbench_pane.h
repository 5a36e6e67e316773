#pragma once

#include "controls/simple_controls.h"

#include <functional>
#include <string>

namespace zb {

class Window;
class frmWorkbench;

/// A pane of the workbench: the base of the classes that hold a pane's stores and its logic. "Log" has the
/// pane `pnlLog` and its button in the strip, `chkLog`. Stores of the pane are members of the derived class,
/// with `pane` as the pane around them. A pane is closed at first, and takes no room while it is closed.
class WorkbenchPane {
public:
    /// Registers itself with the workbench. `word` makes the names of the stores; `toolTip` says what the
    /// pane shows.
    WorkbenchPane(frmWorkbench& workbench, const std::string& word, const std::string& toolTip);
    virtual ~WorkbenchPane() = default;
    WorkbenchPane(const WorkbenchPane&) = delete;
    WorkbenchPane& operator=(const WorkbenchPane&) = delete;

    bool isOpen() const { return pane.visible(); }
    /// Opens the pane in place of the one that is open.
    void open() { button.setChecked(true); }
    void close() { button.setChecked(false); }

    /// The caption of the button may count what the pane holds: "Problems (3)".
    void setCount(const std::string& count);
    const std::string& title() const { return title_; }

    Pane pane;
    CheckBox button;

protected:
    frmWorkbench& workbench() const { return workbench_; }
    /// The window that the stores of the pane belong to.
    Window& window() const { return pane.window(); }
    /// Called when the user or a command has opened the pane: the time to fill it.
    virtual void opened() {}

private:
    void follow();

    frmWorkbench& workbench_;
    std::string title_;
};

} // namespace zb
