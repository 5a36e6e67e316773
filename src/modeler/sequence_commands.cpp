#include "modeler/sequence_commands.h"

#include "controls/desktop.h"
#include "modeler/frm_add_sequence.h"
#include "modeler/frm_rename.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/message_names.h"
#include "modeler/model_nodes.h"
#include "platform/text.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace zb {

namespace {

constexpr int kRightButton = 2;

} // namespace

SequenceCommands::SequenceCommands(frmTRModeler& window, frmAddSequence& addDialog)
    : window_(window), addDialog_(addDialog) {
    List& list = window_.lvwSequence;
    list.onMouseDown = [this](int button, ListRow* row) { press(button, row); };
    list.onMouseUp = [this](int button, ListRow*) {
        if (button == kRightButton)
            openPopup();
    };
    list.onDoubleClick = [this](const ListRow& row) { edit(row); };
    list.onDragStart = [this] { return dragged(); };
    list.onDragOver = [this](const DragData&, ListRow* row) { dragOver(row); };
    list.onDrop = [this](const DragData& data, ListRow* row) { drop(data, row); };
    window_.mnuSeqAddSequence.onClick = [this] { addSequence(); };
    window_.mnuSeqDelete.onClick = [this] { deleteRow(); };
    window_.mnuSeqClearAll.onClick = [this] {
        window_.desktop().steps().name("Clear all sequences");
        window_.sequenceView().clear();
    };
    wireKeys();
}

void SequenceCommands::wireKeys() {
    const auto add = [this](KeyEvent key, const char* purpose, auto run) {
        window_.desktop().keys().add(
            {key, {&window_, {&window_.lvwSequence}}, "the sequences", purpose, [this, run] {
                 if (!hasSelection())
                     return false;
                 run();
                 return true;
             }});
    };
    add({kKeyEnter, 0}, "Opens the dialog of the message in the row",
        [this] { edit(*window_.lvwSequence.selected()); });
    add({kKeyDelete, kControlKey}, "Deletes the selected rows", [this] { removeRows(); });
    add({kKeyUp, kAltKey}, "Moves the selected rows up", [this] { moveRows(Step::Up); });
    add({kKeyDown, kAltKey}, "Moves the selected rows down", [this] { moveRows(Step::Down); });
    add({'D', kControlKey}, "Duplicates the selected rows", [this] { duplicateRows(); });
    add({kKeyF2, 0}, "Renames the selected sequence", [this] { renameSequence(); });
    window_.desktop().keys().add(
        {{kKeyInsert, 0}, {&window_, {&window_.lvwSequence}}, "the sequences", "Adds a sequence", [this] {
             addSequence();
             return true;
         }});
}

void SequenceCommands::press(int button, ListRow* row) {
    if (button == kRightButton && (row == nullptr || !row->selected()))
        window_.lvwSequence.select(row);
    if (row != nullptr)
        row->setForeColor(kUnmarkedColor);
}

void SequenceCommands::openPopup() {
    if (window_.isDialogVisible())
        return;
    ListRow* row = window_.lvwSequence.selected();
    if (row != nullptr)
        row->setForeColor(kUnmarkedColor);
    window_.mnuSeqDelete.setEnabled(row != nullptr);
    window_.mnuSeqClearAll.setEnabled(window_.lvwSequence.count() > 0);
    window_.mnuSeqPopup.open();
}

bool SequenceCommands::hasSelection() const {
    return window_.lvwSequence.selected() != nullptr;
}

bool SequenceCommands::hasSelectedSequence() const {
    const ListRow* row = window_.lvwSequence.selected();
    return row != nullptr && row->image() == kSequenceHead;
}

void SequenceCommands::edit(const ListRow& row) {
    const TRModelStore* model = window_.store();
    // A copy: the dialog may change the row.
    const auto name = std::string(row.cell(2));
    const TRMessageRecord* record = model == nullptr ? nullptr : model->getTRMessage(name);
    if (record == nullptr)
        return;
    const bool sent = record->Direction() == model->SentDirection();
    window_.editMessage(sent ? window_.tvwSndTRMsg : window_.tvwRcvTRMsg, name);
}

void SequenceCommands::deleteRow() {
    const RowPlaces selected = places();
    if (selected.size() > 1) {
        removeRows();
        return;
    }
    if (const ListRow* row = window_.lvwSequence.selected(); row != nullptr) {
        window_.desktop().steps().name("Delete " + nameOf(selected));
        window_.sequenceView().remove(*row);
    }
}

void SequenceCommands::addSequence() {
    addDialog_.requestSequenceName(window_.sequenceView().sequences());
    if (addDialog_.SequenceName.empty())
        return;
    window_.desktop().steps().name("Add sequence " + addDialog_.SequenceName);
    window_.sequenceView().addSequence(addDialog_.SequenceName);
}

// Several rows at once

void SequenceCommands::moveRows(Step way) {
    apply(rowsMoved(rows(), places(), way), "Move " + nameOf(places()));
}

