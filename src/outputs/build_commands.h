#pragma once

#include "outputs/generator.h"
#include "outputs/tmd_document.h"
#include "platform/result.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

class EditorPane;
class ModelerControls;
class NodeTree;
struct ModelerState;

/// What the builds need of the windows.
struct BuildWindows {
    EditorPane& editor;
    std::function<NodeTree&()> messageTree; ///< may be replaced between builds, hence the function
    ModelerControls& modeler;
    std::function<void()> showModeler;
};

/// The builds, reachable from all windows.
class BuildCommands {
public:
    BuildCommands(ModelerState& state, BuildWindows windows) : state_(state), windows_(std::move(windows)) {}

    /// Builds the SMD file, or the MDF file when the option `MessageFormat` is "mdf". The target is emptied
    /// first, so a build that fails on a fault leaves it empty. True on success.
    bool buildSmd();
    /// The steps of buildSmd for a target of the caller's choice, in the mode "BUILD_SMD" or "BUILD_MDF".
    bool buildSmdTo(const std::string& target, std::string_view mode);
    /// Checks the transaction model and builds the TMD file. A project with no transaction model builds as a
    /// success, with no file. True on success, and also when the file could not be written: then nothing is
    /// told and no file is left.
    bool buildTmd();
    bool buildTmdTo(const std::string& target);

    /// Why the last build could not write its file, also where the build itself keeps silent about it.
    const std::optional<FileError>& fileError() const { return fileError_; }
    /// Whether the checks ended the last buildTmd.
    bool endedAtCheck() const { return endedAtCheck_; }
    /// What the last buildTmd wrote; nothing when it wrote no file.
    const std::optional<TmdContent>& tmdContent() const { return tmdContent_; }

private:
    ModelerState& state_;
    BuildWindows windows_;
    std::optional<FileError> fileError_;
    std::optional<TmdContent> tmdContent_;
    bool endedAtCheck_ = false;
};

} // namespace zb
