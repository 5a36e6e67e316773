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
    conflicts.onDecide = [this](const MergeConflict& conflict, const std::optional<std::string>& value) {
        return solve(conflict, value);
    };
    conflicts.onChoose = [this](const MergeConflict& conflict) { showConflict(conflict); };
    for (Control* control : controls()) {
        control->onKeyDown = [this](KeyEvent key) {
            if (key.code == kDifferenceKey)
                go((key.shift & kShiftKey) != 0 ? Way::Back : Way::On);
        };
    }
}

void frmCompare::compare(Comparison comparison) {
    comparison_ = std::move(comparison);
    row_.reset();
    conflicts.show(comparison_->conflicts);
    if (!align()) {
        forget();
        return;
    }
    setTitleNote(comparison_->left.name + " and " + project_.name());
    show();
    if (!stops_.empty() && !row_)
        select(stops_.front());
}

void frmCompare::forget() {
    if (visible())
        hide();
    comparison_.reset();
    conflicts.show({});
    open_ = Project();
    aligned_ = AlignedProjects();
    effects_.clear();
    stops_.clear();
    row_.reset();
    fillTrees();
    showRow();
}

void frmCompare::follow() {
    if (visible() && comparison_ && project_.text() != openText_)
        refresh();
}

void frmCompare::refresh() {
    if (!comparison_)
        return;
    const std::optional<std::size_t> before = row_;
    row_.reset();
    // What is shown would not be the open project any more.
    if (!align())
        forget();
    else if (before && !row_ && !aligned_.rows.empty())
        select(std::min(*before, aligned_.rows.size() - 1));
}

void frmCompare::showOtherRows() {
    const auto stop = row_ ? std::lower_bound(stops_.begin(), stops_.end(), *row_) : stops_.end();
    const bool isStop = stop != stops_.end() && *stop == *row_;
    const auto number = static_cast<std::size_t>(stop - stops_.begin());
    refresh();
    if (isStop && number < stops_.size())
        select(stops_[number]);
}

const ComparedVersion& frmCompare::other(std::size_t at) const {
    return at == 0 ? comparison_->left : *comparison_->right;
}

bool frmCompare::align() {
    std::string text = project_.text();
    const auto extent = chkOnlyDifferences.checked() ? AlignedExtent::OnlyDifferences : AlignedExtent::All;
    std::vector<const Project*> versions;
    for (std::size_t at = 0; at < others(); ++at)
        versions.push_back(other(at).project.get());
    Project open;
    AlignedProjects aligned;
    std::vector<CompatibilityFinding> effects;
    const bool done = desktop().screen().doLongWork("Comparing", [&](const Progress& progress) {
        open = parseProject(text, progress.part(0, 0.3));
        aligned = alignProjects(open, versions, comparison_->scope, extent, progress.part(0.3, 0.8));
        effects = judge(open, aligned.differences[0]);
    });
    if (!done)
        return false;
    openText_ = std::move(text);
    open_ = std::move(open);
    aligned_ = std::move(aligned);
    effects_ = std::move(effects);
    fillTrees();
    showRow();
    conflicts.refresh(open_);
    return true;
}

std::vector<CompatibilityFinding> frmCompare::judge(const Project& open, const Differences& toLeft) const {
    Differences changes;
    for (const Difference& difference : toLeft)
        changes.push_back(inverted(difference));
    return judgeCompatibility(*comparison_->left.project, open, changes);
}

void frmCompare::fillTrees() {
    const std::size_t count = comparison_ ? others() : 1;
    urgent_.assign(aligned_.rows.size(), false);
    stops_.clear();
    for (std::size_t at = 0; at < aligned_.rows.size(); ++at) {
        const AlignedRow& row = aligned_.rows[at];
        if (differsHere(row, count))
            stops_.push_back(at);
        for (const std::size_t difference : row.differences[0]) {
            const Compatibility effect = effects_[difference].effect;
            urgent_[at] = urgent_[at] || breaksHost(effect) || breaksEquipment(effect);
        }
    }
    tvwLeft.replaceNodes(treeOfVersion(aligned_, 1, count, urgent_));
    tvwProject.replaceNodes(treeOfVersion(aligned_, 0, count, urgent_));
    tvwRight.replaceNodes(count == 2 ? treeOfVersion(aligned_, 2, count, urgent_)
                                     : std::make_unique<NodeTree>());
    expansion_.restart();
    pnlRight.setVisible(count == 2);
    lblLeft.setText(comparison_ ? comparison_->left.name : std::string());
    lblProject.setText(comparison_ ? project_.name() : std::string());
    lblRight.setText(count == 2 ? comparison_->right->name : std::string());
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
    const auto place = row_ ? std::lower_bound(stops_.begin(), stops_.end(), *row_) : stops_.end();
    const bool isStop = place != stops_.end() && *place == *row_;
    const std::string all = std::to_string(stops_.size());
    if (stops_.empty())
        lblCount.setText(comparison_ ? "No differences" : "");
    else
        lblCount.setText(isStop ? std::to_string(place - stops_.begin() + 1) + " of " + all
                                : all + (stops_.size() == 1 ? " difference" : " differences"));
    lblDifference.setText(row_ ? describeRow() : std::string());
    cmdNext.setEnabled(!stops_.empty() && (!row_ || stops_.back() > *row_));
    cmdPrevious.setEnabled(row_ && !stops_.empty() && stops_.front() < *row_);
    cmdTakeLeft.setEnabled(row_ && !differencesBelow(0).empty());
    cmdTakeRight.setEnabled(row_ && comparison_->right && !differencesBelow(1).empty());
}

