#include "editor/frm_sec_editor.h"

#include "messages/module_state.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "platform/number.h"

namespace zb {

frmSECSEditor::frmSECSEditor(ModuleState& state, ProjectCommands& commands)
    : EditorControls(state.desktop, commands), state_(state), itemPane(*this, state.codePage) {
    mnuExpand.onClick = [this] { toggleExpand(); };
    mnuFind.onClick = [this] { fire(onFind); };
    wireTreeWidth();
    TreeView_ForeColor();
}

void frmSECSEditor::newEditorProject() {
    InitMsg();
    InitItem();
    cboSECSMessage.clear();
    replaceTree();
    state_.SECSMessageStore = std::make_unique<SECSMessageStore>();
}

void frmSECSEditor::openEditorProject() {
    cboSECSMessage.clear();
    state_.SECSMessageStore = std::make_unique<SECSMessageStore>();
    replaceTree();
    InitItem();
    InitMsg();
    readSmdSection(liveTree(), state_.projectFilePath(), *this);
    cboFirstSelect();
}

std::string frmSECSEditor::saveEditorProject() {
    return SmdWriter(state_, *this).buildMessageText(state_.projectFilePath(), "SAVE_PROJECT", liveTree());
}

std::string frmSECSEditor::walkForModeler() {
    return SmdWriter(state_, *this).buildMessageText(state_.ProjectName, "MODELER", liveTree());
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
