#include "workbench/destination.h"

#include "controls/desktop.h"
#include "controls/key_effects.h"
#include "editor/frm_sec_editor.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"
#include "project/module_state.h"
#include "workbench/frm_workbench.h"

namespace zb {

namespace {

void reportGone(frmWorkbench& workbench, const std::string& what) {
    workbench.desktop().post({what + " is no longer there", {}, "gone"});
}

/// Nodes move up when others are deleted, so that the same one is before its old position, or else anywhere.
Node* findNode(const NodeTree& tree, const Destination& place) {
    const auto isIt = [&place](const Node* node) { return node != nullptr && node->text() == place.text; };
    const int count = static_cast<int>(tree.count());
    const int start = static_cast<int>(place.position);
    for (int away = 0; away < count; ++away) {
        for (const int position : {start - away, start + away}) {
            Node* node = tree.at(position);
            if (isIt(node))
                return node;
        }
    }
    return nullptr;
}

void goToNode(frmWorkbench& workbench, const Destination& place) {
    frmSECSEditor& editor = workbench.services().editor;
    Node* node = findNode(editor.liveTree(), place);
    if (node == nullptr) {
        reportGone(workbench, place.text);
        return;
    }
    workbench.services().showEditor();
    editor.tvwEdit.setFocus();
    reachNode(editor.tvwEdit, *node);
}

/// The change to the modeler checks the messages, and stays in the editor after a fault.
bool showModeler(frmWorkbench& workbench) {
    workbench.services().showModeler();
    return workbench.desktop().frontDocument(workbench.services().mainWindow) ==
           &workbench.services().modeler;
}

void goToTRMessage(frmWorkbench& workbench, const std::string& name) {
    frmTRModeler& modeler = workbench.services().modeler;
    if (!modeler.TRMessageExists(name)) {
        reportGone(workbench, name);
        return;
    }
    if (!showModeler(workbench))
        return;
    for (Tree* tree : {&modeler.tvwRcvTRMsg, &modeler.tvwSndTRMsg}) {
        Node* node = findMessageNode(*tree, name);
        if (node == nullptr)
            continue;
        tree->setFocus();
        reachNode(*tree, *node);
        return;
    }
}

void goToSequence(frmWorkbench& workbench, const Destination& place) {
    List& list = workbench.services().modeler.lvwSequence;
    const auto& rows = workbench.services().state.sequences.rows();
    if (place.position >= rows.size() || rows[place.position].transactionName != place.text) {
        reportGone(workbench, place.text);
        return;
    }
    if (!showModeler(workbench) || place.position >= list.count())
        return;
    list.setFocus();
    list.select(list.rows()[place.position].get());
}

} // namespace

void goTo(frmWorkbench& workbench, const Destination& place) {
    switch (place.kind) {
    case Destination::Kind::Node:
        goToNode(workbench, place);
        break;
    case Destination::Kind::TRMessage:
        goToTRMessage(workbench, place.text);
        break;
    case Destination::Kind::Sequence:
        goToSequence(workbench, place);
        break;
    }
}

} // namespace zb
