#include "workbench/conflict_panel.h"

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
        if (const auto at = chosen())
            decide(conflicts_[*at].ours);
    };
    cmdTheirs.onClick = [this] {
        if (const auto at = chosen())
            decide(conflicts_[*at].theirs);
    };
    cmdByHand.onClick = [this] { decide(replaceAll(txtByHand.text(), "\r", "")); };
    cmdByHand.setToolTip("Sets this value in the open project. Left as it is, it is decided for");
    choose();
}

void ConflictPanel::show(std::vector<MergeConflict> conflicts) {
    conflicts_ = std::move(conflicts);
    decided_.assign(conflicts_.size(), false);
    now_.assign(conflicts_.size(), std::nullopt);
    lvwConflicts.clear();
    for (std::size_t at = 0; at < conflicts_.size(); ++at)
        lvwConflicts.add({}, std::to_string(at));
    pnlConflicts.setVisible(!conflicts_.empty());
    lvwConflicts.select(conflicts_.empty() ? nullptr : lvwConflicts.find("0"));
}

void ConflictPanel::refresh(const Project& open) {
    for (std::size_t at = 0; at < conflicts_.size(); ++at) {
        now_[at] = valueAt(open, placeOf(conflicts_[at]));
        fillRow(at);
    }
    choose();
}

std::vector<MergeConflict> ConflictPanel::undecided() const {
    std::vector<MergeConflict> open;
    for (std::size_t at = 0; at < conflicts_.size(); ++at) {
        if (!decided_[at])
            open.push_back(conflicts_[at]);
    }
    return open;
}

std::optional<std::size_t> ConflictPanel::chosen() const {
    const ListRow* row = lvwConflicts.selected();
    const int position = lvwConflicts.positionOf(row);
    return position == 0 ? std::nullopt : std::optional(static_cast<std::size_t>(position) - 1);
}

void ConflictPanel::choose() {
    const auto at = chosen();
    for (Button* button : {&cmdOurs, &cmdTheirs, &cmdByHand})
        button->setEnabled(at.has_value());
    txtByHand.setText(at ? now_[*at].value_or(std::string()) : std::string());
    if (at && onChoose)
        onChoose(conflicts_[*at]);
}

void ConflictPanel::decide(const std::optional<std::string>& value) {
    const auto at = chosen();
    if (!at || !onDecide || !onDecide(MergeConflict(conflicts_[*at]), value))
        return;
    decided_[*at] = true;
    fillRow(*at);
}

std::string ConflictPanel::stateOf(std::size_t at) const {
    if (!decided_[at])
        return "! ";
    if (now_[at] == conflicts_[at].ours)
        return "ours: ";
    return now_[at] == conflicts_[at].theirs ? "theirs: " : "by hand: ";
}

void ConflictPanel::fillRow(std::size_t at) {
    ListRow& row = *lvwConflicts.rows()[at];
    row.setCell(0, placeText(conflicts_[at]));
    row.setCell(1, inOneLine(conflicts_[at].ours));
    row.setCell(2, inOneLine(conflicts_[at].theirs));
    row.setCell(3, stateOf(at) + inOneLine(now_[at]));
}

} // namespace zb