std::string frmCompare::describeRow() const {
    std::string text;
    const AlignedRow& row = aligned_.rows[*row_];
    for (std::size_t other = 0; other < others(); ++other) {
        for (const std::size_t difference : row.differences[other])
            text.append(text.empty() ? "" : "; ").append(describe(other, difference));
    }
    return text;
}

std::string frmCompare::describe(std::size_t other, std::size_t difference) const {
    // The left is earlier, and the right is later than the project.
    const Difference& given = aligned_.differences[other][difference];
    const Difference shown = other == 0 ? inverted(given) : given;
    std::string text(wordOf(shown.change));
    if (!shown.field.empty())
        text += " " + shown.field + ": " + shownValue(shown.before) + " -> " + shownValue(shown.after);
    if (other > 0)
        return text + " (" + comparison_->right->name + ")";
    const CompatibilityFinding& finding = effects_[difference];
    if (finding.effect == Compatibility::None)
        return text;
    text += " - " + std::string(wordOf(finding.effect));
    if (!finding.rule.empty())
        text += ": " + std::string(finding.reason) + " (" + std::string(finding.rule) + ")";
    return text;
}

void frmCompare::go(Way way) {
    if (!comparison_ || stops_.empty())
        return;
    if (way == Way::On) {
        const auto next = row_ ? std::upper_bound(stops_.begin(), stops_.end(), *row_) : stops_.begin();
        if (next != stops_.end())
            select(*next);
    } else if (row_) {
        const auto here = std::lower_bound(stops_.begin(), stops_.end(), *row_);
        if (here != stops_.begin())
            select(*std::prev(here));
    }
}

Differences frmCompare::differencesBelow(std::size_t other) const {
    Differences list;
    const std::size_t end = endOfRows(aligned_.rows, *row_);
    for (std::size_t at = *row_; at < end; ++at) {
        for (const std::size_t difference : aligned_.rows[at].differences[other])
            list.push_back(aligned_.differences[other][difference]);
    }
    return list;
}

std::string frmCompare::nameOfRow() const {
    for (std::size_t at = *row_ + 1; at-- > 0;) {
        const AlignedRow& row = aligned_.rows[at];
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
    project_.change(takeDifferences(open_, *this->other(other).project, wanted), "Take " + nameOfRow());
    follow();
    // On to what is next in the place of what was taken.
    const auto next = row_ ? std::lower_bound(stops_.begin(), stops_.end(), *row_) : stops_.end();
    if (next != stops_.end())
        select(*next);
}

// Where the value alone does not say enough, the whole of theirs is taken.
bool frmCompare::solve(const MergeConflict& conflict, const std::optional<std::string>& value) {
    const ValuePlace place = ConflictPanel::placeOf(conflict);
    if (valueAt(open_, place) == value)
        return true;
    Result<Project, std::string> solved = withValue(open_, place, value);
    const Differences theirs = differencesOf(conflict);
    if (!solved && value == conflict.theirs && !theirs.empty())
        solved = takeDifferences(open_, *comparison_->right->project, theirs);
    if (!solved) {
        desktop().post({conflict.place.name + " cannot be set here: " + solved.error()});
        return false;
    }
    project_.change(std::move(solved).value(), "Solve " + conflict.place.name);
    follow();
    return true;
}

Differences frmCompare::differencesOf(const MergeConflict& conflict) const {
    Differences list;
    for (const Difference& difference : aligned_.differences[1]) {
        const bool isThere = difference.kind == conflict.kind && difference.placeBefore == conflict.place;
        if (isThere && (conflict.field.empty() || difference.field == conflict.field ||
                        difference.kind == PartKind::Item))
            list.push_back(difference);
    }
    return list;
}

void frmCompare::showConflict(const MergeConflict& conflict) {
    for (std::size_t row = 0; row < aligned_.rows.size(); ++row) {
        for (const std::size_t at : aligned_.rows[row].differences[1]) {
            const Difference& difference = aligned_.differences[1][at];
            if (difference.placeBefore == conflict.place &&
                (conflict.field.empty() || difference.field == conflict.field ||
                 !conflict.place.path.empty())) {
                select(row);
                return;
            }
        }
    }
}

} // namespace zb
