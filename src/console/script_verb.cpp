#include "console/script_verb.h"

#include "script/application_program.h"
#include "script/script_runner.h"

#include <CLI/CLI.hpp>

namespace zb {

namespace {

/// `zbc script FILE...`
class ScriptVerb final : public Verb {
public:
    std::string name() const override { return "script"; }
    std::string summary() const override { return "Run scripts that work the program as a person does"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::vector<std::string> files_;
};

} // namespace

std::string ScriptVerb::example() const {
    return R"(zbc script bulk-edit.zbs checks/*.zbs
  Runs each script with a separate program, settings and work folder. A failed script is reported
  as FILE:LINE: what was expected, what was found; the others still run.)";
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

std::unique_ptr<Verb> makeScriptVerb() {
    return std::make_unique<ScriptVerb>();
}

} // namespace zb
