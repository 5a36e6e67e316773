#include "workbench/problem_places.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"
#include "platform/number.h"
#include "platform/text.h"
#include "workbench/frm_workbench.h"
#include "workbench/problem_watch.h"
#include "workbench/project_door.h"

#include <map>
#include <string_view>

namespace zb {

namespace {

using Field = Control& (*)(frmSECSEditor&);

/// The field of the editor in which the fault of a rule is mended; null where there is none.
Control* fieldOf(std::string_view rule, frmSECSEditor& editor) {
    static const std::map<std::string_view, Field> kFields{
        {"key.equal", [](frmSECSEditor& form) -> Control& { return form.txtInit; }},
        {"key.lost", [](frmSECSEditor& form) -> Control& { return form.chkIsItemKey; }},
        {"key.repeated", [](frmSECSEditor& form) -> Control& { return form.chkIsItemKey; }},
        {"key.second", [](frmSECSEditor& form) -> Control& { return form.chkIsItemKey; }},
        {"smd.function", [](frmSECSEditor& form) -> Control& { return form.txtFunction; }},
        {"smd.item.count", [](frmSECSEditor& form) -> Control& { return form.txtItemCount; }},
        {"smd.item.name", [](frmSECSEditor& form) -> Control& { return form.txtItemName; }},
        {"smd.item.twice", [](frmSECSEditor& form) -> Control& { return form.txtItemName; }},
        {"smd.item.unnamed", [](frmSECSEditor& form) -> Control& { return form.txtItemName; }},
        {"smd.item.value", [](frmSECSEditor& form) -> Control& { return form.txtInit; }},
        {"smd.name.twice", [](frmSECSEditor& form) -> Control& { return form.txtMsgName; }},
        {"smd.stream", [](frmSECSEditor& form) -> Control& { return form.txtStream; }},
        {"smd.value.length", [](frmSECSEditor& form) -> Control& { return form.txtInit; }},
        {"smd.value.range", [](frmSECSEditor& form) -> Control& { return form.txtInit; }},
        {"std.direction", [](frmSECSEditor& form) -> Control& { return form.optHost; }},
        {"std.item.code", [](frmSECSEditor& form) -> Control& { return form.txtInit; }},
        {"std.item.length", [](frmSECSEditor& form) -> Control& { return form.txtItemCount; }},
        {"std.message.unknown", [](frmSECSEditor& form) -> Control& { return form.txtFunction; }},
        {"std.reply.direction", [](frmSECSEditor& form) -> Control& { return form.optHost; }},
        {"std.wait.forbidden", [](frmSECSEditor& form) -> Control& { return form.chkWait; }},
        {"std.wait.missing", [](frmSECSEditor& form) -> Control& { return form.chkWait; }},
        {"style.item.name", [](frmSECSEditor& form) -> Control& { return form.txtItemName; }},
    };
    const auto found = kFields.find(rule);
    return found == kFields.end() ? nullptr : &found->second(editor);
}

void focusField(Control& tree, Control* field) {
    Control& control = field != nullptr && field->usable() ? *field : tree;
    control.setFocus();
    if (control.kind() == Control::Kind::TextField)
        static_cast<TextField&>(control).selectAll();
}

void goToMessage(const WorkbenchServices& services, const Problem& problem) {
    services.project.showEditor();
    frmSECSEditor& editor = services.editor;
    editor.treeInteraction.showAgain(nodeOf(problem));
    focusField(editor.tvwEdit, fieldOf(problem.finding.id, editor));
}

void goToTRMessage(frmTRModeler& modeler, const FindingPlace& place) {
    for (Tree* tree : {&modeler.tvwRcvTRMsg, &modeler.tvwSndTRMsg}) {
        Node* message = findMessageNode(*tree, place.message);
        if (message == nullptr)
            continue;
        Node* item = place.item.empty() ? nullptr : findItemNode(*tree, place.message, place.item);
        modeler.showAgain(*tree, item == nullptr ? message : item);
        tree->setFocus();
        return;
    }
}

void goToSequence(frmTRModeler& modeler, const FindingPlace& place) {
    List& list = modeler.lvwSequence;
    const auto row = static_cast<std::size_t>(place.nodeIndex);
    if (row == 0 || row > list.count())
        return;
    list.select(list.rows()[row - 1].get());
    list.setFocus();
}

} // namespace

Node* nodeOf(const Problem& problem) {
    if (problem.root == nullptr)
        return nullptr;
    // The tree of the window owns the node, and the window may change it.
    auto* node = const_cast<Node*>(problem.root);
    std::string_view path = problem.finding.place.item;
    while (!path.empty()) {
        const std::string_view position = before(path, "/");
        path.remove_prefix(std::min(path.size(), position.size() + 1));
        Node* child = node->child();
        for (double left = valueOf(position); left > 1 && child != nullptr; --left)
            child = child->next();
        if (child == nullptr)
            break;
        node = child;
    }
    return node;
}

void goToProblem(const frmWorkbench& workbench, const Problem& problem, bool mayOpenModeler) {
    const WorkbenchServices& services = workbench.services();
    const FindingPlace& place = problem.finding.place;
    if (problem.root != nullptr)
        return goToMessage(services, problem);
    if (place.subject == FindingPlace::Subject::None) {
        services.project.showEditor();
        const bool isPasted = place.message == SharedNodes::kPastedText;
        return isPasted ? services.editor.tvwEdit.setFocus() : services.editor.lvwSource.setFocus();
    }
    frmTRModeler& modeler = services.modeler;
    if (!modeler.visible() && !mayOpenModeler) {
        workbench.desktop().post({"The modeler opens when the messages have no errors"});
        return;
    }
    services.project.showModeler();
    if (place.subject == FindingPlace::Subject::Sequence)
        goToSequence(modeler, place);
    else
        goToTRMessage(modeler, place);
}

} // namespace zb
