#pragma once

#include "project/project.h"

#include <string>

namespace zb {

/// The open project, as a comparison reads and changes it.
class OpenProject {
public:
    virtual ~OpenProject() = default;
    /// The name of its file.
    virtual std::string name() const = 0;
    /// The text of its file, as a save would write it now.
    virtual std::string text() const = 0;
    /// Puts another content into it, as one undoable step with this name; what is the same stays untouched.
    virtual void change(Project after, const std::string& step) = 0;
};

} // namespace zb
