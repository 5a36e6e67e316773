#include "modeler/frm_tr_modeler.h"

#include "controls/desktop.h"
#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "modeler/message_names.h"
#include "modeler/message_rename.h"
#include "modeler/model_nodes.h"
#include "modeler/tool_tips.h"
#include "modeler/tr_object_table.h"
#include "project/project_text.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace zb {

namespace {

/// A command of which this work is one step stays busy until it ends.
std::unique_ptr<BusyPointer> busyUnlessAlready(Window& window) {
    return window.pointer() == Pointer::Hourglass ? nullptr : std::make_unique<BusyPointer>(window);
}

} // namespace

frmTRModeler::frmTRModeler(Desktop& desktop, ModuleState& state, ProjectCommands& commands)
    : ModelerControls(desktop, commands), state_(state), sequenceView_(lvwSequence, state.sequences),
      addSequence_(desktop, state), rename_(desktop), treeCommands_(*this), tableCommands_(*this),
      sequenceCommands_(*this, addSequence_) {
    setCaption("TRModeler");
    lvwTRObject.toolTipOf = [this](const ListRow& row) { return toolTipOfObject(row); };
    lvwSequence.toolTipOf = [this](const ListRow& row) {
        const TRMessageRecord* record = recordOf(row.cell(2));
        return record == nullptr ? std::string() : messageToolTip(*record, *state_.SECSMessageStore);
    };
    menus.runBusy(menus.mnuTMD, ProjectCommand::BuildTmd);
    menus.runBusy(menus.mnuEditor, ProjectCommand::Editor);
    displayModel();
}

void frmTRModeler::useDialogs(frmTRMessage& messages, frmTRItem& items) {
    messageDialog_ = &messages;
    itemDialog_ = &items;
}

bool frmTRModeler::isDialogVisible() const {
    return messageDialog_->visible() || itemDialog_->visible();
}

void frmTRModeler::renameSelected(Tree& tree) {
    Node* node = tree.nodes().selected();
    TRModelStore* model = store();
    if (model == nullptr || node == nullptr || levelOf(*node) != ModelLevel::Message)
        return;
    const auto name = std::string(node->text());
    const std::string chosen = rename_.requestName("Rename " + name, name, [&](const std::string& wish) {
        return faultOfTRMessageName(wish, state_, name);
    });
    if (chosen.empty() || model->getTRMessage(name) == nullptr)
        return;
    desktop().steps().name("Rename " + name + " to " + chosen);
    model->changeTRMessage(name)->setName(chosen);
    renameMessageNode(tree, *node, chosen);
    renameInSequences(sequenceView_, name, chosen);
    itemDialog_->messageRenamed(name, chosen);
    showAgain(tree, node);
}

void frmTRModeler::editMessage(const Tree& tree, std::string_view name) {
    if (&tree == &tvwRcvTRMsg)
        messageDialog_->updateRcvTRMessage(name);
    else
        messageDialog_->updateSndTRMessage(name);
}

std::string_view frmTRModeler::rootOf(const Tree& tree) const {
    return &tree == &tvwRcvTRMsg ? kReceiveRoot : kSendRoot;
}

void frmTRModeler::makeStore() {
    state_.TRModelStore = std::make_unique<TRModelStore>();
    state_.TRModelStore->setProjectType(state_.ProjectType);
}

void frmTRModeler::forgetWork() {
    if (messageDialog_ == nullptr)
        return;
    messageDialog_->forgetWork();
    itemDialog_->forgetWork();
}

void frmTRModeler::newModelerProject() {
    forgetWork();
    makeStore();
    sequenceView_.clear();
    state_.foreign.clear();
    if (state_.ProjectType == 2)
        state_.TRModelStore->clearTRMessages();
    displayModel();
}

void frmTRModeler::openModelerProject(Project project) {
    forgetWork();
    const auto busy = busyUnlessAlready(*this);
    initializeTreeView(tvwRcvTRMsg);
    initializeTreeView(tvwSndTRMsg);
    state_.TRModelStore = std::move(project.model);
    state_.foreign = std::move(project.foreign);
    displayModel();
    sequenceView_.show(std::move(project.sequences));
}

std::string frmTRModeler::saveModelerProject() {
    const auto busy = busyUnlessAlready(*this);
    const TRModelStore none;
    const TRModelStore* model = store();
    return composeModelSections(state_.foreign, model == nullptr ? none : *model, state_.sequences);
}

void frmTRModeler::clearAllTRMsgDef() {
    forgetWork();
    if (state_.TRModelStore)
        state_.TRModelStore->clearTRMessages();
    state_.foreign.clear();
    displayModel();
    sequenceView_.clear();
    current_ = ModelSelection();
}

void frmTRModeler::initializeTreeView(Tree& tree) {
    plantRoot(tree, rootOf(tree));
}

void frmTRModeler::displayModel() {
    const NodeTree::Filling received(tvwRcvTRMsg.nodes());
    const NodeTree::Filling sent(tvwSndTRMsg.nodes());
    initializeTreeView(tvwRcvTRMsg);
    initializeTreeView(tvwSndTRMsg);
    if (const TRModelStore* model = store(); model != nullptr) {
        for (const auto& record : model->TRMessages()) {
            if (Tree* tree = treeOf(*record); tree != nullptr)
                addNodeOf(*tree, *record);
        }
    }
    Node* root = tvwRcvTRMsg.nodes().firstRoot();
    selectTreeNode(tvwRcvTRMsg, root);
    tvwRcvTRMsg.nodes().select(root);
    showTRObjects(kReceiveRoot);
}

