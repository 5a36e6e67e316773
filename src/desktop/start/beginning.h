#pragma once

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace zb {

class StartPanel;
class frmMain;
struct Binding;

/// What the main window offers while it is empty, and what becomes of it. Every way leads through an entry of
/// the menu, as a user goes it.
class Beginning {
public:
    /// The panel lies in the place where documents come up, and goes with this object.
    Beginning(frmMain& main, QWidget& place, Binding& binding);
    ~Beginning();

    /// To be called when a window has changed: the panel goes when a document comes.
    void follow(bool documentShown);
    /// The file that answers a file dialog instead of the user; empty when the user is to be asked.
    std::string takeFile();

    /// Asks where the copy of the example goes; empty for nowhere.
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
