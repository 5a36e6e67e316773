#pragma once

namespace zb {

class Window;

/// The commands that the menus and tool bars of all windows share.
enum class ProjectCommand {
    New,
    Open,
    Save,
    SaveAs,
    Exit,
    BuildSmd,
    BuildTmd,
    BuildPlugIn,
    Option,
    Editor,
    Modeler,
    About
};

/// Runs the shared commands.
class ProjectCommands {
public:
    virtual ~ProjectCommands() = default;
    /// `over` is the window whose entry was chosen: its pointer shows that the command runs.
    virtual void run(ProjectCommand command, Window& over) = 0;
};

} // namespace zb
