#pragma once

#include "compare/project_comparison.h"
#include "project/project.h"

#include <string>
#include <vector>

namespace zb {

/// Opens the comparison of the open project with something else. Nothing happens while no project is open.
/// What cannot be read is reported by a notice.
class CompareDoor {
public:
    virtual ~CompareDoor() = default;
    /// A project (.zbp), or a library (.smd, .mdf or .sml), of which only messages are compared. `name` is
    /// shown for it; by default the name of the file.
    virtual void compareWithFile(const std::string& path, const std::string& name = {}) = 0;
    /// A kept version of the open project, by its number.
    virtual void compareWithVersion(int number) = 0;
    /// Any project under a name.
    virtual void compareWithProject(const std::string& name, Project other,
                                    CompareScope scope = CompareScope::Whole) = 0;
    /// The messages of a library that is loaded already.
    virtual void compareWithLibrary(const std::string& name,
                                    const std::vector<const SECSMessageRecord*>& messages) = 0;
    /// Only some messages of a library, each with the message of the open project that has its name, or else
    /// with the only one that has its stream, function and direction. The other messages do not differ.
    virtual void compareWithMessages(const std::string& name,
                                     const std::vector<const SECSMessageRecord*>& messages) = 0;
};

} // namespace zb
