#include "console/verbs.h"

#include "compare/aligned_rows.h"
#include "compare/difference_lines.h"
#include "compare/difference_page.h"
#include "console/compared_project.h"
#include "console/difference_json.h"
#include "console/output_guard.h"
#include "console/printable.h"
#include "platform/file_replacer.h"
#include "project/project_text.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace {

std::string_view colourOf(char sign) {
    if (sign == '-')
        return kRed;
    return sign == '+' ? kGreen : kYellow;
}

void printBlocks(const Differences& differences, ConsoleStreams streams) {
    bool isFirst = true;
    for (const DifferenceBlock& block : differenceBlocks(differences)) {
        streams.out << (isFirst ? "" : "\n");
        isFirst = false;
        for (const DifferenceLine& line : block) {
            if (streams.colours)
                streams.out << colourOf(line.sign);
            streams.out << line.sign << ' ' << printable(line.text);
            streams.out << (streams.colours ? kPlain : "") << '\n';
        }
    }
}

/// `zbc diff A B [--json | --html FILE] [--stat]`
class DiffVerb final : public Verb {
public:
    std::string name() const override { return "diff"; }
    std::string summary() const override { return "Compare two projects"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int printText(ConsoleStreams streams) const;
    int writePage(const AlignedProjects& projects, ConsoleStreams streams) const;
    int report(const Differences& differences, ConsoleStreams streams) const;

    std::string a_;
    std::string b_;
    std::string html_;
    bool json_ = false;
    bool stat_ = false;
    bool textconv_ = false;
};

} // namespace

std::string DiffVerb::example() const {
    return R"(zbc diff HEAD:Etcher.zbp Etcher.zbp
  Prints one block per message that differs. The lines of A begin with -, those of B with +, and
  what both have with ~. A and B are projects, libraries (.smd, .mdf, .sml), kept versions
  (Etcher.zbp@3) or files of a git revision. The exit status is 0 when they are equal, 1 when
  they differ, and 3 when one of them cannot be read.)";
}

void DiffVerb::declare(CLI::App& app) {
    app.add_option("A", a_, "The first project")->type_name("FILE")->required();
    auto* second = app.add_option("B", b_, "The second project")->type_name("FILE");
    auto* json = app.add_flag("--json", json_, "Print one JSON object per difference");
    auto* html =
        app.add_option("--html", html_, "Write a page that shows what differs beside the whole projects")
            ->type_name("FILE");
    auto* stat = app.add_flag("--stat", stat_, "Print only the number of differences of each kind");
    auto* text = app.add_flag("--textconv", textconv_, "Print the text of A alone, as git diff needs it");
    json->excludes(html)->excludes(stat)->excludes(text);
    html->excludes(stat)->excludes(text);
    stat->excludes(text);
    text->excludes(second);
}

int DiffVerb::run(ConsoleStreams streams) {
    if (textconv_)
        return printText(streams);
    if (b_.empty()) {
        streams.err << "zbc: B is required (see zbc --help)\n";
        return kExitUsage;
    }
    if (const std::string why = outputMisuse(html_, {a_, b_}); !why.empty()) {
        streams.err << "zbc: --html: " << why << " (see zbc --help)\n";
        return kExitUsage;
    }
    const auto first = loadCompared(a_, streams);
    const auto second = loadCompared(b_, streams);
    if (!first || !second)
        return kExitFileFault;
    const bool whole = first->scope == CompareScope::Whole && second->scope == CompareScope::Whole;
    const CompareScope scope = whole ? CompareScope::Whole : CompareScope::Messages;
    if (!html_.empty())
        return writePage(alignProjects(first->project, {&second->project}, scope, AlignedExtent::All),
                         streams);
    return report(compareProjects(first->project, second->project, scope), streams);
}

int DiffVerb::writePage(const AlignedProjects& projects, ConsoleStreams streams) const {
    const Differences& differences = projects.differences[0];
    const Result<void> written =
        replaceFile(html_, differencePage(a_, b_, differenceBlocks(differences), projects));
    if (!written) {
        streams.err << printable(html_) << ": cannot be written: " << printable(written.error().description)
                    << '\n';
        return kExitFileFault;
    }
    streams.out << printable(html_) << ": " << counted(differences.size(), "difference") << '\n';
    return differences.empty() ? kExitDone : kExitFault;
}

int DiffVerb::report(const Differences& differences, ConsoleStreams streams) const {
    if (json_) {
        for (const Difference& difference : differences)
            printJsonLine(streams.out, jsonOf(difference));
    } else if (stat_) {
        for (const std::string& line : differenceCounts(differences))
            streams.out << printable(line) << '\n';
    } else {
        printBlocks(differences, streams);
    }
    return differences.empty() ? kExitDone : kExitFault;
}

int DiffVerb::printText(ConsoleStreams streams) const {
    const auto project = loadCompared(a_, streams);
    if (!project)
        return kExitFileFault;
    streams.out << printableLines(composeProject(project->project));
    return kExitDone;
}

std::unique_ptr<Verb> makeDiffVerb() {
    return std::make_unique<DiffVerb>();
}

} // namespace zb
