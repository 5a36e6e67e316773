#include "workbench/frm_compare.h"

#include "compare/part_value.h"
#include "compare/project_merge.h"
#include "controls/desktop.h"
#include "platform/text.h"
#include "project/project_text.h"
#include "workbench/open_project.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

constexpr std::size_t kLongestValue = 200;
constexpr int kDifferenceKey = 118; // F7

std::string shownValue(const std::optional<std::string>& value) {
    if (!value)
        return "nothing";
    std::string text = replaceAll(*value, "\n", " ");
    if (text.size() > kLongestValue)
        text = sanitizeUtf8(std::string_view(text).substr(0, kLongestValue)) + "...";
    return "\"" + text + "\"";
}

} // namespace

frmCompare::frmCompare(Desktop& desktop, Window& mainWindow, OpenProject& project)
    : Window(desktop, "frmCompare"), project_(project), expansion_({&tvwLeft, &tvwProject, &tvwRight}) {
    setCaption("Compare");
    setFrame(mainWindow);
    setFirstFocus(tvwProject);
    pnlRight.setVisible(false);
    chkOnlyDifferences.setChecked(true);
    cmdPrevious.setToolTip("Go to the difference before this one (Shift+F7)");
    cmdNext.setToolTip("Go to the next difference (F7)");
    cmdTakeLeft.setToolTip("Take what is on the left in the selected row, and in the rows below it, into the "
                           "open project");
    cmdTakeRight.setToolTip("Take what is on the right in the selected row, and in the rows below it, into "
                            "the open project");
    wire();
    showRow();
}

void frmCompare::wire() {
    cmdPrevious.onClick = [this] { go(Way::Back); };
    cmdNext.onClick = [this] { go(Way::On); };
    cmdTakeLeft.onClick = [this] { take(0); };
    cmdTakeRight.onClick = [this] { take(1); };
    chkOnlyDifferences.onChange = [this] { showOtherRows(); };
    for (Tree* tree : {&tvwLeft, &tvwProject, &tvwRight}) {
        const auto choose = [this](Node& node) { select(static_cast<std::size_t>(node.index()) - 1); };
        tree->onNodeClick = choose;
        tree->onReached = choose;
    }
    conflicts.onDecide = [this](const ConflictChoice& choice) { return solve(choice); };
    conflicts.onChoose = [this](const MergeConflict& /*conflict*/, const ValuePlace& place) {
        showConflict(place);
    };
    addKey({kDifferenceKey, 0}, "Goes to the next difference", Way::On);
    addKey({kDifferenceKey, kShiftKey}, "Goes to the difference before", Way::Back);
}

void frmCompare::addKey(KeyEvent key, const char* purpose, Way way) {
    KeyCommand command;
    command.key = key;
    command.place = {this, {}};
    command.where = "Compare";
    command.purpose = purpose;
    command.run = [this, way] {
        go(way);
        return true;
    };
    desktop().keys().add(std::move(command));
}

void frmCompare::compare(ShownComparison comparison) {
    comparison_ = std::move(comparison);
    row_.reset();
    showConflicts();
    if (!align()) {
        forget();
        return;
    }
    setTitleNote(comparison_->left.name + " and " + project_.name());
    show();
    if (!shown_.stops.empty() && !row_)
        select(shown_.stops.front());
}

void frmCompare::forget() {
    if (visible())
        hide();
    comparison_.reset();
    conflicts.show({}, nullptr);
    shown_ = Shown();
    row_.reset();
    fillTrees();
    showRow();
}

void frmCompare::follow() {
    if (visible() && comparison_ && project_.text() != shown_.openText)
        refresh();
}

void frmCompare::refresh() {
    if (!comparison_)
        return;
    const std::optional<std::size_t> before = row_;
    row_.reset();
    const bool done = align();
    if (!done && project_.text() != shown_.openText)
        forget(); // what is shown is not the open project any more
    else if (!done)
        row_ = before;
    else if (before && !row_ && !shown_.aligned.rows.empty())
        select(std::min(*before, shown_.aligned.rows.size() - 1));
    else if (!row_ && !shown_.stops.empty())
        select(shown_.stops.front());
}

void frmCompare::showOtherRows() {
    if (!comparison_ || chkOnlyDifferences.checked() == shown_.onlyDifferences)
        return;
    const auto stop =
        row_ ? std::lower_bound(shown_.stops.begin(), shown_.stops.end(), *row_) : shown_.stops.end();
    const bool isStop = stop != shown_.stops.end() && *stop == *row_;
    const auto number = static_cast<std::size_t>(stop - shown_.stops.begin());
    refresh();
    // The user may have cancelled it.
    chkOnlyDifferences.setChecked(shown_.onlyDifferences);
    if (isStop && number < shown_.stops.size())
        select(shown_.stops[number]);
}

const ComparedVersion& frmCompare::other(std::size_t at) const {
    return at == 0 ? comparison_->left : *comparison_->right;
}

