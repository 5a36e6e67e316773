#pragma once

#include "build/generator.h"
#include "platform/result.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

class EditorPane;
class NodeTree;
struct ModuleState;

/// The builds, reachable from all windows.
class BuildCommands {
public:
    /// The message tree may be replaced between builds, hence the function.
    BuildCommands(ModuleState& state, EditorPane& pane, std::function<NodeTree&()> liveTree)
        : state_(state), pane_(pane), liveTree_(std::move(liveTree)) {}

    /// Builds the SMD file, or the MDF file when the option `MessageFormat` is "mdf". The target is emptied
    /// first, so a build that fails on a fault leaves it empty. True on success.
    bool buildSmd();
    /// The steps of buildSmd for a target of the caller's choice, in the mode "BUILD_SMD" or "BUILD_MDF".
    bool buildSmdTo(const std::string& target, std::string_view mode);
    /// A project with no transaction model builds as a success, with no file.
    bool buildTmd();

    /// What the last buildSmd wrote to.
    const std::string& currentBuildPath() const { return currentBuildPath_; }
    /// Why its walk could not write the file; a box has told so.
    const std::optional<FileError>& fileError() const { return fileError_; }

private:
    ModuleState& state_;
    EditorPane& pane_;
    std::function<NodeTree&()> liveTree_;
    std::string currentBuildPath_;
    std::optional<FileError> fileError_;
};

} // namespace zb
