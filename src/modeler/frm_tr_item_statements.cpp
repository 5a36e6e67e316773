#include "modeler/frm_tr_item.h"

#include "controls/desktop.h"
#include "model/statement_text.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr int kRightButton = 2;

// A statement is bare as long as it holds its word alone.
bool isBare(const std::string& text) {
    return text == kIfImage || text == kElifImage;
}

} // namespace

void frmTRItem::connectStatements() {
    picIF.onDragData = [this] { return dragStatement(picIF, kIfImage); };
    picELIF.onDragData = [this] { return dragStatement(picELIF, kElifImage); };
    picELSE.onDragData = [this] { return dragStatement(picELSE, kElseImage); };
    tvwStatement.onDragOver = [this](const DragData& /*data*/, Node* node) {
        if (node != nullptr)
            tvwStatement.nodes().select(node);
    };
    tvwStatement.onDrop = [this](const DragData& data, Node* node) {
        if (node != nullptr)
            dropOnStatement(data, *node);
    };
    tvwStatement.onMouseUp = [this](int button, Node* node) {
        if (button == kRightButton && node != nullptr && node->parent() != nullptr)
            openPopup(*node);
    };
    mnuSetValue.onClick = [this] { setValue(); };
    mnuDelete.onClick = [this] { deleteStatement(); };
}

std::optional<DragData> frmTRItem::dragStatement(Pane& picture, std::string_view type) {
    statementType_ = type;
    return DragData{{}, &picture, DragData::Form::Picture};
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
    // A picture of another program stands for no statement until one has been dragged here.
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

// Without its "if" a chain has no sense, so the whole chain goes with it.
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