bool frmCompare::align() {
    Shown shown;
    shown.onlyDifferences = chkOnlyDifferences.checked();
    shown.openText = project_.text();
    const bool done =
        desktop().screen().doLongWork("Comparing", [&](const Progress& progress) { make(shown, progress); });
    if (!done)
        return false;
    shown_ = std::move(shown);
    fillTrees();
    showRow();
    conflicts.refresh(shown_.open);
    return true;
}

// Touches no control: it may be done on another thread.
void frmCompare::make(Shown& shown, const Progress& progress) const {
    const auto extent = shown.onlyDifferences ? AlignedExtent::OnlyDifferences : AlignedExtent::All;
    std::vector<const Project*> versions;
    for (std::size_t at = 0; at < others(); ++at)
        versions.push_back(other(at).project.get());
    shown.open = parseProject(shown.openText, progress.part(0, 0.2));
    shown.aligned = alignProjects(shown.open, versions, comparison_->scope, extent, progress.part(0.2, 0.6));
    shown.effects = judge(shown.open, shown.aligned.differences[0]);
    layOut(shown, progress.part(0.6, 1));
}

std::vector<CompatibilityFinding> frmCompare::judge(const Project& open, const Differences& toLeft) const {
    Differences changes;
    for (const Difference& difference : toLeft)
        changes.push_back(inverted(difference));
    return judgeCompatibility(*comparison_->left.project, open, changes);
}

void frmCompare::layOut(Shown& shown, const Progress& progress) const {
    const std::vector<AlignedRow>& rows = shown.aligned.rows;
    shown.urgent.assign(rows.size(), false);
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (differsHere(rows[at], others()))
            shown.stops.push_back(at);
        for (const std::size_t difference : rows[at].differences[0]) {
            const Compatibility effect = shown.effects[difference].effect;
            shown.urgent[at] = shown.urgent[at] || breaksHost(effect) || breaksEquipment(effect);
        }
    }
    for (std::size_t version = 0; version <= others(); ++version)
        shown.trees[version] = treeOfVersion(
            shown.aligned, version, others(), shown.urgent,
            progress.part(0.33 * static_cast<double>(version), 0.33 * static_cast<double>(version + 1)));
}

void frmCompare::fillTrees() {
    const bool hasRight = comparison_ && comparison_->right;
    // The project is the first version, between the others on the screen.
    const std::array<Tree*, kMostVersions> trees{&tvwProject, &tvwLeft, &tvwRight};
    for (std::size_t version = 0; version < trees.size(); ++version) {
        auto nodes = std::move(shown_.trees[version]);
        trees[version]->replaceNodes(nodes ? std::move(nodes) : std::make_unique<NodeTree>());
    }
    expansion_.restart();
    pnlRight.setVisible(hasRight);
    lblLeft.setText(comparison_ ? comparison_->left.name : std::string());
    lblProject.setText(comparison_ ? project_.name() : std::string());
    lblRight.setText(hasRight ? comparison_->right->name : std::string());
}

void frmCompare::select(std::size_t row) {
    row_ = row;
    for (Tree* tree : {&tvwLeft, &tvwProject, &tvwRight}) {
        Node* node = tree->nodes().at(static_cast<int>(row) + 1);
        for (Node* above = node == nullptr ? nullptr : node->parent(); above != nullptr;
             above = above->parent())
            above->setExpanded(true);
        if (tree->nodes().selected() != node)
            tree->nodes().select(node);
    }
    showRow();
}

void frmCompare::showRow() {
    const auto place =
        row_ ? std::lower_bound(shown_.stops.begin(), shown_.stops.end(), *row_) : shown_.stops.end();
    const bool isStop = place != shown_.stops.end() && *place == *row_;
    const std::string all = std::to_string(shown_.stops.size());
    if (shown_.stops.empty())
        lblCount.setText(comparison_ ? "No differences" : "");
    else
        lblCount.setText(isStop ? std::to_string(place - shown_.stops.begin() + 1) + " of " + all
                                : all + (shown_.stops.size() == 1 ? " difference" : " differences"));
    lblDifference.setText(row_ ? describeRow() : std::string());
    cmdNext.setEnabled(!shown_.stops.empty() && (!row_ || shown_.stops.back() > *row_));
    cmdPrevious.setEnabled(row_ && !shown_.stops.empty() && shown_.stops.front() < *row_);
    cmdTakeLeft.setEnabled(row_ && !differencesBelow(0).empty());
    cmdTakeRight.setEnabled(row_ && comparison_->right && !differencesBelow(1).empty());
}

std::string frmCompare::describeRow() const {
    std::string text;
    const AlignedRow& row = shown_.aligned.rows[*row_];
    for (std::size_t other = 0; other < others(); ++other) {
        for (const std::size_t difference : row.differences[other])
            text.append(text.empty() ? "" : "; ").append(describe(other, difference));
    }
    return text;
}

