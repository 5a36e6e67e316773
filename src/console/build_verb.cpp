#include "console/build_verb.h"

#include "console/findings.h"
#include "console/headless_program.h"
#include "console/loaded_project.h"
#include "console/printable.h"
#include "outputs/transaction_check.h"
#include "outputs/zelto_generator.h"
#include "platform/text.h"
#include "platform/user_folders.h"
#include "shell/project_files.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace fs = std::filesystem;

namespace {

int tellFileFault(const std::string& path, const std::string& what, ConsoleStreams streams) {
    streams.err << printable(path) << ": cannot be written: " << printable(what) << '\n';
    return kExitFileFault;
}

} // namespace

std::string BuildVerb::example() const {
    return "zbc build Etcher.zbp --out build/\n"
           "  Makes build/Etcher.smd and build/Etcher.tmd, and prints their paths and what they hold. "
           "Without\n"
           "  --out they lie in the folder ZeltoInfo beside the project; without --smd or --mdf the "
           "messages\n"
           "  have the form that the user's options ask for, else SMD. A project with no transaction model\n"
           "  has no TMD file. A build with faults leaves the file at fault empty.\n"
           "zbc build Etcher.zbp --plugin\n"
           "  Builds both files in ZeltoInfo, saves the project, runs the generator of driver plug-ins on "
           "it\n"
           "  and prints what that says. The exit status is 1 when the generator fails, and 3 when there is\n"
           "  none.";
}

void BuildVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    CLI::Option* smd = app.add_flag("--smd", smd_, "Build the messages as SMD file");
    app.add_flag("--mdf", mdf_, "Build the messages as MDF file")->excludes(smd);
    CLI::Option* plugIn = app.add_flag("--plugin", plugIn_, "Save the project and run the generator, too");
    app.add_option("--out", folder_, "The folder of the built files; made when it is missing")
        ->type_name("FOLDER")
        ->excludes(plugIn);
}

bool BuildVerb::isMdfWanted() const {
    if (smd_ || mdf_)
        return mdf_;
    return trim(SettingsStore(settingsFolder()).getOption("MessageFormat")) == "mdf";
}

fs::path BuildVerb::inFolder(const std::string& usualPath) const {
    const fs::path usual(usualPath);
    if (!folder_.empty())
        return fs::path(folder_) / usual.filename();
    // From the project as it was named, so that what is printed does not depend on the machine's folders.
    return fs::path(project_).parent_path() / usual.parent_path().filename() / usual.filename();
}

int BuildVerb::run(ConsoleStreams streams) {
    LoadedProject project;
    if (const int status = project.load(project_, streams); status != kExitDone)
        return status;
    if (!plugIn_) {
        NoGenerator generator;
        HeadlessProgram program(project_, project, generator);
        return buildFiles(program, project, streams);
    }
    const SettingsStore userSettings(settingsFolder());
    ZeltoGenerator generator(userSettings);
    HeadlessProgram program(project_, project, generator);
    if (!program.canSave()) {
        streams.err << printable(project_) << ": not a project file: its name does not end in .zbp\n";
        return kExitFault;
    }
    if (!makeProjectFolders(program.application()))
        return tellFileFault(program.application().ProjectPath, program.screen().lastText(), streams);
    if (const int status = buildFiles(program, project, streams); status != kExitDone)
        return status;
    if (const int status = runGenerator(program, streams); status != kExitDone)
        return status;
    if (generator.success() == ZeltoGenerator::Success::Yes)
        return kExitDone;
    return generator.success() == ZeltoGenerator::Success::Failed ? kExitFault : kExitFileFault;
}

int BuildVerb::buildFiles(HeadlessProgram& program, LoadedProject& project, ConsoleStreams streams) const {
    const fs::path folder = inFolder(program.application().smdFilePath()).parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        streams.err << printable(folder.string()) << ": cannot be made: " << printable(error.message())
                    << '\n';
        return kExitFileFault;
    }
    if (const int status = buildDefinitions(program, project, streams); status != kExitDone)
        return status;
    return buildTransactions(program, streams);
}

int BuildVerb::buildDefinitions(HeadlessProgram& program, LoadedProject& project,
                                ConsoleStreams streams) const {
    Application& application = program.application();
    const bool mdf = isMdfWanted();
    const std::string target = inFolder(mdf ? application.mdfFilePath() : application.smdFilePath()).string();
    // A build stops at its first fault and fills up values on its way, so all faults are looked for before
    // it.
    const auto faults = errorsOf(checkDefinitions(project.tree, project.codePage));
    const bool built = application.builds.buildSmdTo(target, mdf ? "BUILD_MDF" : "BUILD_SMD");
    if (const auto& fileError = application.builds.fileError())
        return tellFileFault(target, fileError->description, streams);
    if (!built && faults.empty())
        return tellFileFault(target, program.screen().lastText(), streams);
    if (!built) {
        printFindings(streams.err, project_, faults);
        return kExitFault;
    }
    if (project.tree.empty())
        streams.out << printable(project_) << ": no messages, so no file is built\n";
    else
        streams.out << printable(target) << ": "
                    << counted(application.SECSMessageStore->getMessages().size(), "message") << '\n';
    return kExitDone;
}

int BuildVerb::buildTransactions(HeadlessProgram& program, ConsoleStreams streams) const {
    Application& application = program.application();
    const std::string target = inFolder(application.tmdFilePath()).string();
    const bool built = application.builds.buildTmdTo(target);
    if (const auto& fileError = application.builds.fileError())
        return tellFileFault(target, fileError->description, streams);
    if (const auto& content = application.builds.tmdContent()) {
        streams.out << printable(target) << ": " << counted(content->messages, "transaction message") << ", "
                    << counted(content->sequences, "sequence") << '\n';
    }
    if (built)
        return kExitDone;
    if (!application.builds.endedAtCheck())
        return tellFileFault(target, program.screen().lastText(), streams);
    printFindings(streams.err, project_, errorsOf(checkTransactions(application)));
    return kExitFault;
}

int BuildVerb::runGenerator(HeadlessProgram& program, ConsoleStreams streams) const {
    const std::string text = program.application().saveAndGenerate();
    streams.out << printableLines(text) << '\n';
    if (const std::string fault = program.screen().lastText(); !fault.empty())
        return tellFileFault(project_, fault, streams);
    return kExitDone;
}

} // namespace zb
