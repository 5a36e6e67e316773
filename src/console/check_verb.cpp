#include "console/verbs.h"

#include "console/findings.h"
#include "console/printable.h"
#include "console/project_loading.h"
#include "console/text_table.h"
#include "lint/project_check.h"
#include "lint/rule.h"
#include "lint/rule_selection.h"
#include "lint/silencings_file.h"
#include "messages/smd/smd_writer.h"
#include "project/project_lines.h"
#include "project/project_view.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>

namespace zb {

namespace {

/// The faults of the messages, then those of the transaction model.
Findings findingsOf(const Project& project, const CodePage& codePage, bool standard) {
    NodeTree tree;
    project.messages.fill(tree);
    SECSMessageStore messages;
    SmdWriter(codePage).buildMessageText(WalkMode::SaveProject, tree, messages);
    ProjectFindings found = checkProject(tree, viewOf(project, messages), codePage, standard);
    Findings findings = std::move(found.messages);
    for (Finding& finding : found.model)
        findings.push_back(std::move(finding));
    return findings;
}

/// `zbc check PROJECT.zbp [--standard] [--only ...] [--except ...] [--format ...]`
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
    int checkProjectFile(ConsoleStreams streams) const;
    void print(ConsoleStreams streams, Findings findings, const std::string& text) const;

    std::string project_;
    bool json_ = false;
    bool rules_ = false;
    std::string format_ = "text";
    RuleSelection selection_;
};

void printRules(std::ostream& out) {
    TextTable table;
    for (const Rule& rule : allRules())
        table.add({std::string(rule.id), std::string(categoryName(rule.category)),
                   rule.severity == Severity::Error ? "error" : "warning",
                   rule.set == RuleSet::Standard ? "standard" : "always", std::string(rule.title)});
    for (const std::string& line : table.lines())
        out << line << '\n';
}

int usageFault(std::ostream& err, const std::string& text) {
    err << "zbc: " << printable(text) << " (see zbc --help)\n";
    return kExitUsage;
}

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
  belongs to no message, and similar.
zbc check Etcher.zbp --standard --except style
  Reports the warnings too, compares the messages with the published layouts and data items of SECS-II,
  and looks for keys that do not tell messages apart, TR messages that are never chosen, values that do
  not fit, and similar. The exit status is 1 when the standards check finds anything. A file
  Etcher.zbcheck beside the project can silence rules, or single places:
  "std.item.length AlarmReport 1/3".
zbc check --rules
  Lists all rules with their categories.)";
}

void CheckVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp")->type_name("FILE");
    app.add_flag("--warnings", selection_.warnings,
                 "Also report what a build accepts but is probably a mistake");
    app.add_flag("--standard", selection_.standard,
                 "Also report warnings, and check against the published standards");
    app.add_option("--only", selection_.only,
                   "Report only these: ids of rules, starts of ids, or categories, separated by commas")
        ->type_name("RULES")
        ->delimiter(',')
        ->allow_extra_args(false);
    app.add_option("--except", selection_.except, "Do not report these")
        ->type_name("RULES")
        ->delimiter(',')
        ->allow_extra_args(false);
    app.add_option("--format", format_,
                   "text on standard error, or on standard output json or sarif, with lines of the file")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"text", "json", "sarif"}));
    app.add_flag("--json", json_, "One JSON object per finding, on standard output");
    app.add_flag("--rules", rules_, "List all rules, and check nothing");
}

int CheckVerb::run(ConsoleStreams streams) {
    if (rules_) {
        printRules(streams.out);
        return kExitDone;
    }
    if (project_.empty())
        return usageFault(streams.err, "PROJECT is required");
    if (const auto unknown = selection_.unknownSelector())
        return usageFault(streams.err, "no rule is named \"" + *unknown + "\"");
    return checkProjectFile(streams);
}

int CheckVerb::checkProjectFile(ConsoleStreams streams) const {
    int status = kExitDone;
    const auto file = loadProject(project_, streams, status);
    if (!file)
        return status;
    const auto silencings = readSilencings(project_);
    if (!silencings) {
        streams.err << printable(silencingsPath(project_))
                    << ": cannot be read: " << printable(silencings.error().description) << '\n';
        return kExitFileFault;
    }
    RuleSelection selection = selection_;
    selection.standard = selection.standard || silencings->asksForStandard();
    Findings findings = findingsOf(file->project, codePageOfUser(), selection.needsStandard());
    std::erase_if(findings, [&](const Finding& finding) { return silencings->silences(finding); });
    std::erase_if(findings, [&](const Finding& finding) { return !selection.wants(finding); });
    const bool fails = std::any_of(findings.begin(), findings.end(), isFailure);
    print(streams, std::move(findings), file->text);
    return fails ? kExitFault : kExitDone;
}

void CheckVerb::print(ConsoleStreams streams, Findings findings, const std::string& text) const {
    if (json_)
        return printFindingsAsJson(streams.out, project_, findings);
    if (format_ == "text")
        return printFindings(streams.err, project_, findings);
    const ProjectLines lines(text);
    for (Finding& finding : findings)
        lines.locate(finding.place);
    if (format_ == "json")
        printFindingsInDetail(streams.out, project_, findings);
    else
        printFindingsAsSarif(streams.out, project_, findings);
}

std::unique_ptr<Verb> makeCheckVerb() {
    return std::make_unique<CheckVerb>();
}

} // namespace zb
