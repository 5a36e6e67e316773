#include "console/verbs.h"

#include "compare/compatibility.h"
#include "console/compared_project.h"
#include "console/difference_json.h"
#include "platform/printable.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace {

/// `zbc compat OLD NEW [--against host|equipment|both] [--json]`
class CompatVerb final : public Verb {
public:
    std::string name() const override { return "compat"; }
    std::string summary() const override { return "Report changes that break the other side"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    bool isAsked(const CompatibilityFinding& finding) const;

    std::string old_;
    std::string new_;
    std::string against_ = "both";
    bool json_ = false;
};

std::string valueOrNothing(const std::optional<std::string>& value) {
    return value && !value->empty() ? printable(*value) : "nothing";
}

/// `NAME: PATH: FIELD: BEFORE -> AFTER: REASON: CLASS [RULE]`
void printFinding(std::ostream& out, const CompatibilityFinding& finding) {
    const Difference& difference = finding.difference;
    out << printable(difference.place.name) << ": ";
    for (const std::string* part : {&difference.place.path, &difference.field}) {
        if (!part->empty())
            out << printable(*part) << ": ";
    }
    if (difference.field.empty())
        out << wordOf(difference.change) << ": ";
    else
        out << valueOrNothing(difference.before) << " -> " << valueOrNothing(difference.after) << ": ";
    out << finding.reason << ": " << wordOf(finding.effect) << " [" << finding.rule << "]\n";
}

} // namespace

std::string CompatVerb::example() const {
    return R"(zbc compat --against host HEAD~1:Etcher.zbp Etcher.zbp
  Reports what a host that follows OLD cannot take from an equipment that follows NEW, one line
  each with the reason and the id of its rule. The exit status is 1 when there is such a change,
  0 when there is none, and 3 when a project cannot be read. Names, descriptions and logging break
  nobody; a new message is an extension.)";
}

void CompatVerb::declare(CLI::App& app) {
    app.add_option("OLD", old_, "What the other side follows")->type_name("FILE")->required();
    app.add_option("NEW", new_, "What this side follows now")->type_name("FILE")->required();
    app.add_option("--against", against_, "The side that still follows OLD: host, equipment or both")
        ->type_name("SIDE")
        ->check(CLI::IsMember({"host", "equipment", "both"}));
    app.add_flag("--json", json_, "Print one JSON object per change");
}

bool CompatVerb::isAsked(const CompatibilityFinding& finding) const {
    if (against_ == "host")
        return breaksHost(finding.effect);
    if (against_ == "equipment")
        return breaksEquipment(finding.effect);
    return breaksHost(finding.effect) || breaksEquipment(finding.effect);
}

int CompatVerb::run(ConsoleStreams streams) {
    const auto before = loadCompared(old_, streams);
    const auto after = loadCompared(new_, streams);
    if (!before || !after)
        return kExitFileFault;
    const Differences differences = compareProjects(before->project, after->project, CompareScope::Messages);
    bool isBroken = false;
    for (const CompatibilityFinding& finding :
         judgeCompatibility(before->project, after->project, differences)) {
        if (!isAsked(finding))
            continue;
        isBroken = true;
        if (!json_) {
            printFinding(streams.out, finding);
            continue;
        }
        nlohmann::ordered_json line = jsonOf(finding.difference);
        line["class"] = wordOf(finding.effect);
        line["rule"] = finding.rule;
        line["reason"] = finding.reason;
        printJsonLine(streams.out, line);
    }
    return isBroken ? kExitFault : kExitDone;
}

std::unique_ptr<Verb> makeCompatVerb() {
    return std::make_unique<CompatVerb>();
}

} // namespace zb
