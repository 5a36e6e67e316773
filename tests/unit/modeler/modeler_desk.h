#pragma once

#include "controls/desktop.h"
#include "controls/project_commands.h"
#include "controls/user_hands.h"
#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "modeler/frm_tr_modeler.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "support/silent_screen.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zb::test {

class NoCommands final : public ProjectCommands {
public:
    void run(ProjectCommand /*command*/, Window& /*over*/) override {}
};

/// The modeler window of a host project, open, with an empty model.
struct ModelerDesk {
    ModelerDesk() {
        window.useDialogs(messages, items);
        window.newModelerProject();
        window.show();
    }

    TRModelStore& model() { return *state.TRModelStore; }
    TRMessageRecord& addRecord(const std::string& name, int direction,
                               const std::vector<std::string>& itemNames = {}) {
        auto record = std::make_unique<TRMessageRecord>();
        record->setName(name);
        record->setDirection(direction);
        for (const std::string& itemName : itemNames)
            addItem(*record, itemName);
        model().addTRMessage(std::move(record));
        return *model().getTRMessage(name);
    }
    static void addItem(TRMessageRecord& record, const std::string& name) {
        auto item = std::make_unique<TRItemRecord>();
        item->setName(name);
        record.addTRItem(std::move(item));
    }
    /// A change of the store alone shows nothing; this reports it as the dialog does.
    void addShownItem(const std::string& message, const std::string& name) {
        addItem(*model().getTRMessage(message), name);
        window.displayAddedTRItem(message, name);
    }

    Node& node(const Tree& tree, std::string_view key) {
        Node* found = tree.nodes().find(key);
        return found != nullptr ? *found : *tree.nodes().firstRoot();
    }
    Node& received(std::string_view key) { return node(window.tvwRcvTRMsg, key); }
    Node& sent(std::string_view key) { return node(window.tvwSndTRMsg, key); }
    Target on(Tree& tree, Node& node) {
        Target target = Target::whole(tree);
        target.node = &node;
        return target;
    }
    Target onReceived(std::string_view key) { return on(window.tvwRcvTRMsg, received(key)); }
    Target onSent(std::string_view key) { return on(window.tvwSndTRMsg, sent(key)); }
    static Target onRow(List& list, int position) {
        Target target = Target::whole(list);
        target.row = list.shown()[static_cast<std::size_t>(position) - 1];
        return target;
    }
    void click(Control& control) { hands.click(Target::whole(control)); }
    void deleteKey(Tree& tree) { hands.key(tree, {kKeyDelete, 0}); }

    /// The texts of all nodes in the order of their positions.
    static std::vector<std::string> flat(const Tree& tree) {
        std::vector<std::string> texts;
        for (int index = 1; const Node* node = tree.nodes().at(index); ++index)
            texts.push_back(node->text());
        return texts;
    }
    static std::string selectedText(const Tree& tree) {
        return tree.nodes().selected() == nullptr ? "" : tree.nodes().selected()->text();
    }
    std::vector<std::string> recordNames() {
        std::vector<std::string> names;
        for (const auto& record : model().TRMessages())
            names.push_back(record->Name());
        return names;
    }

    SilentScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{settings, files};
    NoCommands commands;
    frmTRModeler window{desktop, state, commands};
    frmTRMessage messages{desktop, state, window};
    frmTRItem items{desktop, state, window};
    UserHands hands{desktop};
};

/// The rows of a list, their cells joined.
inline std::vector<std::string> rowsOf(const List& list) {
    std::vector<std::string> rows;
    for (const auto& row : list.rows())
        rows.push_back(join(row->cells(), "|"));
    return rows;
}

} // namespace zb::test
