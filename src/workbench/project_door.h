#pragma once

#include "project/project.h"
#include "project/project_history.h"

#include <string>
#include <vector>

namespace zb {

/// What the panes and documents of the workbench need of the project commands.
class ProjectDoor {
public:
    virtual ~ProjectDoor() = default;
    /// The kept versions of the open project, the oldest first; none while no project is open.
    virtual std::vector<ProjectHistory::Version> versions() = 0;
    /// The content of the open project, as a save would write it; a project must be open.
    virtual Project content() const = 0;
    /// Puts another content into the open project, as one undoable step with this name ("Take 3 differences
    /// from Etcher.zbp") of the editor and the modeler together: Undo in either window takes both back. What
    /// is the same stays as it is, with its marks and the selection, and costs no memory; a content without a
    /// difference leaves no step. The file is not touched. A project must be open.
    virtual void replaceContent(Project content, const std::string& step) = 0;
    /// Puts a version into the open project as an undoable step, as unsaved work; what was open is kept as a
    /// version first.
    virtual void restoreVersion(const ProjectHistory::Version& version) = 0;
    /// Opens a copy of a version that cannot be written in another window of its own.
    virtual void openBeside(const ProjectHistory::Version& version) = 0;
    /// Changes to the editor or to the modeler, as the commands of the menus do. The modeler opens only when
    /// all messages are in order.
    /// @{
    virtual void showEditor() = 0;
    virtual void showModeler() = 0;
    /// @}
};

} // namespace zb
