#include "workbench/problem_commands.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/step_names.h"
#include "lint/rule.h"
#include "lint/silencings_file.h"
#include "platform/file_layer.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "workbench/frm_workbench.h"
#include "workbench/problem_places.h"
#include "workbench/project_door.h"

#include <filesystem>
#include <variant>

namespace zb {

namespace {

/// The cure of the problem as the tree is now. Nothing when the problem has gone meanwhile.
std::optional<Cure> cureOfProblem(const Problem& problem, const NodeTree& tree) {
    const Node* node = nodeOf(problem);
    if (node == nullptr)
        return std::nullopt;
    Finding finding = problem.finding;
    finding.place.nodeIndex = node->index();
    return cureOf(finding, tree);
}

/// The list of messages follows what a cure does to the names.
void followNames(frmSECSEditor& editor, const std::string& before, const std::string& after) {
    if (before == after)
        return;
    Combo& names = editor.cboSECSMessage;
    const auto& entries = names.entries();
    if (const auto old = std::find(entries.begin(), entries.end(), before); old != entries.end())
        names.removeAt(static_cast<std::size_t>(old - entries.begin()));
    editor.InsertCbo(after);
}

} // namespace

ProblemCommands::ProblemCommands(frmWorkbench& workbench, ProblemWatch& watch)
    : mnuProblem(workbench, "mnuProblem"),
      mnuProblemGo(workbench, "mnuProblemGo", "&Go to the Place", &mnuProblem),
      mnuProblemCure(workbench, "mnuProblemCure", "&Cure", &mnuProblem),
      mnuSilencePlace(workbench, "mnuSilencePlace", "Silence This &Place", &mnuProblem),
      mnuSilenceKind(workbench, "mnuSilenceKind", "Silence This &Kind", &mnuProblem),
      mnuReportAgain(workbench, "mnuReportAgain", "&Report Again", &mnuProblem), workbench_(workbench),
      watch_(watch) {
    mnuSilencePlace.withSeparatorAbove();
    mnuProblemGo.onClick = [this] { onGo(Problem(*problem_)); };
    mnuProblemCure.onClick = [this] { cure(); };
    mnuSilencePlace.onClick = [this] {
        change([this](Silencings& all) { all.add(Silencing::placeOf(problem_->finding)); });
    };
    mnuSilenceKind.onClick = [this] {
        change([this](Silencings& all) { all.add(Silencing::kindOf(problem_->finding)); });
    };
    mnuReportAgain.onClick = [this] {
        change([this](Silencings& all) {
            for (const Silencing& silencing : all.of(problem_->finding))
                all.remove(silencing);
        });
    };
}

void ProblemCommands::open(const Problem& problem) {
    problem_ = problem;
    const Finding& finding = problem.finding;
    const auto cure = cureOfProblem(problem, workbench_.services().editor.liveTree());
    mnuProblemCure.setCaption(cure ? cure->title : "No cure by itself");
    mnuProblemCure.setEnabled(cure.has_value());
    const bool hasRule = findRule(finding.id) != nullptr;
    std::string obstacle;
    if (!hasRule)
        obstacle = "it is in a file";
    else if (problem.isSilenced)
        obstacle = "it is silenced";
    else if (projectFile().empty())
        obstacle = "save the project first";
    showEntry(mnuSilencePlace, "Silence This &Place", obstacle);
    showEntry(mnuSilenceKind, "Silence This &Kind", obstacle);
    mnuSilenceKind.setToolTip(hasRule ? "All findings of the rule " + finding.id : std::string());
    showEntry(mnuReportAgain, "&Report Again", problem.isSilenced ? "" : "it is not silenced");
    mnuProblem.open();
}

void ProblemCommands::showEntry(MenuEntry& entry, const std::string& caption, const std::string& obstacle) {
    entry.setCaption(obstacle.empty() ? caption : caption + " (" + obstacle + ")");
    entry.setEnabled(obstacle.empty());
}

void ProblemCommands::cure() {
    frmSECSEditor& editor = workbench_.services().editor;
    const auto cure = cureOfProblem(*problem_, editor.liveTree());
    if (!cure)
        return;
    workbench_.desktop().steps().name(cure->title);
    workbench_.services().project.showEditor();
    Node* node = nodeOf(*problem_);
    const std::string before = node->parent() == nullptr ? nameForSteps(*node) : std::string();
    apply(*cure, editor.liveTree());
    if (const auto* added = std::get_if<AddedMessageCure>(&cure->step))
        editor.InsertCbo(added->message.getName());
    else if (!before.empty())
        followNames(editor, before, nameForSteps(*node));
    editor.treeInteraction.showAgain(node);
}

std::string ProblemCommands::projectFile() const {
    const std::string path = workbench_.services().state.projectFilePath();
    std::error_code ignored;
    return isBlank(workbench_.services().state.ProjectName) || !std::filesystem::exists(path, ignored)
               ? std::string()
               : path;
}

void ProblemCommands::readSilencings() {
    const std::string path = projectFile();
    const Result<Silencings> read = path.empty() ? Silencings() : zb::readSilencings(path);
    if (!read)
        workbench_.desktop().post(
            {silencingsPath(path) + " cannot be read: " + read.error().description, {}, "silencings"});
    watch_.setSilencings(read ? *read : Silencings());
}

void ProblemCommands::askForStandard(bool ask) {
    change([ask](Silencings& all) { all.askForStandard(ask); });
}

void ProblemCommands::change(const std::function<void(Silencings&)>& change) {
    const std::string path = projectFile();
    if (path.empty())
        return;
    const Result<Silencings> changed = changeSilencings(workbench_.services().state.files, path, change);
    if (changed)
        watch_.setSilencings(*changed);
    else
        workbench_.desktop().post(
            {silencingsPath(path) + " cannot be written: " + changed.error().description, {}, "silencings"});
}

} // namespace zb