void SequenceCommands::duplicateRows() {
    const RowPlaces selected = places();
    if (!selected.empty())
        apply(rowsPutAfter(rows(), selected, selected.back(), Put::Copied), "Duplicate " + nameOf(selected));
}

void SequenceCommands::removeRows() {
    apply(rowsRemoved(rows(), places()), "Delete " + nameOf(places()));
}

void SequenceCommands::renameSequence() {
    const ListRow* row = window_.lvwSequence.selected();
    if (row == nullptr || row->image() != kSequenceHead)
        return;
    const std::size_t head = placeOf(*row);
    const std::string name = row->text();
    const std::string chosen = window_.renameDialog().requestName(
        "Rename sequence " + name, name, [&](const std::string& wish) { return faultOfName(wish, head); });
    if (chosen.empty())
        return;
    SequenceEdit edit{rows(), {head}};
    edit.rows[head].row.text = chosen;
    apply(edit, "Rename sequence " + name + " to " + chosen);
}

std::string SequenceCommands::faultOfName(const std::string& name, std::size_t head) const {
    const auto& all = window_.sequenceView().sequences().rows();
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (at != head && all[at].isHead() && upper(all[at].text) == upper(name))
            return name + " is the name of another sequence.";
    }
    return faultOfSequenceName(name, window_.state());
}

SequenceRows SequenceCommands::rows() const {
    return window_.sequenceView().rows(0, window_.lvwSequence.count());
}

std::size_t SequenceCommands::placeOf(const ListRow& row) const {
    return static_cast<std::size_t>(window_.lvwSequence.positionOf(&row)) - 1;
}

RowPlaces SequenceCommands::places() const {
    RowPlaces places;
    const auto& all = window_.lvwSequence.rows();
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (all[at]->selected())
            places.push_back(at);
    }
    return places;
}

std::string SequenceCommands::nameOf(const RowPlaces& places) const {
    if (places.size() != 1)
        return std::to_string(places.size()) + " sequence rows";
    const SequenceRow& row = window_.sequenceView().sequences().rows()[places.front()];
    return row.isHead() ? "sequence " + row.text : "sequence row " + row.transactionName;
}

// Only the rows that differ are exchanged, so that an undo keeps no more than these.
void SequenceCommands::apply(const std::optional<SequenceEdit>& edit, const std::string& step) {
    if (!edit)
        return;
    const SequenceRows before = rows();
    const SequenceRows& after = edit->rows;
    const auto differs = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto head = static_cast<std::size_t>(differs.first - before.begin());
    const std::size_t shorter = std::min(before.size(), after.size()) - head;
    const auto end = std::mismatch(before.rbegin(), before.rbegin() + static_cast<std::ptrdiff_t>(shorter),
                                   after.rbegin());
    const auto tail = static_cast<std::size_t>(end.first - before.rbegin());
    window_.desktop().steps().name(step);
    window_.sequenceView().exchange(
        head, before.size() - head - tail,
        SequenceRows(differs.second, after.end() - static_cast<std::ptrdiff_t>(tail)));
    select(edit->selected);
}

void SequenceCommands::select(const RowPlaces& places) {
    List& list = window_.lvwSequence;
    std::vector<ListRow*> rows;
    for (const std::size_t place : places)
        rows.push_back(list.rows()[place].get());
    list.selectAll(rows);
}

// Drags

std::optional<DragData> SequenceCommands::dragged() {
    List& list = window_.lvwSequence;
    const std::vector<ListRow*> rows = list.selectedRows();
    // A single row is never dragged: a slip of the hand on a row would move it.
    if (rows.size() < 2)
        return std::nullopt;
    dragged_.assign(rows.begin(), rows.end());
    return DragData{rows.front()->text(), &list};
}

void SequenceCommands::dragOver(ListRow* row) {
    if (row == nullptr)
        return;
    window_.lvwSequence.select(row);
    row->setForeColor(kUnmarkedColor);
}

void SequenceCommands::drop(const DragData& data, ListRow* row) {
    if (row == nullptr || data.form != DragData::Form::Text)
        return;
    if (data.source == &window_.lvwSequence) {
        dropRows(data, *row);
        return;
    }
    if (!window_.TRMessageExists(data.text))
        return;
    window_.desktop().steps().name("Add sequence row " + data.text);
    row->setForeColor(kUnmarkedColor);
    window_.sequenceView().insertItem(*row, window_.getDirectionText(data.text), data.text);
}

// Rows that were taken by the copy key may be gone by now.
void SequenceCommands::dropRows(const DragData& data, const ListRow& row) {
    const auto& all = window_.lvwSequence.rows();
    const std::unordered_set<const ListRow*> dragged(dragged_.begin(), dragged_.end());
    RowPlaces places;
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (dragged.contains(all[at].get()))
            places.push_back(at);
    }
    apply(rowsPutAfter(rows(), places, placeOf(row), data.copied ? Put::Copied : Put::Moved),
          (data.copied ? "Duplicate " : "Move ") + nameOf(places));
}

} // namespace zb
