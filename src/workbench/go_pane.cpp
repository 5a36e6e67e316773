#include "workbench/go_pane.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "modeler/frm_tr_modeler.h"
#include "platform/text.h"
#include "platform/tree/node_walk.h"
#include "workbench/frm_workbench.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

// More than anyone reads before typing another letter.
constexpr std::size_t kMostRows = 100;

/// The third word of an item's Text, without a record of all of it.
std::string_view nameOfItem(std::string_view text) {
    std::string_view rest = text;
    const std::string_view type = takeWord(rest);
    takeWord(rest);
    const std::string_view third = takeWord(rest);
    return isItemName(type, third) ? third : std::string_view();
}

/// "S5F2" of "Alarm: S5 F2 H->E".
std::string numbersOf(std::string_view nodeText) {
    const std::size_t colon = nodeText.find(':');
    if (colon == std::string_view::npos)
        return {};
    std::string_view rest = trimmed(nodeText.substr(colon + 1));
    const std::string_view stream = takeWord(rest);
    return std::string(stream) + std::string(takeWord(rest));
}

} // namespace

GoPane::GoPane(frmWorkbench& workbench)
    : WorkbenchPane(workbench, "Go",
                    "Go to a message, an item or a TR message by a part of its name, Ctrl+P") {
    lvwGo.addColumn("Name", 3500);
    lvwGo.addColumn("Kind", 1300);
    lvwGo.addColumn("Where", 6000);
    txtGo.setToolTip(
        "A part of the name, or letters of it in their order; with more words the message of an item, too");
    txtGo.setAnswersEnter();
    txtGo.onChange = [this] { list(); };
    txtGo.onKeyDown = [this](KeyEvent event) { key(event); };
    lvwGo.onKeyDown = [this](KeyEvent event) {
        if (event.code == kKeyEnter)
            go();
    };
    lvwGo.onDoubleClick = [this](ListRow& /*row*/) { go(); };
    addKey();
}

void GoPane::addKey() {
    constexpr int kLetterP = 'P';
    KeyCommand goes;
    goes.key = {kLetterP, kControlKey};
    goes.where = "everywhere";
    goes.purpose = "Goes to a message, an item or a TR message by its name";
    goes.run = [this] {
        open();
        window().desktop().focus(txtGo);
        txtGo.selectAll();
        return true;
    };
    window().desktop().keys().add(std::move(goes));
}

void GoPane::opened() {
    txtGo.selectAll();
    list();
}

void GoPane::key(KeyEvent key) {
    if (key.code == kKeyEnter)
        go();
    else if (key.code == kKeyUp || key.code == kKeyDown)
        move(key.code == kKeyUp ? -1 : 1);
}

void GoPane::move(int rows) {
    const int here = lvwGo.positionOf(lvwGo.selected());
    const int target = std::clamp(here + rows, 1, static_cast<int>(lvwGo.count()));
    if (lvwGo.count() > 0)
        lvwGo.select(lvwGo.rows()[static_cast<std::size_t>(target) - 1].get());
}

void GoPane::readNames() {
    isOld_ = false;
    names_.clear();
    readMessages();
    readTRMessages();
}

void GoPane::readMessages() {
    const NodeTree& tree = workbench().services().editor.liveTree();
    for (const Node* root = tree.firstRoot(); root != nullptr; root = root->next()) {
        if (!contains(root->text(), ":"))
            continue;
        const std::string_view name = nameInText(root->text());
        const std::string numbers = numbersOf(root->text());
        const std::string& description =
            root->previous() == nullptr ? std::string() : root->previous()->text();
        std::string explained = numbers == name ? std::string() : numbers + ' ';
        names_.addMessage(name, explained.append(description), root->index());
        for (NodeWalk walk(*root); const Node* item = walk.node(); walk.next()) {
            if (const std::string_view itemName = nameOfItem(item->text()); !itemName.empty())
                names_.addItem(itemName, item->index());
        }
    }
}

void GoPane::readTRMessages() {
    const TRModelStore* model = workbench().services().modeler.store();
    if (model == nullptr)
        return;
    int place = 0;
    for (const auto& record : model->TRMessages())
        names_.addTRMessage(record->Name(), record->SECSMessage(), place++);
}

void GoPane::list() {
    if (!isOpen())
        return;
    if (isOld_)
        readNames();
    const NameIndex::Found found = names_.find(txtGo.text(), kMostRows);
    lvwGo.clear();
    listed_ = found.best;
    for (const std::size_t number : listed_)
        addRow(names_.entry(number));
    lvwGo.select(lvwGo.count() == 0 ? nullptr : lvwGo.rows().front().get());
    const std::string all = std::to_string(found.all) + " found";
    lblGo.setText(found.all > listed_.size()
                      ? all + ", the best " + std::to_string(listed_.size()) + " are shown"
                      : all);
}

void GoPane::addRow(const NameIndex::Entry& entry) {
    ListRow& row = lvwGo.add(std::string(names_.name(entry)));
    const std::string_view more = names_.text(entry).substr(entry.nameLength);
    switch (entry.kind) {
    case NameIndex::Kind::Message:
        row.setCell(1, "Message");
        row.setCell(2, trim(more));
        break;
    case NameIndex::Kind::TRMessage:
        row.setCell(1, "TR message");
        row.setCell(2, trim(more));
        break;
    case NameIndex::Kind::Item:
        row.setCell(1, "Item");
        row.setCell(2, std::string(names_.name(names_.entry(entry.message))));
        break;
    }
}

Destination GoPane::destinationOf(const NameIndex::Entry& entry) const {
    if (entry.kind == NameIndex::Kind::TRMessage)
        return {Destination::Kind::TRMessage, 0, std::string(names_.name(entry))};
    const Node* node = workbench().services().editor.liveTree().at(entry.place);
    return {Destination::Kind::Node, static_cast<std::size_t>(entry.place),
            node == nullptr ? std::string() : node->text()};
}

// The project was changed while the list was shown.
bool GoPane::listAgain(const std::vector<std::string>& chosen) {
    // The row that they are of goes.
    const std::vector<std::string> cells(chosen.begin(), chosen.end());
    list();
    for (const auto& row : lvwGo.rows()) {
        if (row->cells() != cells)
            continue;
        lvwGo.select(row.get());
        return true;
    }
    return false;
}

void GoPane::go() {
    if (lvwGo.selected() == nullptr || (isOld_ && !listAgain(lvwGo.selected()->cells())))
        return;
    const int position = lvwGo.positionOf(lvwGo.selected());
    const NameIndex::Entry entry = names_.entry(listed_[static_cast<std::size_t>(position) - 1]);
    const Destination place = destinationOf(entry);
    workbench().desktop().steps().name("Go to " + std::string(names_.name(entry)));
    close();
    goTo(workbench(), place);
}

} // namespace zb
