#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace zb {

class Control;
class FileDrops;
class StartPanel;
class frmMain;
class frmWorkbench;
struct Binding;

/// The start page of the empty main window. Each of its actions goes through a menu entry or a button of the
/// strip, as a user would: what the strip asks the user to decide is asked here as well.
class StartPage {
public:
    /// The panel covers the place of the documents and is destroyed with this object.
    StartPage(frmMain& main, QWidget& place, Binding& binding);
    ~StartPage();

    /// Call this when a window has changed: the panel is hidden when a document is shown.
    void follow(bool documentShown);
    /// The file that answers a file dialog instead of the user; empty to ask the user.
    std::string takeFile();
    /// Chooses an entry whose command asks for a file, and answers with this one.
    void openBy(Control& entry, const std::string& file);

    /// Shows the document Rehearsal, as the button of the strip does.
    void showRehearsal();

    /// Asks for the folder of the example copy; empty for none.
    std::function<std::string()> pickFolder;

private:
    bool projectIsOpen() const;
    void openExample();
    /// Looked up each time: it ends before the main window does. Null when it has ended.
    frmWorkbench* workbench() const;
    void showOffers();
    void choose(int notice, std::size_t action);
    std::vector<std::string> recentProjects() const;

    frmMain& main_;
    Binding& binding_;
    std::unique_ptr<StartPanel> panel_;
    std::unique_ptr<FileDrops> drops_;
    std::string nextFile_;
};

} // namespace zb
