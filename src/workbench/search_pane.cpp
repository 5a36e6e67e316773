#include "workbench/search_pane.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "messages/find_scan.h"
#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "model/data_item_address.h"
#include "modeler/frm_tr_modeler.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "workbench/frm_workbench.h"

#include <algorithm>
#include <utility>

namespace zb {

namespace {

// Rows beyond these take long to show, and nobody reads them.
constexpr std::size_t kMostRows = 10000;

std::string countedAs(std::size_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

} // namespace

SearchPane::SearchPane(frmWorkbench& workbench)
    : WorkbenchPane(workbench, "Search", "Every place with a text, or where something is used"),
      terms(workbench.services().state.settings) {
    lvwSearch.addColumn("Kind", 1200);
    lvwSearch.addColumn("Where", 2600);
    lvwSearch.addColumn("Text", 7000);
    txtSearch.setToolTip(
        "As in the Find window: * ? # and [A-F] are wildcards. Up and Down: earlier searches");
    cmdSearchAll.setToolTip("List every node of the messages with this text (Enter)");
    cmdWhereUsed.setToolTip("List where the selected message, item or TR message is used");
    cboSearchTerms.setToolTip("Earlier searches");
    cmdWhereUsed.setLeavesFocus();
    txtSearch.setAnswersEnter();
    txtSearch.onChange = [this] { cmdSearchAll.setEnabled(!isBlank(txtSearch.text())); };
    txtSearch.onKeyDown = [this](KeyEvent event) { key(event); };
    cboSearchTerms.onChoose = [this] { txtSearch.setText(cboSearchTerms.text()); };
    cmdSearchAll.onClick = [this] { searchAll(); };
    cmdWhereUsed.onClick = [this] { whereUsed(); };
    lvwSearch.onDoubleClick = [this](ListRow& /*row*/) { go(); };
    lvwSearch.onKeyDown = [this](KeyEvent event) {
        if (event.code == kKeyEnter)
            go();
    };
    cmdSearchAll.setEnabled(false);
}

void SearchPane::opened() {
    showTerms();
    if (txtSearch.text().empty() && !cboSearchTerms.entries().empty())
        txtSearch.setText(cboSearchTerms.entries().front());
    txtSearch.selectAll();
}

void SearchPane::showTerms() {
    cboSearchTerms.clear();
    for (std::string& term : terms.all())
        cboSearchTerms.add(std::move(term));
    walk_.restart();
}

void SearchPane::key(KeyEvent key) {
    if (key.code == kKeyEnter)
        searchAll();
    else if (key.code == kKeyUp || key.code == kKeyDown)
        txtSearch.setText(walk_.step(terms, key.code == kKeyUp, txtSearch.text()));
}

void SearchPane::searchAll() {
    const std::string what = txtSearch.text();
    if (isBlank(what))
        return;
    terms.remember(what);
    showTerms();
    const NodeTree& tree = workbench().services().editor.liveTree();
    FoundPlaces places;
    const auto found = findAll(tree, what, chkSearchCaps.checked() ? FindCase::Exact : FindCase::Ignored);
    if (!found) {
        say(what + " has a bracket that is not closed");
        return;
    }
    for (std::size_t at = 0; at < std::min(found->size(), kMostRows); ++at)
        places.push_back(placeOfNode(tree, (*found)[at]->index()));
    showFirst(std::move(places), found->size(), "hit", "");
}

void SearchPane::whereUsed() {
    open();
    if (workbench().desktop().frontDocument(workbench().services().mainWindow) ==
        &workbench().services().modeler)
        whereUsedInModeler();
    else
        whereUsedInEditor();
}

void SearchPane::whereUsedInEditor() {
    const WorkbenchServices& services = workbench().services();
    NodeTree& tree = services.editor.liveTree();
    Node* selected = tree.selected();
    if (selected == nullptr) {
        say("Nothing is selected");
        return;
    }
    if (selected->parent() == nullptr) {
        const Node* message = messageOf(*selected).message;
        showUsesOfMessage(std::string(message == nullptr ? std::string_view() : nameInText(message->text())));
        return;
    }
    SECSItemRecord record;
    record.parseText(selected->text());
    if (record.getName().empty())
        say("The selected item has no name");
    else
        show(usesOfItem(tree, services.modeler.store(), record.getName()), "use",
             " of item " + record.getName());
}

void SearchPane::whereUsedInModeler() {
    const WorkbenchServices& services = workbench().services();
    const ModelSelection& selection = services.modeler.current();
    const TRModelStore* model = services.modeler.store();
    const TRMessageRecord* message = model == nullptr ? nullptr : model->getTRMessage(selection.message);
    if (message == nullptr) {
        say("No TR message is selected");
        return;
    }
    const TRItemRecord* item = message->getTRItem(selection.item);
    if (item == nullptr) {
        showUsesOfTRMessage(message->Name());
        return;
    }
    const std::string name = DataItemAddress(item->Value()).name();
    show(usesOfItem(services.editor.liveTree(), model, name), "use", " of item " + name);
}

void SearchPane::whereUsed(ModelerMore::UsesOf what) {
    open();
    frmTRModeler& modeler = workbench().services().modeler;
    const ListRow* row = modeler.lvwSequence.selected();
    const TRMessageRecord* message =
        modeler.store() == nullptr ? nullptr : modeler.store()->getTRMessage(modeler.current().message);
    if (what == ModelerMore::UsesOf::Row && row != nullptr)
        showUsesOfTRMessage(std::string(row->cell(2)));
    else if (what == ModelerMore::UsesOf::Message && message != nullptr)
        showUsesOfMessage(message->SECSMessage());
    else
        whereUsedInModeler();
}

void SearchPane::showUsesOfMessage(const std::string& name) {
    const WorkbenchServices& services = workbench().services();
    show(usesOfMessage(services.modeler.store(), services.state.sequences, name), "use",
         " of message " + name);
}

void SearchPane::showUsesOfTRMessage(const std::string& name) {
    show(usesOfTRMessage(workbench().services().state.sequences, name), "use", " of TR message " + name);
}

void SearchPane::show(FoundPlaces places, const std::string& thing, const std::string& of) {
    const std::size_t all = places.size();
    showFirst(std::move(places), all, thing, of);
}

void SearchPane::showFirst(FoundPlaces places, std::size_t all, const std::string& thing,
                           const std::string& of) {
    say(countedAs(all, thing) + of +
        (all > kMostRows ? ", the first " + std::to_string(kMostRows) + " are shown" : std::string()));
    places.resize(std::min(places.size(), kMostRows));
    places_ = std::move(places);
    for (const FoundPlace& place : places_) {
        ListRow& row = lvwSearch.add(place.kind);
        row.setCell(1, place.where);
        row.setCell(2, place.text);
    }
}

void SearchPane::say(const std::string& text) {
    places_.clear();
    lvwSearch.clear();
    lblSearch.setText(text);
}

void SearchPane::go() {
    const int position = lvwSearch.positionOf(lvwSearch.selected());
    if (position == 0)
        return;
    const FoundPlace place = places_[static_cast<std::size_t>(position) - 1];
    workbench().desktop().steps().name("Go to " + place.where);
    goTo(workbench(), place.destination);
}

} // namespace zb
