#pragma once

#include "project/project_history.h"

#include <string>
#include <vector>

namespace zb {

/// What the panes need of the project commands.
class ProjectDoor {
public:
    virtual ~ProjectDoor() = default;
    /// The kept versions of the open project, the oldest first; none while no project is open.
    virtual std::vector<ProjectHistory::Version> versions() = 0;
    /// Shows a version in place of the open project, as unsaved work; what was open is kept as a version
    /// first.
    virtual void restoreVersion(const ProjectHistory::Version& version) = 0;
    /// Opens a copy of a version that cannot be written in another window of its own.
    virtual void openBeside(const ProjectHistory::Version& version) = 0;
};

} // namespace zb
