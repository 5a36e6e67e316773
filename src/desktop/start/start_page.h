#pragma once

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace zb {

class StartPanel;
class frmMain;
struct Binding;

/// The start page of the empty main window. Each of its actions goes through a menu entry, as a user would.
class StartPage {
public:
    /// The panel covers the place of the documents and is destroyed with this object.
    StartPage(frmMain& main, QWidget& place, Binding& binding);
    ~StartPage();

    /// Call this when a window has changed: the panel is hidden when a document is shown.
    void follow(bool documentShown);
    /// The file that answers a file dialog instead of the user; empty to ask the user.
    std::string takeFile();

    /// Asks for the folder of the example copy; empty for none.
    std::function<std::string()> pickFolder;

private:
    bool projectIsOpen() const;
    void openExample();

    frmMain& main_;
    Binding& binding_;
    std::unique_ptr<StartPanel> panel_;
    std::string nextFile_;
};

} // namespace zb
