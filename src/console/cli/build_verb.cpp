#include "console/cli/build_verb.h"

#include "build/build_commands.h"
#include "console/cli/console_screen.h"
#include "console/cli/findings.h"
#include "console/cli/loaded_project.h"
#include "messages/editor_pane.h"
#include "messages/module_state.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "platform/stores/desktop.h"
#include "platform/text.h"
#include "shell/project_files.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <optional>
#include <ostream>

namespace zb {

namespace fs = std::filesystem;

namespace {

/// The state of a program that has the project open, with nobody at its screen.
struct HeadlessState {
    HeadlessState(const std::string& projectPath, const CodePage& codePage) {
        const ProjectPlace place = splitProjectPath(projectPath);
        state.ProjectName = place.name;
        state.ProjectPath = place.folder;
        state.codePage = codePage;
    }

    ConsoleScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{desktop, settings, files};
};

/// Writes the file as the build command of the windows does. Nothing when it was written, else why not.
std::optional<std::string> buildInto(HeadlessState& headless, NodeTree& tree, const std::string& target,
                                     const char* mode) {
    NoEditorPane pane;
    BuildCommands builds(headless.state, pane, [&tree]() -> NodeTree& { return tree; });
    const bool built = builds.buildSmdTo(target, mode);
    if (builds.fileError())
        return builds.fileError()->description;
    return built ? std::nullopt : std::optional(headless.screen.lastText());
}

} // namespace

std::string BuildVerb::example() const {
    return "zbc build Etcher.zbp --out build/\n"
           "  Makes build/Etcher.smd and prints its path and number of messages. Without --out the file\n"
           "  lies in the folder ZeltoInfo beside the project, and without --smd or --mdf it has the form\n"
           "  that the user's options ask for, else SMD. A build with faults leaves the file empty.";
}

void BuildVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    CLI::Option* smd = app.add_flag("--smd", smd_, "Build the SMD file");
    app.add_flag("--mdf", mdf_, "Build the MDF file")->excludes(smd);
    app.add_option("--out", folder_, "The folder of the built file; made when it is missing")
        ->type_name("FOLDER");
}

bool BuildVerb::isMdfWanted() const {
    if (smd_ || mdf_)
        return mdf_;
    return trim(SettingsStore(settingsFolder()).getOption("MessageFormat")) == "mdf";
}

int BuildVerb::run(ConsoleStreams streams) {
    LoadedProject project;
    if (const int status = project.load(project_, streams); status != kExitDone)
        return status;
    HeadlessState headless(project_, project.codePage);
    const bool mdf = isMdfWanted();
    const fs::path usual = mdf ? headless.state.mdfFilePath() : headless.state.smdFilePath();
    const fs::path target = folder_.empty() ? usual : fs::path(folder_) / usual.filename();
    std::error_code error;
    fs::create_directories(target.parent_path(), error);
    if (error) {
        streams.err << target.parent_path().string() << ": cannot be made: " << error.message() << '\n';
        return kExitFileFault;
    }
    // A build stops at its first fault and fills up values on its way, so all faults are looked for before
    // it.
    const auto faults = errorsOf(checkDefinitions(project.tree, project.codePage));
    const auto fault = buildInto(headless, project.tree, target.string(), mdf ? "BUILD_MDF" : "BUILD_SMD");
    if (!fault) {
        if (project.tree.empty()) {
            streams.out << project_ << ": no messages, so no file is built\n";
            return kExitDone;
        }
        streams.out << target.string() << ": " << headless.state.SECSMessageStore->getMessages().size()
                    << " messages\n";
        return kExitDone;
    }
    if (!faults.empty()) {
        printFindings(streams.err, project_, faults);
        return kExitFault;
    }
    streams.err << target.string() << ": cannot be written: " << *fault << '\n';
    return kExitFileFault;
}

} // namespace zb
