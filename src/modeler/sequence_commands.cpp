#include "modeler/sequence_commands.h"

#include "controls/desktop.h"
#include "modeler/frm_add_sequence.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"

#include <string>

namespace zb {

namespace {

constexpr int kRightButton = 2;

} // namespace

SequenceCommands::SequenceCommands(frmTRModeler& window, frmAddSequence& addDialog)
    : window_(window), addDialog_(addDialog) {
    List& list = window_.lvwSequence;
    list.onMouseDown = [this](int, ListRow* row) { press(row); };
    list.onMouseUp = [this](int button, ListRow*) {
        if (button == kRightButton)
            openPopup();
    };
    list.onDoubleClick = [this](const ListRow& row) { edit(row); };
    list.onKeyDown = [this](KeyEvent key) { keyDown(key); };
    list.onDragOver = [this](const DragData&, ListRow* row) { dragOver(row); };
    list.onDrop = [this](const DragData& data, ListRow* row) { drop(data, row); };
    window_.mnuSeqAddSequence.onClick = [this] { addSequence(); };
    window_.mnuSeqDelete.onClick = [this] { deleteRow(); };
    window_.mnuSeqClearAll.onClick = [this] {
        window_.desktop().steps().name("Clear all sequences");
        window_.sequenceView().clear();
    };
}

void SequenceCommands::press(ListRow* row) {
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

void SequenceCommands::keyDown(KeyEvent key) {
    const ListRow* row = window_.lvwSequence.selected();
    if (row != nullptr && key == KeyEvent{kKeyEnter, 0})
        edit(*row);
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
    const ListRow* row = window_.lvwSequence.selected();
    if (row == nullptr)
        return;
    const bool head = row->image() == kSequenceHead;
    window_.desktop().steps().name("Delete " +
                                   (head ? "sequence " + row->text() : "sequence row " + row->cell(2)));
    window_.sequenceView().remove(*row);
}

void SequenceCommands::addSequence() {
    addDialog_.requestSequenceName(window_.sequenceView().sequences());
    if (addDialog_.SequenceName.empty())
        return;
    window_.desktop().steps().name("Add sequence " + addDialog_.SequenceName);
    window_.sequenceView().addSequence(addDialog_.SequenceName);
}

void SequenceCommands::dragOver(ListRow* row) {
    if (row != nullptr)
        press(row);
}

void SequenceCommands::drop(const DragData& data, ListRow* row) {
    if (row == nullptr || data.form != DragData::Form::Text || !window_.TRMessageExists(data.text))
        return;
    window_.desktop().steps().name("Add sequence row " + data.text);
    row->setForeColor(kUnmarkedColor);
    window_.sequenceView().insertItem(*row, window_.getDirectionText(data.text), data.text);
}

} // namespace zb
