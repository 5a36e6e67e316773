#include "modeler/frm_tr_item.h"

#include "controls/desktop.h"
#include "model/statement_node.h"
#include "model/statement_text.h"
#include "modeler/model_views.h"
#include "platform/text.h"
#include "project/module_state.h"

#include <memory>
#include <utility>

namespace zb {

namespace {

constexpr const char* kUpdateCaption = "&Update";
constexpr const char* kString = "STRING";
constexpr const char* kNumeric = "NUMERIC";

constexpr int kRightButton = 2;

// A statement is bare while it consists of its keyword only.
bool isBare(const std::string& text) {
    return text == kIfImage || text == kElifImage;
}

bool isValue(const Node& node) {
    return node.image() == kItemValueImage;
}

} // namespace

frmTRItem::frmTRItem(Desktop& desktop, ModuleState& state, ModelViews& views)
    : Window(desktop, "frmTRItem"), state_(state), views_(views), arrayDialog_(desktop),
      valueDialog_(desktop), conditions_(builder, arrayDialog_, conditionHome()) {
    setCancelButton(cmdCancel);
    txtSECSMessage.setReadOnly(true);
    cmbItemValue.onChoose = [this] { askForArrayIndex(cmbItemValue, selectedMessage(), arrayDialog_); };
    chkKeepVisible.onChange = [this] { keepVisible_ = chkKeepVisible.checked(); };
    cmdUpdate.onClick = [this] { update(); };
    cmdCancel.onClick = [this] { cancel(); };
    onActivate = [this] { chkKeepVisible.setChecked(keepVisible_); };
    onDeactivate = [this] { leave(); };
    connectStatements();
}

ConditionHome frmTRItem::conditionHome() {
    ConditionHome home;
    home.reading = ConditionHome::OperatorReading::LastPressed;
    home.afterDuplicate = ConditionHome::AfterDuplicate::MarkFirst;
    home.enterInValue = ConditionHome::EnterInValue::DoesNothing;
    home.selectedMessage = [this] { return selectedMessage(); };
    home.messageOfIndex = home.selectedMessage;
    return home;
}

const SECSMessageRecord* frmTRItem::selectedMessage() const {
    return selectedMessage_ ? &*selectedMessage_ : nullptr;
}

const TRMessageRecord* frmTRItem::trMessage() const {
    return state_.TRModelStore ? state_.TRModelStore->getTRMessage(messageName_) : nullptr;
}

void frmTRItem::addTRItem(std::string_view messageName) {
    if (!begin(messageName))
        return;
    setCaption("Add TRItem - " + messageName_);
    show();
    cmdUpdate.setCaption("&Add");
    txtTRItemName.setFocus();
    unfinished_.begin();
}

void frmTRItem::updateTRItem(std::string_view messageName, std::string_view itemKey) {
    if (!begin(messageName))
        return;
    const std::string name = replaceAll(itemKey, messageName_ + "_", "");
    cmdUpdate.setCaption(kUpdateCaption);
    txtTRItemName.setEnabled(false);
    txtTRItemName.setText(name);
    if (const TRItemRecord* item = trMessage()->getTRItem(name); item != nullptr)
        showItem(*item);
    setCaption("Update TRItem - " + messageName_ + "-" + name);
    show();
    unfinished_.begin();
}

bool frmTRItem::begin(std::string_view messageName) {
    const TRMessageRecord* message =
        state_.TRModelStore ? state_.TRModelStore->getTRMessage(messageName) : nullptr;
    if (message == nullptr)
        return false;
    unfinished_.putAside();
    clearTRItemDialog();
    statements_.initStatementTree();
    messageName_ = message->Name();
    const SECSMessageRecord* selected = state_.SECSMessageStore->getByName(message->SECSMessage());
    if (selected == nullptr) {
        selectedMessage_.reset();
        desktop().showBox("Select SECSMessage for '" + messageName_ + "'", BoxIcon::Critical);
        return false;
    }
    selectedMessage_ = *selected;
    txtSECSMessage.setText(selected->MessageName());
    fillItemCombos(*selectedMessage_);
    return true;
}

void frmTRItem::messageRenamed(std::string_view from, std::string_view to) {
    if (messageName_ != from)
        return;
    messageName_ = to;
    setCaption(cmdUpdate.caption() == kUpdateCaption
                   ? "Update TRItem - " + messageName_ + "-" + txtTRItemName.text()
                   : "Add TRItem - " + messageName_);
}

void frmTRItem::clearTRItemDialog() {
    currentNode_ = nullptr;
    for (Control* control : controls()) {
        if (control->kind() == Control::Kind::TextField)
            static_cast<TextField*>(control)->setText("");
        else if (control->kind() == Control::Kind::Combo)
            static_cast<Combo*>(control)->clear();
        else if (control->kind() == Control::Kind::List)
            static_cast<List*>(control)->clear();
        control->setEnabled(true);
    }
    tvwStatement.nodes().clear();
    optString.setOn(true);
}

void frmTRItem::fillItemCombos(const SECSMessageRecord& message) {
    conditions_.reset();
    builder.cmbDataItem.clear();
    cmbItemValue.clear();
    for (const SECSItemRecord& item : message.getItems()) {
        if (isBlank(item.getName()) || item.getType() == "L")
            continue;
        builder.cmbDataItem.add(item.getName());
        cmbItemValue.add(item.getName());
    }
}

void frmTRItem::showItem(const TRItemRecord& item) {
    (item.Type() == kString ? optString : optNumeric).setOn(true);
    cmbItemValue.setText(item.Value());
    txtABSValue.setText(item.ABSValue());
    if (!item.StatementText().empty() && item.StatementText() != kNoStatements)
        statements_.showStatementText(item.StatementText());
}

void frmTRItem::update() {
    const std::string name = trim(txtTRItemName.text());
    if (name.empty()) {
        desktop().showBox("Insert TRItem Name!", BoxIcon::Critical);
        return;
    }
    TRMessageRecord* message =
        state_.TRModelStore ? state_.TRModelStore->changeTRMessage(messageName_) : nullptr;
    if (cmdUpdate.caption() == kUpdateCaption) {
        TRItemRecord* item = message != nullptr ? message->getTRItem(txtTRItemName.text()) : nullptr;
        if (item == nullptr) {
            cmdUpdate.setCaption("Add");
            update();
            return;
        }
        desktop().steps().name("Change TR item " + name);
        fillRecord(*item);
        unfinished_.finish();
        unfinished_.begin();
        views_.displayUpdatedTRItem(messageName_, item->Name());
    } else if (message == nullptr) {
        desktop().showBox("The message '" + messageName_ + "' is no longer in the model.", BoxIcon::Critical);
        return;
    } else if (!addItem(*message, name)) {
        return;
    }
    if (!keepVisible_)
        hide();
}

bool frmTRItem::addItem(TRMessageRecord& message, const std::string& name) {
    desktop().steps().name("Add TR item " + name);
    auto item = std::make_unique<TRItemRecord>();
    item->setName(name);
    fillRecord(*item);
    if (!message.addTRItem(std::move(item))) {
        desktop().showBox(name + " already exist.", BoxIcon::Critical);
        txtTRItemName.setFocus();
        txtTRItemName.selectAll();
        return false;
    }
    unfinished_.finish();
    views_.displayAddedTRItem(messageName_, name);
    addTRItem(messageName_);
    return true;
}

std::string frmTRItem::itemType() const {
    return optString.on() ? kString : kNumeric;
}

void frmTRItem::fillRecord(TRItemRecord& item) const {
    item.setType(itemType());
    item.setValue(trim(cmbItemValue.text()));
    item.setABSValue(trim(txtABSValue.text()));
    item.setStatementText(statementTextOf(*statements_.root()));
    item.setConditionNode(conditionNodeOf(*statements_.root()));
}

void frmTRItem::cancel() {
    keepVisible_ = false;
    hide();
}

void frmTRItem::leave() {
    if (keepVisible_ || arrayDialog_.visible() || valueDialog_.visible())
        return;
    unfinished_.putAside();
    hide();
}

UnfinishedWork::Dialog frmTRItem::keptWork() {
    UnfinishedWork::Dialog work;
    work.leftOut = {&chkKeepVisible};
    work.subject = [this] {
        const std::string name = trim(txtTRItemName.text());
        return (cmdUpdate.caption() == kUpdateCaption ? "TR item" : "new TR item") +
               (name.empty() ? "" : " " + name) + " of " + messageName_;
    };
    work.keepState = [this]() -> std::function<void()> {
        return [this, messageName = messageName_, message = selectedMessage_, statement = statementType_,
                keys = statements_.keyCounter()] {
            messageName_ = messageName;
            selectedMessage_ = message;
            statementType_ = statement;
            statements_.setKeyCounter(keys);
            currentNode_ = nullptr;
        };
    };
    return work;
}

// Statements

void frmTRItem::connectStatements() {
    const auto connect = [this](Pane& picture, std::string_view type) {
        picture.onDragData = [this, &picture, type] { return dragStatement(picture, type); };
        picture.onClick = [this, type] { clickStatement(type); };
    };
    connect(picIF, kIfImage);
    connect(picELIF, kElifImage);
    connect(picELSE, kElseImage);
    tvwStatement.onDragOver = [this](const DragData& /*data*/, Node* node) {
        if (node != nullptr)
            tvwStatement.nodes().select(node);
    };
    tvwStatement.onDrop = [this](const DragData& data, Node* node) {
        if (node != nullptr)
            dropOnStatement(data, *node);
    };
    // Whoever comes by keyboard starts somewhere.
    tvwStatement.onGotFocus = [this] {
        if (tvwStatement.nodes().selected() == nullptr)
            tvwStatement.nodes().select(statements_.root());
    };
    tvwStatement.onMouseUp = [this](int button, Node* node) {
        if (button == kRightButton && node != nullptr && node->parent() != nullptr)
            openPopup(*node);
    };
    desktop().keys().add({{kKeyDelete, 0},
                          {this, {&tvwStatement}},
                          "the statements",
                          "Deletes the selected statement or value; an if with its whole chain",
                          [this] { return deleteSelected(); },
                          true});
    mnuSetValue.onClick = [this] { setValue(); };
    mnuDelete.onClick = [this] { deleteStatement(); };
}

std::optional<DragData> frmTRItem::dragStatement(Pane& picture, std::string_view type) {
    statementType_ = type;
    return DragData{{}, &picture, DragData::Form::Picture};
}

// A click has the effect of a drop on the selected node. Below a value, and beside it, a statement would be
// lost when the text is written: there the click goes on with the chain that the value belongs to.
void frmTRItem::clickStatement(std::string_view type) {
    Node* selected = tvwStatement.nodes().selected();
    currentNode_ = selected != nullptr ? selected : statements_.root();
    if (currentNode_ == nullptr)
        return;
    if (isValue(*currentNode_) && currentNode_->parent() != nullptr)
        currentNode_ = currentNode_->parent();
    if (currentNode_->child() != nullptr && isValue(*currentNode_->child()) &&
        currentNode_->parent() != nullptr)
        currentNode_ = currentNode_->parent();
    statementType_ = type;
    dropPicture();
}

void frmTRItem::dropOnStatement(const DragData& data, Node& node) {
    currentNode_ = &node;
    if (data.form == DragData::Form::Picture)
        dropPicture();
    else if (isBare(node.text()))
        dropCondition(data.text);
}

void frmTRItem::dropPicture() {
    if (isBare(currentNode_->text())) {
        desktop().showBox("Select Condition!", BoxIcon::Information);
        return;
    }
    // A picture of another program has no meaning as a statement until one has been dragged here.
    if (statementType_.empty())
        return;
    const StatementTree::Added added = statements_.addStatement(*currentNode_, statementType_);
    if (!added.refusal.empty())
        desktop().showBox(added.refusal, BoxIcon::Critical);
    if (added.node != nullptr)
        currentNode_ = added.node;
}

void frmTRItem::dropCondition(const std::string& id) {
    if (const auto condition = conditions_.finishedConditionOf(id))
        currentNode_->setText(currentNode_->text() + " " + *condition + ":");
}

void frmTRItem::openPopup(Node& node) {
    currentNode_ = &node;
    tvwStatement.nodes().select(&node);
    const std::string& image = node.image();
    const bool wantsCondition =
        (image == kIfImage || image == kElifImage) && codePointCount(node.text()) == codePointCount(image);
    const bool holdsChild = node.child() != nullptr && !node.child()->image().empty();
    mnuSetValue.setEnabled(!wantsCondition && !holdsChild);
    mnuDelete.setEnabled(true);
    mnuPopup.open();
}

void frmTRItem::setValue() {
    if (currentNode_ == nullptr)
        return;
    valueDialog_.reqeustTRItemValue(txtTRItemName.text(), itemType());
    if (valueDialog_.TRItemValue.empty())
        return;
    Node* parent = currentNode_;
    if (currentNode_->image() == kItemValueImage) {
        parent = currentNode_->parent();
        tvwStatement.nodes().remove(*currentNode_);
    }
    const char* quote = optString.on() ? "'" : "";
    currentNode_ = &statements_.addValueNode(*parent, txtTRItemName.text() + "=" + quote +
                                                          valueDialog_.TRItemValue + quote);
}

// A chain has no meaning without its "if", so the whole chain is deleted with it.
bool frmTRItem::deleteSelected() {
    Node* selected = tvwStatement.nodes().selected();
    if (selected == nullptr || selected->parent() == nullptr)
        return false;
    currentNode_ = selected;
    deleteStatement();
    return true;
}

void frmTRItem::deleteStatement() {
    if (currentNode_ == nullptr)
        return;
    NodeTree& nodes = tvwStatement.nodes();
    Node* parent = currentNode_->parent();
    if (currentNode_->image() == kIfImage) {
        while (parent->lastChild() != nullptr)
            nodes.remove(*parent->lastChild());
    } else {
        nodes.remove(*currentNode_);
    }
    currentNode_ = parent;
    nodes.select(parent);
}

} // namespace zb
