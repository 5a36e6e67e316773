#include "workbench/problems_pane.h"

#include "controls/desktop.h"
#include "controls/key.h"
#include "editor/frm_sec_editor.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "workbench/document_command.h"
#include "workbench/frm_workbench.h"
#include "workbench/problem_places.h"

#include <utility>
#include <vector>

namespace zb {

namespace {

constexpr int kRightButton = 2;
constexpr int kKeyF8 = 119;

/// The order of the toggles.
constexpr std::array kSeverityOrder{Severity::Error, Severity::Warning, Severity::Note};
constexpr std::array kSeverityWords{"Errors", "Warnings", "Notes"};
constexpr std::array kKindWords{"Definitions", "Model", "Standards", "Style", "File"};

std::string counted(int number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

/// "2 errors, 5 warnings"; empty for none of both.
std::string summaryOf(const FindingTally& tally) {
    std::string summary;
    if (const int errors = tally.of(Severity::Error); errors > 0)
        summary = counted(errors, "error");
    if (const int warnings = tally.of(Severity::Warning); warnings > 0)
        summary += (summary.empty() ? "" : ", ") + counted(warnings, "warning");
    return summary;
}

std::string withCount(const char* word, int count) {
    return std::string(word) + " (" + std::to_string(count) + ")";
}

CheckBox toggle(Window& window, const std::string& name, int number, Control& pane) {
    return {window, name + "[" + std::to_string(number) + "]", {}, &pane};
}

} // namespace

ProblemsPane::ProblemsPane(frmWorkbench& workbench)
    : WorkbenchPane(workbench, "Problems", "What the checks find in the open project"),
      watch(workbench.desktop(), workbench.services().state, workbench.services().editor.tvwEdit),
      chkSeverity{toggle(window(), "chkSeverity", 1, pane), toggle(window(), "chkSeverity", 2, pane),
                  toggle(window(), "chkSeverity", 3, pane)},
      chkKind{toggle(window(), "chkKind", 1, pane), toggle(window(), "chkKind", 2, pane),
              toggle(window(), "chkKind", 3, pane), toggle(window(), "chkKind", 4, pane),
              toggle(window(), "chkKind", 5, pane)} {
    const auto wire = [this](CheckBox& box) { box.onChange = [this] { showRows(); }; };
    // Notes say only how a file was read.
    for (std::size_t at = 0; at < kSeverities; ++at) {
        chkSeverity[at].setChecked(kSeverityOrder[at] != Severity::Note);
        wire(chkSeverity[at]);
    }
    for (CheckBox& box : chkKind) {
        box.setChecked(true);
        wire(box);
    }
    wire(chkShowSilenced);
    chkShowSilenced.setToolTip("Also list what a file beside the project silences");
    chkCheckStandard.setToolTip("Also compare the messages with the published standards, and look for keys, "
                                "conditions and values that are probably wrong");
    chkCheckStandard.onChange = [this] {
        commands.askForStandard(chkCheckStandard.checked());
        watch.setStandard(chkCheckStandard.checked());
    };
    cmdDocument.setToolTip("Write the interface document, which one hands to the other side");
    cmdDocument.onClick = [this] { writeInterfaceDocument(this->workbench()); };
    txtProblemFilter.setToolTip("Lists only rows with this text");
    txtProblemFilter.onChange = [this] { showRows(); };
    watch.onChange = [this] { show(); };
    watch.onProgress = [this] { showProgress(); };
    LibraryNotice& library = workbench.services().editor.libraryPane.notice();
    library.onFindings = [this](const Findings& findings) { watch.setImport(findings); };
    library.onShow = [this] { showImport(); };
    SharedNodes& shared = workbench.services().editor.sharedNodes;
    shared.onFindings = [this](const Findings& findings) { watch.setPasted(findings); };
    shared.onShow = [this] { showImport(); };
    wireList();
    wireKeys();
    showCounts();
}

void ProblemsPane::showImport() {
    chkKind[static_cast<std::size_t>(FindingKind::Import)].setChecked(true);
    open();
}

void ProblemsPane::wireKeys() {
    const auto add = [this](int modifiers, const char* purpose, Way way) {
        KeyCommand command;
        command.key = {kKeyF8, modifiers};
        command.where = "everywhere";
        command.purpose = purpose;
        command.run = [this, way] {
            goOn(way);
            return true;
        };
        window().desktop().keys().add(std::move(command));
    };
    add(0, "Goes to the next problem", Way::Next);
    add(kShiftKey, "Goes to the previous problem", Way::Previous);
}

void ProblemsPane::wireList() {
    lvwProblems.addColumn("Severity", 900);
    lvwProblems.addColumn("Where", 2600);
    lvwProblems.addColumn("Problem", 8000);
    lvwProblems.onColumnClick = [this](std::size_t column) { sortBy(column); };
    lvwProblems.onDoubleClick = [this](ListRow& row) { goTo(&row); };
    lvwProblems.onMouseUp = [this](int mouseButton, ListRow* row) {
        if (mouseButton == kRightButton)
            openCommands(row);
    };
    commands.onGo = [this](const Problem& problem) { go(problem); };
    lvwProblems.onKeyDown = [this](KeyEvent key) {
        if (key.code == kKeyEnter)
            goTo(lvwProblems.selected());
    };
}

void ProblemsPane::projectShown() {
    commands.readSilencings();
    watch.setPasted({});
    const bool standard = watch.silencings().asksForStandard();
    if (standard == watch.checksStandard()) {
        watch.restart();
        return;
    }
    watch.setStandard(standard);
    chkCheckStandard.setChecked(standard);
}

void ProblemsPane::show() {
    showCounts();
    rowsAreOld_ = true;
    if (isOpen())
        showRows();
}

void ProblemsPane::showCounts() {
    const FindingTally& tally = watch.tally();
    setCount(summaryOf(tally));
    for (std::size_t at = 0; at < kSeverities; ++at)
        chkSeverity[at].setCaption(withCount(kSeverityWords[at], tally.of(kSeverityOrder[at])));
    for (std::size_t at = 0; at < kFindingKinds; ++at)
        chkKind[at].setCaption(withCount(kKindWords[at], tally.of(static_cast<FindingKind>(at))));
}

void ProblemsPane::showRows() {
    rowsAreOld_ = false;
    rows_.show(watch, filter());
    showProgress();
}

void ProblemsPane::showProgress() {
    std::vector<std::string> parts;
    if (const std::size_t matching = rows_.matching(); matching > ProblemRows::kMostRows)
        parts.push_back("The first " + std::to_string(ProblemRows::kMostRows) + " of " +
                        std::to_string(matching) + " are listed");
    if (!watch.isDone())
        parts.push_back("Checking... " + std::to_string(watch.percentDone()) + " %");
    lblProblemCount.setText(join(parts, ". "));
}

ProblemFilter ProblemsPane::filter() const {
    ProblemFilter filter;
    for (std::size_t at = 0; at < kSeverities; ++at)
        filter.severities[static_cast<std::size_t>(kSeverityOrder[at])] = chkSeverity[at].checked();
    for (std::size_t at = 0; at < kFindingKinds; ++at)
        filter.kinds[at] = chkKind[at].checked();
    filter.silenced = chkShowSilenced.checked();
    filter.text = upper(txtProblemFilter.text());
    return filter;
}

// A second click on the same header brings back the order of the project.
void ProblemsPane::sortBy(std::size_t column) {
    const auto key = static_cast<int>(column);
    lvwProblems.setSorted(!lvwProblems.sorted() || lvwProblems.sortKey() != key, key);
}

void ProblemsPane::openCommands(ListRow* row) {
    watch.finish();
    if (const Problem* problem = rows_.problemOf(row); problem != nullptr) {
        lvwProblems.select(row);
        commands.open(*problem);
    }
}

void ProblemsPane::goTo(const ListRow* row) {
    // What has gone meanwhile has no place, and the rows may change on the way.
    watch.finish();
    if (const Problem* problem = rows_.problemOf(row); problem != nullptr)
        go(Problem(*problem));
}

void ProblemsPane::go(const Problem& problem) {
    goToProblem(workbench(), problem, watch.tally().definitionErrors() == 0);
}

void ProblemsPane::goOn(Way way) {
    watch.finish();
    if (rowsAreOld_)
        showRows();
    const std::vector<ListRow*>& shown = lvwProblems.shown();
    if (shown.empty()) {
        window().desktop().post({"There are no problems to go to", {}, "problems"});
        return;
    }
    const int count = static_cast<int>(shown.size());
    const int before = lvwProblems.positionOf(lvwProblems.selected()); // from 1, 0 for none
    int at = way == Way::Next ? before % count : (before + count - 2) % count;
    if (before == 0 && way == Way::Previous)
        at = count - 1;
    ListRow* row = shown[static_cast<std::size_t>(at)];
    lvwProblems.select(row);
    goTo(row);
}

} // namespace zb