Node* frmTRModeler::addNodeOf(Tree& tree, const TRMessageRecord& record) {
    const bool sent = &tree == &tvwSndTRMsg;
    Node* node = addMessageNode(tree, record.Name(), sent ? kSentPicture : kReceivedPicture);
    if (node != nullptr && !sent)
        addTRItemNodes(tree, *node, record);
    return node;
}

void frmTRModeler::followModel() {
    followModel(tvwRcvTRMsg, store()->ReceivedDirection());
    followModel(tvwSndTRMsg, store()->SentDirection());
    Tree& tree = current_.tree == nullptr ? tvwRcvTRMsg : *current_.tree;
    showAgain(tree, tree.nodes().selected());
}

void frmTRModeler::followModel(Tree& tree, int direction) {
    std::vector<const TRMessageRecord*> records;
    for (const auto& record : store()->TRMessages()) {
        if (record->Direction() == direction)
            records.push_back(record.get());
    }
    Node* root = tree.nodes().firstRoot();
    const Node* kept = nullptr;
    std::size_t at = 0;
    for (const Node* node = root->child(); node != nullptr && at < records.size();
         node = node->next(), ++at) {
        if (!showsMessage(*node, *records[at], &tree == &tvwRcvTRMsg))
            break;
        kept = node;
    }
    if (root->lastChild() == kept && at == records.size())
        return;
    const NodeTree::Filling filling(tree.nodes());
    while (root->lastChild() != kept)
        tree.nodes().remove(*root->lastChild());
    for (; at < records.size(); ++at)
        addNodeOf(tree, *records[at]);
}

void frmTRModeler::showTRObjects(std::string_view name) {
    fillTRObjectTable(lvwTRObject, store(), name);
}

void frmTRModeler::selectTreeNode(Tree& tree, const Node* node) {
    current_.tree = &tree;
    if (node == nullptr)
        return;
    if (levelOf(*node) == ModelLevel::Item) {
        current_.message = node->parent()->text();
        current_.item = node->text();
    } else {
        current_.message = node->text();
        current_.item.clear();
    }
}

void frmTRModeler::displayAddedTRMessage(std::string_view name) {
    const TRMessageRecord* record = recordOf(name);
    if (record == nullptr)
        return;
    Tree* tree = treeOf(*record);
    showMessage(*record, tree == nullptr ? nullptr : addNodeOf(*tree, *record));
}

void frmTRModeler::displayUpdatedTRMessage(std::string_view name) {
    const TRMessageRecord* record = recordOf(name);
    if (record == nullptr)
        return;
    const Tree* tree = treeOf(*record);
    showMessage(*record, tree == nullptr ? nullptr : findMessageNode(*tree, name));
}

void frmTRModeler::showMessage(const TRMessageRecord& record, Node* node) {
    current_.message = record.Name();
    current_.item.clear();
    if (node == nullptr)
        return;
    showTRObjects(isSent(record) ? kSendRoot : std::string_view(record.Name()));
    reveal(*treeOf(record), *node);
}

void frmTRModeler::displayAddedTRItem(std::string_view message, std::string_view item) {
    const TRMessageRecord* record = recordOf(message);
    if (record == nullptr)
        return;
    current_.message = message;
    current_.item = item;
    if (!isSent(*record)) {
        Node* node = findMessageNode(tvwRcvTRMsg, message);
        if (node == nullptr || addItemNode(tvwRcvTRMsg, *node, item, kUserItemPicture) == nullptr)
            return;
    }
    showTRObjects(message);
}

void frmTRModeler::displayUpdatedTRItem(std::string_view message, std::string_view item) {
    current_.message = message;
    current_.item = item;
    showTRObjects(message);
}

std::string frmTRModeler::toolTipOfObject(const ListRow& row) const {
    const bool isMessage = row.image() == kReceivedPicture || row.image() == kSentPicture;
    const TRMessageRecord* record = recordOf(isMessage ? row.text() : current_.message);
    if (record == nullptr)
        return {};
    if (isMessage)
        return messageToolTip(*record, *state_.SECSMessageStore);
    const TRItemRecord* item = record->getTRItem(row.text());
    return item == nullptr ? std::string() : itemToolTip(*record, *item, *state_.SECSMessageStore);
}

const TRMessageRecord* frmTRModeler::recordOf(std::string_view name) const {
    return store() == nullptr ? nullptr : store()->getTRMessage(name);
}

bool frmTRModeler::isSent(const TRMessageRecord& record) const {
    return record.Direction() == store()->SentDirection();
}

Tree* frmTRModeler::treeOf(const TRMessageRecord& record) {
    if (isSent(record))
        return &tvwSndTRMsg;
    return record.Direction() == store()->ReceivedDirection() ? &tvwRcvTRMsg : nullptr;
}

bool frmTRModeler::TRMessageExists(std::string_view name) const {
    return recordOf(name) != nullptr;
}

std::string frmTRModeler::getDirectionText(std::string_view name) const {
    const TRMessageRecord* record = recordOf(name);
    if (record == nullptr)
        return {};
    switch (record->Direction()) {
    case kToEquip:
        return "ToEquip";
    case kToHost:
        return "ToHost";
    default:
        return {};
    }
}

} // namespace zb
