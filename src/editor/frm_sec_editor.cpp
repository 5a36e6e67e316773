#include "editor/frm_sec_editor.h"

#include "controls/desktop.h"
#include "editor/editor_keys.h"
#include "editor/value_notice.h"
#include "platform/number.h"
#include "project/module_state.h"
#include "project/project_messages.h"

#include <utility>

namespace zb {

frmSECSEditor::frmSECSEditor(Desktop& desktop, ModuleState& state, ProjectCommands& commands)
    : EditorControls(desktop, commands), state_(state), itemPane(*this, state.codePage) {
    mnuExpand.onClick = [this] { toggleExpand(); };
    mnuFind.onClick = [this] { fire(onFind); };
    wireTreeWidth();
    addEditorKeys(*this);
    TreeView_ForeColor();
}

void frmSECSEditor::newEditorProject() {
    InitMsg();
    InitItem();
    cboSECSMessage.clear();
    replaceTree();
    state_.SECSMessageStore = std::make_unique<SECSMessageStore>();
    shownMessage.isNone();
}

void frmSECSEditor::openEditorProject(MessageTree messages) {
    cboSECSMessage.clear();
    state_.SECSMessageStore = std::make_unique<SECSMessageStore>();
    replaceTree();
    InitItem();
    InitMsg();
    tvwEdit.replaceNodes(std::move(messages.nodes));
    for (const std::string& name : messages.names)
        InsertCbo(name);
    TreeView_ForeColor();
    shownMessage.isNone();
    cboFirstSelect();
}

std::string frmSECSEditor::buildMessageText(WalkMode mode) {
    return takeWalk(prepareWalk(mode, {}));
}

PreparedWalk frmSECSEditor::prepareWalk(WalkMode mode, const Progress& progress) {
    return SmdWriter(state_.codePage).prepare(mode, liveTree(), progress);
}

std::string frmSECSEditor::takeWalk(PreparedWalk walk) {
    state_.SECSMessageStore = std::move(walk.store);
    InitMsg();
    hideItemPane();
    walk.normalize(liveTree());
    // Each would set the same fields, so that the last one is what is seen.
    if (!walk.records.empty())
        display_DefSECSMsg(*walk.records.back());
    shownMessage.isEmptied();
    reportLosses(walk);
    if (walk.outcome.fault)
        showFault(*walk.outcome.fault);
    return std::move(walk.outcome.status);
}

void frmSECSEditor::reportLosses(const PreparedWalk& walk) {
    if (walk.losses == 1)
        reportLoss(desktop(), walk.firstLoss);
    else if (walk.losses > 1)
        reportLoss(desktop(), std::to_string(walk.losses) + " values were cut. " + walk.firstLoss);
}

void frmSECSEditor::showFault(const NodeFault& fault) {
    if (Node* node = liveTree().at(fault.nodeIndex)) {
        liveTree().select(node);
        node->setBackColor(kErrorBackColor);
    }
    const bool plain = fault.fault.tone == DefinitionFault::Tone::Plain;
    desktop().showBox(std::string(fault.fault.text), plain ? BoxIcon::None : BoxIcon::Critical);
}

void frmSECSEditor::TreeView_ForeColor() {
    liveTree().setOrdinaryForeColor(kEditorForeColor);
}

void frmSECSEditor::replaceTree() {
    currentTreeIndex = currentTreeIndex == 1 ? 2 : 1;
    tvwEdit.replaceNodes();
    TreeView_ForeColor();
}

void frmSECSEditor::toggleExpand() {
    mnuExpand.setChecked(!mnuExpand.checked());
    NodeTree& tree = liveTree();
    for (int index = 1; Node* node = tree.at(index); ++index)
        node->setExpanded(mnuExpand.checked());
}

void frmSECSEditor::mouseMove(int x, int y, bool leftButtonDown) {
    setPointer(splitter_.mouseMove(x, y, leftButtonDown));
    if (splitter_.dragging())
        showTreeWidth();
}

void frmSECSEditor::wireTreeWidth() {
    showTreeWidth();
    txtTreeWidth.onLostFocus = [this] { takeTypedWidth(); };
    txtTreeWidth.onKeyUp = [this](KeyEvent key) {
        if (key.code == kKeyEnter)
            takeTypedWidth();
    };
}

void frmSECSEditor::takeTypedWidth() {
    const auto number = toNumber(txtTreeWidth.text());
    if (number) {
        if (const auto width = toInteger(*number, Splitter::kNarrowest, Splitter::kWidest))
            splitter_.setWidth(static_cast<int>(*width));
    }
    showTreeWidth();
}

void frmSECSEditor::showTreeWidth() {
    txtTreeWidth.setText(std::to_string(splitter_.width()));
}

} // namespace zb
