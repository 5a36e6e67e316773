#include "console/script_verb.h"

#include "script/application_program.h"
#include "script/script_runner.h"

#include <CLI/CLI.hpp>

namespace zb {

std::string ScriptVerb::example() const {
    return "zbc script bulk-edit.zbs checks/*.zbs\n"
           "  Runs each script with a program, settings and work folder of its own. A script that fails\n"
           "  is told as FILE:LINE: what was expected, what was found; the others run nevertheless.";
}

void ScriptVerb::declare(CLI::App& app) {
    app.add_option("FILE", files_, "The scripts, in the order in which they run")->type_name("")->required();
}

int ScriptVerb::run(ConsoleStreams streams) {
    const auto makeProgram = [](Screen& screen, const std::string& applicationFolder) {
        return std::make_unique<ApplicationProgram>(screen, applicationFolder);
    };
    ScriptRunner runner(makeProgram, streams.out, streams.err);
    bool failed = false;
    bool unreadable = false;
    for (const std::string& file : files_) {
        const ScriptRunner::Outcome outcome = runner.run(file);
        failed = failed || outcome == ScriptRunner::Outcome::Failed;
        unreadable = unreadable || outcome == ScriptRunner::Outcome::Unreadable;
    }
    if (failed)
        return kExitFault;
    return unreadable ? kExitFileFault : kExitDone;
}

} // namespace zb
