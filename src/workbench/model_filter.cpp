#include "workbench/model_filter.h"

#include "controls/desktop.h"
#include "controls/tree.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/tool_tips.h"
#include "platform/text.h"
#include "workbench/frm_workbench.h"

#include <array>

namespace zb {

namespace {

// "S6 F11" is found by "s6f11" too.
std::string compact(std::string_view text) {
    return upper(replaceAll(text, " ", ""));
}

bool isAtOrAbove(const Node& node, const Node* selected) {
    while (selected != nullptr && selected != &node)
        selected = selected->parent();
    return selected != nullptr;
}

} // namespace

ModelFilter::ModelFilter(frmWorkbench& workbench)
    : txtModelFilter(workbench, "txtModelFilter"), lblModelFilter(workbench, "lblModelFilter"),
      workbench_(workbench) {
    txtModelFilter.setToolTip(
        "Shows only the transaction messages that hold this text in their names, in those "
        "of their items, or in their SECS message (Ctrl+F, Esc clears)");
    txtModelFilter.onChange = [this] { apply(); };
    txtModelFilter.setEnabled(false);
    const frmTRModeler& modeler = workbench_.services().modeler;
    workbench_.desktop().keys().add(
        {{'F', kControlKey}, {&modeler, {}}, "the modeler", "Goes to the filter", [this] {
             txtModelFilter.setFocus();
             txtModelFilter.selectAll();
             return true;
         }});
    const auto add = [this](int key, const char* purpose) {
        workbench_.desktop().keys().add(
            {{key, 0}, {&workbench_, {&txtModelFilter}}, "the filter of the modeler", purpose, [this, key] {
                 if (key == kKeyEscape)
                     txtModelFilter.setText("");
                 leave();
                 return true;
             }});
    };
    add(kKeyEscape, "Clears the filter and goes back to the tree");
    add(kKeyEnter, "Goes to the tree");
    add(kKeyDown, "Goes to the tree");
}

// The modeler lives longer.
ModelFilter::~ModelFilter() {
    frmTRModeler& modeler = workbench_.services().modeler;
    for (Tree* tree : {&modeler.tvwRcvTRMsg, &modeler.tvwSndTRMsg})
        tree->setFilter({});
}

// A field of a window that is out of sight must not get the keyboard, which would bring that window to the
// front.
void ModelFilter::refresh() {
    const WorkbenchServices& services = workbench_.services();
    txtModelFilter.setEnabled(workbench_.desktop().frontDocument(services.mainWindow) == &services.modeler);
    if (!wanted_.empty())
        apply();
}

void ModelFilter::apply() {
    wanted_ = compact(txtModelFilter.text());
    frmTRModeler& modeler = workbench_.services().modeler;
    const std::array trees{&modeler.tvwRcvTRMsg, &modeler.tvwSndTRMsg};
    hidden_.clear();
    Counted all;
    for (Tree* tree : trees) {
        const Counted counted = wanted_.empty() ? Counted() : hideIn(*tree);
        all.shown += counted.shown;
        all.all += counted.all;
        setFilter(*tree);
    }
    lblModelFilter.setText(wanted_.empty()
                               ? std::string()
                               : std::to_string(all.shown) + " of " + std::to_string(all.all) + " messages");
}

// Nodes that are added later are not among the hidden ones, so they are shown until the next step.
void ModelFilter::setFilter(Tree& tree) {
    if (wanted_.empty()) {
        tree.setFilter({});
        return;
    }
    tree.setFilter([this, &tree](const Node& node) {
        return !hidden_.contains(&node) || isAtOrAbove(node, tree.nodes().selected());
    });
}

ModelFilter::Counted ModelFilter::hideIn(const Tree& tree) {
    Counted counted;
    const Node* root = tree.nodes().firstRoot();
    for (const Node* message = root == nullptr ? nullptr : root->child(); message != nullptr;
         message = message->next()) {
        ++counted.all;
        if (holdsText(*message))
            ++counted.shown;
        else
            hidden_.insert(message);
    }
    return counted;
}

bool ModelFilter::holdsText(const Node& message) const {
    const auto holds = [this](std::string_view text) {
        return compact(text).find(wanted_) != std::string::npos;
    };
    if (holds(message.text()))
        return true;
    for (const Node* item = message.child(); item != nullptr; item = item->next()) {
        if (holds(item->text()))
            return true;
    }
    const ModuleState& state = workbench_.services().state;
    const TRMessageRecord* record =
        state.TRModelStore ? state.TRModelStore->getTRMessage(message.text()) : nullptr;
    return record != nullptr && (holds(record->SECSMessage()) ||
                                 holds(streamAndFunction(*state.SECSMessageStore, record->SECSMessage())));
}

// To the tree that was used last.
void ModelFilter::leave() {
    frmTRModeler& modeler = workbench_.services().modeler;
    Tree& last = modeler.current().tree == &modeler.tvwSndTRMsg ? modeler.tvwSndTRMsg : modeler.tvwRcvTRMsg;
    last.setFocus();
}

} // namespace zb
