#include "modeler/tr_object_commands.h"

#include "controls/desktop.h"
#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"

#include <string>

namespace zb {

namespace {

constexpr int kRightButton = 2;

bool isMessage(const ListRow& row) {
    return row.image() == kReceivedPicture || row.image() == kSentPicture;
}

} // namespace

TRObjectCommands::TRObjectCommands(frmTRModeler& window) : window_(window) {
    List& table = window_.lvwTRObject;
    table.onMouseDown = [this](int, ListRow* row) { press(row); };
    table.onMouseUp = [this](int button, ListRow*) {
        if (button == kRightButton)
            openPopup();
    };
    table.onDoubleClick = [this](const ListRow& row) { edit(row); };
    table.onKeyDown = [this, &table](KeyEvent key) {
        if (key == KeyEvent{kKeyEnter, 0} && table.selected() != nullptr)
            edit(*table.selected());
    };
    table.onReached = [this](const ListRow& row) { follow(row); };
    table.onDragStart = [&table]() -> std::optional<DragData> {
        if (table.selected() == nullptr)
            return std::nullopt;
        return DragData{table.selected()->text(), &table};
    };
    window_.mnuTRObjectPopup.onClosed = [this] { popupClosed(); };
    wireCommands();
}

bool TRObjectCommands::showsMessages() const {
    const ModelSelection& current = window_.current();
    return current.tree != nullptr && current.message == window_.rootOf(*current.tree);
}

void TRObjectCommands::press(ListRow* row) {
    window_.lvwTRObject.select(row);
    if (row != nullptr)
        follow(*row);
}

void TRObjectCommands::follow(const ListRow& row) {
    if (isMessage(row)) {
        if (window_.messageDialog().visible())
            edit(row);
        return;
    }
    window_.current().item = row.text();
    if (window_.itemDialog().visible())
        edit(row);
}

void TRObjectCommands::edit(const ListRow& row) {
    // Copies: a dialog that opens may refill the table.
    const auto name = std::string(row.text());
    if (isMessage(row)) {
        window_.editMessage(row.image() == kReceivedPicture ? window_.tvwRcvTRMsg : window_.tvwSndTRMsg,
                            name);
        return;
    }
    const std::string message = window_.current().message;
    window_.itemDialog().updateTRItem(message, itemKey(message, name));
}

void TRObjectCommands::openPopup() {
    if (window_.isDialogVisible())
        return;
    const ListRow* row = window_.lvwTRObject.selected();
    const bool messages = showsMessages();
    setPopupState(messages, row != nullptr);
    if (messages && row != nullptr) {
        window_.current().message = row->text();
        messageOfRow_ = true;
    }
    window_.mnuTRObjectPopup.open();
}

void TRObjectCommands::setPopupState(bool messages, bool row) {
    window_.mnuAddTRObjTRMsg.setEnabled(messages && !row);
    window_.mnuUpdateTRObjTRMsg.setEnabled(messages && row);
    window_.mnuDeleteTRObjTRMsg.setEnabled(messages && row);
    window_.mnuAddTRObjTRItem.setEnabled(window_.current().tree == &window_.tvwRcvTRMsg && messages == row);
    window_.mnuUpdateTRObjTRItem.setEnabled(!messages && row);
    window_.mnuDeleteTRObjTRItem.setEnabled(!messages && row);
    // Sent messages have no items.
    for (MenuEntry* entry :
         {&window_.mnuAddTRObjTRItem, &window_.mnuUpdateTRObjTRItem, &window_.mnuDeleteTRObjTRItem})
        entry->setVisible(window_.current().tree != &window_.tvwSndTRMsg);
}

void TRObjectCommands::popupClosed() {
    if (!messageOfRow_)
        return;
    messageOfRow_ = false;
    ModelSelection& current = window_.current();
    if (current.tree != nullptr)
        current.message = window_.rootOf(*current.tree);
}

void TRObjectCommands::wireCommands() {
    window_.mnuAddTRObjTRMsg.onClick = [this] { addMessage(); };
    window_.mnuUpdateTRObjTRMsg.onClick = [this] { updateMessage(); };
    window_.mnuDeleteTRObjTRMsg.onClick = [this] { deleteMessage(); };
    window_.mnuAddTRObjTRItem.onClick = [this] {
        window_.itemDialog().addTRItem(std::string(window_.current().message));
    };
    window_.mnuUpdateTRObjTRItem.onClick = [this] {
        const ModelSelection current = window_.current();
        window_.itemDialog().updateTRItem(current.message, itemKey(current.message, current.item));
    };
    window_.mnuDeleteTRObjTRItem.onClick = [this] { deleteItem(); };
}

void TRObjectCommands::addMessage() {
    const Tree* tree = window_.current().tree;
    if (tree == &window_.tvwRcvTRMsg)
        window_.messageDialog().addRcvTRMessage();
    else if (tree == &window_.tvwSndTRMsg)
        window_.messageDialog().addSndTRMessage();
}

void TRObjectCommands::updateMessage() {
    const ModelSelection current = window_.current();
    if (current.tree == &window_.tvwRcvTRMsg)
        window_.messageDialog().updateRcvTRMessage(current.message);
    else if (current.tree == &window_.tvwSndTRMsg)
        window_.messageDialog().updateSndTRMessage(current.message);
}

void TRObjectCommands::deleteMessage() {
    const ModelSelection current = window_.current();
    if (current.tree == nullptr)
        return;
    window_.desktop().steps().name("Delete TR message " + current.message);
    if (Node* node = findMessageNode(*current.tree, current.message); node != nullptr) {
        removeChildNodes(*current.tree, *node);
        current.tree->nodes().remove(*node);
    }
    List& table = window_.lvwTRObject;
    if (ListRow* row = table.selected(); row != nullptr && row->text() == current.message)
        table.remove(*row);
    if (TRModelStore* model = window_.store(); model != nullptr)
        model->deleteTRMessage(current.message);
}

void TRObjectCommands::deleteItem() {
    const ModelSelection current = window_.current();
    List& table = window_.lvwTRObject;
    if (current.tree == nullptr || table.selected() == nullptr)
        return;
    window_.desktop().steps().name("Delete TR item " + current.item);
    if (Node* node = findItemNode(*current.tree, current.message, current.item); node != nullptr)
        current.tree->nodes().remove(*node);
    table.remove(*table.selected());
    if (TRModelStore* model = window_.store(); model != nullptr) {
        if (TRMessageRecord* record = model->changeTRMessage(current.message); record != nullptr)
            record->deleteTRItem(current.item);
    }
}

} // namespace zb
