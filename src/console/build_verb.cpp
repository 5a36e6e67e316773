#include "console/verbs.h"

#include "console/findings.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "messages/definition_check.h"
#include "messages/smd/smd_writer.h"
#include "outputs/definition_document.h"
#include "outputs/tmd_document.h"
#include "outputs/transaction_check.h"
#include "outputs/zelto_generator.h"
#include "platform/file_access.h"
#include "platform/file_layer.h"
#include "platform/file_replacer.h"
#include "platform/program_folder.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "platform/user_folders.h"
#include "project/project_history.h"
#include "project/project_text.h"
#include "project/project_view.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace fs = std::filesystem;

namespace {

int reportFileFault(const std::string& path, const std::string& what, ConsoleStreams streams) {
    streams.err << printable(path) << ": cannot be written: " << printable(what) << '\n';
    return kExitFileFault;
}

std::string onOneLine(const std::string& text) {
    return replaceAll(replaceAll(text, "\r", ""), "\n", " ");
}

/// `zbc build PROJECT.zbp [--smd|--mdf] [--out DIR|--plugin]`
class BuildVerb final : public Verb {
public:
    std::string name() const override { return "build"; }
    std::string summary() const override { return "Build the SMD or MDF file and the TMD file of a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    bool isMdfWanted() const;
    fs::path inFolder(const std::string& usualPath) const;
    int buildFiles(ConsoleStreams streams);
    int buildDefinitions(ConsoleStreams streams);
    int buildTransactions(ConsoleStreams streams);
    int buildPlugIn(ConsoleStreams streams);
    /// Saves the project with its messages as the build normalized them.
    Result<void> save(ConsoleStreams streams);

    std::string project_;
    std::string folder_;
    bool smd_ = false;
    bool mdf_ = false;
    bool plugIn_ = false;

    Project content_;
    NodeTree tree_;
    SECSMessageStore messages_; ///< of the build walk
    CodePage codePage_{1252};
    ProjectPlace place_;
    SystemFileLayer files_;
};

} // namespace

std::string BuildVerb::example() const {
    return R"(zbc build Etcher.zbp --out build/
  Writes build/Etcher.smd and build/Etcher.tmd, and prints their paths and contents. The default
  folder is ZeltoInfo next to the project. Without --smd or --mdf the form of the messages is that
  of the user's options, and SMD by default. A project without a transaction model has no TMD file.
  A build with faults leaves its output file empty.
zbc build Etcher.zbp --plugin
  Builds both files in ZeltoInfo, saves the project, runs the generator of driver plug-ins and
  prints its output. The exit status is 1 when the generator fails, and 3 when there is none.)";
}

void BuildVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    CLI::Option* smd = app.add_flag("--smd", smd_, "Build the messages as SMD file");
    app.add_flag("--mdf", mdf_, "Build the messages as MDF file")->excludes(smd);
    CLI::Option* plugIn = app.add_flag("--plugin", plugIn_, "Also save the project and run the generator");
    app.add_option("--out", folder_, "The folder of the built files; created when it is missing")
        ->type_name("FOLDER")
        ->excludes(plugIn);
}

bool BuildVerb::isMdfWanted() const {
    if (smd_ || mdf_)
        return mdf_;
    return trim(SettingsStore(settingsFolder()).getOption(kMessageFormat)) == "mdf";
}

fs::path BuildVerb::inFolder(const std::string& usualPath) const {
    const fs::path usual(usualPath);
    if (!folder_.empty())
        return fs::path(folder_) / usual.filename();
    // From the project path as given, so that the output does not depend on the folders of the machine.
    return fs::path(project_).parent_path() / usual.parent_path().filename() / usual.filename();
}

int BuildVerb::run(ConsoleStreams streams) {
    int status = kExitDone;
    auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    content_ = std::move(file->project);
    content_.messages.fill(tree_);
    codePage_ = codePageOfUser();
    place_ = splitProjectPath(project_);
    return plugIn_ ? buildPlugIn(streams) : buildFiles(streams);
}

