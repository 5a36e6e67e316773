#include "console/check_verb.h"

#include "console/findings.h"
#include "console/headless_program.h"
#include "console/loaded_project.h"
#include "outputs/transaction_check.h"

#include <CLI/CLI.hpp>

namespace zb {

namespace {

Findings transactionFindings(const std::string& path, const LoadedProject& project) {
    NoGenerator generator;
    HeadlessProgram program(path, project, generator);
    program.fillMessageStore();
    Application& application = program.application();
    return checkTransactions(application);
}

} // namespace

std::string CheckVerb::example() const {
    return "zbc check Etcher.zbp\n"
           "  Tells each fault on standard error as FILE: MESSAGE: item path: text. The path counts the "
           "items\n"
           "  from the message down, from 1: 2/1 is the first item of the message's second. Faults of the\n"
           "  transaction model follow: there MESSAGE is a TR message or a sequence, and the path the name "
           "of\n"
           "  a TR item or the number of a row. A fault is what stops a build, and what names a SECS "
           "message,\n"
           "  a data item or a TR message that is not there. The exit status is 1 when there is one. "
           "Nothing\n"
           "  is written.\n"
           "zbc check Etcher.zbp --warnings\n"
           "  Tells besides, marked \"warning: \", a message name used twice, a text without apostrophes,\n"
           "  sub items of what is no list, a line that belongs to no message and the like.";
}

void CheckVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    app.add_flag("--json", json_, "One JSON object a fault, on standard output");
    app.add_flag("--warnings", warnings_, "Tell also what a build passes and is hardly meant so");
}

int CheckVerb::run(ConsoleStreams streams) {
    LoadedProject project;
    if (const int status = project.load(project_, streams); status != kExitDone)
        return status;
    auto findings = checkDefinitions(project.tree, project.codePage);
    for (Finding& finding : transactionFindings(project_, project))
        findings.push_back(std::move(finding));
    const auto faults = errorsOf(findings);
    if (!warnings_)
        findings = faults;
    if (json_)
        printFindingsAsJson(streams.out, project_, findings);
    else
        printFindings(streams.err, project_, findings);
    return faults.empty() ? kExitDone : kExitFault;
}

} // namespace zb
