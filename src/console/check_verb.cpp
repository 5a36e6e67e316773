#include "console/verbs.h"

#include "console/findings.h"
#include "console/project_loading.h"
#include "messages/definition_check.h"
#include "messages/smd/smd_writer.h"
#include "outputs/transaction_check.h"
#include "project/project_view.h"

#include <CLI/CLI.hpp>

namespace zb {

namespace {

/// The faults of the messages, then those of the transaction model.
Findings findingsOf(const Project& project, const CodePage& codePage) {
    NodeTree tree;
    project.messages.fill(tree);
    Findings findings = checkDefinitions(tree, codePage);
    SECSMessageStore messages;
    SmdWriter(codePage).buildMessageText(WalkMode::SaveProject, tree, messages);
    for (Finding& finding : checkTransactions(viewOf(project, messages)))
        findings.push_back(std::move(finding));
    return findings;
}

/// `zbc check PROJECT.zbp [--json] [--warnings]`
class CheckVerb final : public Verb {
public:
    std::string name() const override { return "check"; }
    std::string summary() const override {
        return "Report every fault of the messages and the transaction model";
    }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::string project_;
    bool json_ = false;
    bool warnings_ = false;
};

} // namespace

std::string CheckVerb::example() const {
    return R"(zbc check Etcher.zbp
  Reports each fault on standard error as FILE: MESSAGE: item path: text. The path counts the items
  from the message down, from 1: 2/1 is the first item of the message's second item. Faults of the
  transaction model follow: there MESSAGE is a TR message or a sequence, and the path the name of a
  TR item or the number of a row. A fault stops a build, or names a SECS message, a data item or a
  TR message that does not exist. The exit status is 1 when there is a fault. Nothing is written.
zbc check Etcher.zbp --warnings
  Also reports, marked "warning: ", what a build accepts but is probably a mistake: a message name
  used twice, a text without apostrophes, sub items of an item that is not a list, a line that
  belongs to no message, and similar.)";
}

void CheckVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE")->required();
    app.add_flag("--json", json_, "One JSON object per finding, on standard output");
    app.add_flag("--warnings", warnings_, "Also report what a build accepts but is probably a mistake");
}

int CheckVerb::run(ConsoleStreams streams) {
    int status = kExitDone;
    const auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    auto findings = findingsOf(file->project, codePageOfUser());
    const auto faults = errorsOf(findings);
    if (!warnings_)
        findings = faults;
    if (json_)
        printFindingsAsJson(streams.out, project_, findings);
    else
        printFindings(streams.err, project_, findings);
    return faults.empty() ? kExitDone : kExitFault;
}

std::unique_ptr<Verb> makeCheckVerb() {
    return std::make_unique<CheckVerb>();
}

} // namespace zb
