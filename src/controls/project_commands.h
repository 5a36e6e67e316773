#pragma once

namespace zb {

class Window;

/// The commands that the menus and tool bars of all windows share. `over` is the window whose entry was
/// chosen: its pointer shows that the command runs.
class ProjectCommands {
public:
    virtual ~ProjectCommands() = default;
    virtual void commandNew(Window& over) = 0;
    virtual void commandOpen(Window& over) = 0;
    virtual void commandSave(Window& over) = 0;
    virtual void commandSaveAs(Window& over) = 0;
    virtual void commandExit() = 0;
    virtual void commandBuildSmd(Window& over) = 0;
    virtual void commandBuildTmd(Window& over) = 0;
    virtual void commandBuildPlugIn(Window& over) = 0;
    virtual void commandOption(Window& over) = 0;
    virtual void commandEditor(Window& over) = 0;
    virtual void commandModeler(Window& over) = 0;
    virtual void commandAbout(Window& over) = 0;
};

} // namespace zb