std::string frmCompare::describe(std::size_t other, std::size_t difference) const {
    // The left is earlier, and the right is later than the project.
    const Difference& given = shown_.aligned.differences[other][difference];
    const Difference shown = other == 0 ? inverted(given) : given;
    std::string text(wordOf(shown.change));
    if (!shown.field.empty())
        text += " " + shown.field + ": " + shownValue(shown.before) + " -> " + shownValue(shown.after);
    if (other > 0)
        return text + " (" + comparison_->right->name + ")";
    const CompatibilityFinding& finding = shown_.effects[difference];
    if (finding.effect == Compatibility::None)
        return text;
    text += " - " + std::string(wordOf(finding.effect));
    if (!finding.rule.empty())
        text += ": " + std::string(finding.reason) + " (" + std::string(finding.rule) + ")";
    return text;
}

void frmCompare::go(Way way) {
    if (!comparison_ || shown_.stops.empty())
        return;
    if (way == Way::On) {
        const auto next =
            row_ ? std::upper_bound(shown_.stops.begin(), shown_.stops.end(), *row_) : shown_.stops.begin();
        if (next != shown_.stops.end())
            select(*next);
    } else if (row_) {
        const auto here = std::lower_bound(shown_.stops.begin(), shown_.stops.end(), *row_);
        if (here != shown_.stops.begin())
            select(*std::prev(here));
    }
}

Differences frmCompare::differencesBelow(std::size_t other) const {
    Differences list;
    const std::size_t end = endOfRows(shown_.aligned.rows, *row_);
    for (std::size_t at = *row_; at < end; ++at) {
        for (const std::size_t difference : shown_.aligned.rows[at].differences[other])
            list.push_back(shown_.aligned.differences[other][difference]);
    }
    return list;
}

std::string frmCompare::nameOfRow() const {
    for (std::size_t at = *row_ + 1; at-- > 0;) {
        const AlignedRow& row = shown_.aligned.rows[at];
        if (row.role != AlignedRow::Role::Part && row.role != AlignedRow::Role::Section && row.level > 1)
            continue;
        const auto text = std::find_if(row.texts.begin(), row.texts.end(),
                                       [](const auto& shown) { return shown.has_value(); });
        return text == row.texts.end() ? std::string() : std::string(before(**text, ":"));
    }
    return {};
}

void frmCompare::take(std::size_t other) {
    if (!row_)
        return;
    const Differences wanted = differencesBelow(other);
    if (wanted.empty())
        return;
    project_.change(takeDifferences(shown_.open, *this->other(other).project, wanted), "Take " + nameOfRow());
    follow();
    // On to what is next in the place of what was taken.
    const auto next =
        row_ ? std::lower_bound(shown_.stops.begin(), shown_.stops.end(), *row_) : shown_.stops.end();
    if (next != shown_.stops.end())
        select(*next);
}

// The places of the conflicts are those in the project as it is now.
void frmCompare::showConflicts() {
    const bool none = comparison_->conflicts.empty();
    conflicts.show(std::move(comparison_->conflicts),
                   none ? nullptr : std::make_shared<const Project>(parseProject(project_.text())));
}

bool frmCompare::solve(const ConflictChoice& choice) {
    if (valueAt(shown_.open, choice.place) == choice.value)
        return true;
    Result<Project, std::string> result = solved(choice);
    if (!result) {
        desktop().post({choice.place.place.name + " cannot be set here: " + result.error()});
        return false;
    }
    project_.change(std::move(result).value(), "Solve " + choice.place.place.name);
    follow();
    return true;
}

Result<Project, std::string> frmCompare::solved(const ConflictChoice& choice) const {
    const MergeConflict& conflict = choice.conflict;
    const bool isTheirs = choice.of == ConflictChoice::Of::Theirs;
    const Differences theirs = isTheirs ? differencesOf(choice) : Differences();
    // Among other parts than theirs a number is another place.
    if (conflict.field == "position" && !theirs.empty())
        return takeDifferences(shown_.open, *comparison_->right->project, theirs);
    const bool isText = conflict.field == "statements" ||
                        (conflict.kind == PartKind::TrItem && conflict.field.empty() && choice.value);
    if (choice.of == ConflictChoice::Of::ByHand && isText)
        return std::string("statements are changed in the modeler");
    return withValue(shown_.open, choice.place, choice.value);
}

Differences frmCompare::differencesOf(const ConflictChoice& choice) const {
    Differences list;
    for (const Difference& difference : shown_.aligned.differences[1]) {
        if (difference.kind == choice.place.kind && difference.placeBefore == choice.place.place &&
            difference.field == choice.place.field)
            list.push_back(difference);
    }
    return list;
}

void frmCompare::showConflict(const ValuePlace& place) {
    std::optional<std::size_t> nearest;
    for (std::size_t row = 0; row < shown_.aligned.rows.size(); ++row) {
        for (const std::size_t at : shown_.aligned.rows[row].differences[1]) {
            const Difference& difference = shown_.aligned.differences[1][at];
            if (difference.placeBefore == place.place &&
                (place.field.empty() || difference.field == place.field || !place.place.path.empty())) {
                select(row);
                return;
            }
            if (!nearest && difference.placeBefore.name == place.place.name)
                nearest = row;
        }
    }
    if (nearest)
        select(*nearest);
}

} // namespace zb