int BuildVerb::buildPlugIn(ConsoleStreams streams) {
    std::error_code ignored;
    if (!fs::equivalent(place_.projectFile(), project_, ignored)) {
        streams.err << printable(project_) << ": not a project file: its name does not end in .zbp\n";
        return kExitFault;
    }
    if (const Result<void> made = makeProjectFolders(place_.folder); !made)
        return reportFileFault(place_.folder, onOneLine(describeFolderFault(made.error())), streams);
    if (const int status = buildFiles(streams); status != kExitDone)
        return status;
    const Result<void> saved = save(streams);
    const SettingsStore userSettings(settingsFolder());
    ZeltoGenerator generator(userSettings, {}, programFolder());
    streams.out << printableLines(generator.generate(place_.projectFile())) << '\n';
    if (!saved)
        return reportFileFault(project_, describeFileFault(saved.error()), streams);
    if (generator.success() == ZeltoGenerator::Success::Yes)
        return kExitDone;
    return generator.success() == ZeltoGenerator::Success::Failed ? kExitFault : kExitFileFault;
}

Result<void> BuildVerb::save(ConsoleStreams streams) {
    const std::string path = place_.projectFile();
    if (const Result<void> access = checkProjectFile(files_, path); !access)
        return access.error();
    if (!tree_.empty()) {
        SECSMessageStore saved;
        SmdWriter(codePage_).buildMessageText(WalkMode::SaveProject, tree_, saved);
        content_.messages = ProjectMessages(saved.allTexts());
    } else {
        content_.messages = ProjectMessages();
    }
    const ProjectSave done = replaceProjectFile(files_, stateFolder(), path, composeProject(content_));
    if (!done.kept)
        reportUnkeptVersion(streams.err, project_, done.kept.error());
    return done.written;
}

int BuildVerb::buildFiles(ConsoleStreams streams) {
    const fs::path folder = inFolder(place_.builtFile(".smd")).parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        streams.err << printable(folder.string()) << ": cannot be made: " << printable(error.message())
                    << '\n';
        return kExitFileFault;
    }
    if (const int status = buildDefinitions(streams); status != kExitDone)
        return status;
    return buildTransactions(streams);
}

int BuildVerb::buildDefinitions(ConsoleStreams streams) {
    const bool mdf = isMdfWanted();
    const std::string target = inFolder(place_.builtFile(mdf ? ".mdf" : ".smd")).string();
    // A build stops at its first fault and normalizes values on its way, so all faults are looked for before
    // it.
    const auto faults = errorsOf(checkDefinitions(tree_, codePage_));
    const auto refuse = [&](const std::string& what) {
        if (faults.empty())
            return reportFileFault(target, what, streams);
        printFindings(streams.err, project_, faults);
        return kExitFault;
    };
    if (const Result<void> access = checkFileAccess(files_, target); !access)
        return refuse(describeFileFault(access.error()));
    const WalkOutcome outcome = SmdWriter(codePage_).buildMessageText(
        mdf ? WalkMode::BuildMdf : WalkMode::BuildSmd, tree_, messages_);
    if (!outcome.status.empty())
        return refuse(outcome.status);
    if (tree_.empty()) {
        streams.out << printable(project_) << ": no messages, so no file is built\n";
        return kExitDone;
    }
    const std::string text = composeDefinitions(messages_, mdf ? DefinitionForm::Mdf : DefinitionForm::Smd);
    if (const Result<void> written = replaceFile(files_, target, text); !written)
        return reportFileFault(target, written.error().description, streams);
    streams.out << printable(target) << ": " << counted(messages_.getMessages().size(), "message") << '\n';
    return kExitDone;
}

int BuildVerb::buildTransactions(ConsoleStreams streams) {
    if (content_.model->TRMessages().empty())
        return kExitDone;
    const std::string target = inFolder(place_.builtFile(".tmd")).string();
    if (const Result<void> access = checkFileAccess(files_, target); !access)
        return reportFileFault(target, describeFileFault(access.error()), streams);
    const ProjectView view = viewOf(content_, messages_);
    if (!mayBuildTmd(view)) {
        printFindings(streams.err, project_, errorsOf(checkTransactions(view)));
        return kExitFault;
    }
    const Result<TmdContent> written = writeTMD(view, files_, target);
    if (!written)
        return reportFileFault(target, written.error().description, streams);
    streams.out << printable(target) << ": " << counted(written->messages, "transaction message") << ", "
                << counted(written->sequences, "sequence") << '\n';
    for (const std::string& part : written->leftOut)
        streams.err << printable(target) << ": incomplete: holds " << printable(part) << '\n';
    return written->leftOut.empty() ? kExitDone : kExitFault;
}

std::unique_ptr<Verb> makeBuildVerb() {
    return std::make_unique<BuildVerb>();
}

} // namespace zb
