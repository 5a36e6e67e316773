#include "workbench/conflict_panel.h"

#include "compare/conflict_file.h"
#include "compare/place_following.h"
#include "controls/window.h"
#include "platform/text.h"

#include <utility>

namespace zb {

namespace {

std::string inOneLine(const std::optional<std::string>& value) {
    return value ? replaceAll(*value, "\n", " ") : "(nothing)";
}

std::string placeText(const MergeConflict& conflict) {
    std::string text = conflict.place.name.empty() ? "project" : conflict.place.name;
    for (const std::string* part : {&conflict.place.path, &conflict.field}) {
        if (!part->empty())
            text.append(": ").append(*part);
    }
    return text;
}

} // namespace

ConflictPanel::ConflictPanel(Window& window)
    : pnlConflicts(window, "pnlConflicts", "Conflicts"), lvwConflicts(window, "lvwConflicts", &pnlConflicts),
      cmdOurs(window, "cmdOurs", "Take o&urs", &pnlConflicts),
      cmdTheirs(window, "cmdTheirs", "Take th&eirs", &pnlConflicts),
      lblByHand(window, "lblByHand", "Or by han&d:", &pnlConflicts),
      txtByHand(window, "txtByHand", &pnlConflicts, TextField::Lines::Many),
      cmdByHand(window, "cmdByHand", "&Set", &pnlConflicts) {
    pnlConflicts.setVisible(false);
    lvwConflicts.addColumn("Conflict", 3600);
    lvwConflicts.addColumn("Ours", 2700);
    lvwConflicts.addColumn("Theirs", 2700);
    lvwConflicts.addColumn("Now", 2700);
    lvwConflicts.onMouseUp = [this](int /*button*/, ListRow* /*row*/) { choose(); };
    lvwConflicts.onReached = [this](ListRow& /*row*/) { choose(); };
    cmdOurs.onClick = [this] {
        const Row* row = chosen();
        // A position is that among ours, and the merge may have put other parts before it.
        if (row != nullptr)
            decide(ConflictChoice::Of::Ours,
                   row->conflict.field == "position" ? row->first : row->conflict.ours);
    };
    cmdTheirs.onClick = [this] {
        if (const Row* row = chosen())
            decide(ConflictChoice::Of::Theirs, row->conflict.theirs);
    };
    cmdByHand.onClick = [this] {
        decide(ConflictChoice::Of::ByHand, replaceAll(txtByHand.text(), "\r", ""));
    };
    cmdByHand.setToolTip("Sets this value in the open project. Left as it is, it is decided for");
    choose();
}

void ConflictPanel::show(std::vector<MergeConflict> conflicts, std::shared_ptr<const Project> merged) {
    rows_.clear();
    lvwConflicts.clear();
    for (MergeConflict& conflict : conflicts) {
        Row row{std::move(conflict), {}, {}, {}, {}, {}};
        row.place = placeOfConflict(row.conflict);
        lvwConflicts.add({}, std::to_string(rows_.size()));
        rows_.push_back(std::move(row));
    }
    merged_ = std::move(merged);
    isFresh_ = true;
    pnlConflicts.setVisible(!rows_.empty());
    lvwConflicts.select(rows_.empty() ? nullptr : lvwConflicts.find("0"));
}

void ConflictPanel::refresh(const Project& open) {
    std::vector<ValuePlace> places;
    for (const Row& row : rows_)
        places.push_back(placeOfConflict(row.conflict));
    if (merged_ != nullptr && !rows_.empty())
        places = followPlaces(*merged_, open, places);
    const std::vector<Text> values = valuesAt(open, places);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        Row& row = rows_[at];
        row.place = places[at];
        row.now = values[at];
        if (isFresh_)
            row.first = row.now;
        fillRow(at);
    }
    isFresh_ = false;
    choose();
}

std::vector<MergeConflict> ConflictPanel::undecided() const {
    std::vector<MergeConflict> open;
    for (const Row& row : rows_) {
        if (!row.isDecided())
            open.push_back(row.conflict);
    }
    return open;
}

ConflictPanel::Row* ConflictPanel::chosen() {
    const int position = lvwConflicts.positionOf(lvwConflicts.selected());
    return position == 0 ? nullptr : &rows_[static_cast<std::size_t>(position) - 1];
}

void ConflictPanel::choose() {
    const Row* row = chosen();
    for (Button* button : {&cmdOurs, &cmdTheirs, &cmdByHand})
        button->setEnabled(row != nullptr);
    txtByHand.setText(row == nullptr ? std::string() : row->now.value_or(std::string()));
    if (row != nullptr && onChoose)
        onChoose(row->conflict, row->place);
}

void ConflictPanel::decide(ConflictChoice::Of of, const Text& value) {
    Row* row = chosen();
    if (row == nullptr || !onDecide || !onDecide({row->conflict, row->place, of, value}))
        return;
    row->decided = of;
    row->decidedValue = row->now;
    fillRow(static_cast<std::size_t>(row - rows_.data()));
}

std::string ConflictPanel::stateOf(const Row& row) {
    if (!row.isDecided())
        return "! ";
    const bool asDecided = row.now == row.decidedValue;
    if (row.now == row.conflict.theirs || (asDecided && row.decided == ConflictChoice::Of::Theirs))
        return "theirs: ";
    if (row.now == row.conflict.ours || (asDecided && row.decided == ConflictChoice::Of::Ours))
        return "ours: ";
    return "by hand: ";
}

void ConflictPanel::fillRow(std::size_t at) {
    const Row& row = rows_[at];
    ListRow& shown = *lvwConflicts.rows()[at];
    shown.setCell(0, placeText(row.conflict));
    const auto cell = [&row](const Text& value) {
        return inOneLine(shownConflictValue(row.conflict, value));
    };
    shown.setCell(1, cell(row.conflict.ours));
    shown.setCell(2, cell(row.conflict.theirs));
    shown.setCell(3, stateOf(row) + cell(row.now));
}

} // namespace zb
