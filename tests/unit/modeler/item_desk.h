#pragma once

#include "controls/desktop.h"
#include "controls/user_hands.h"
#include "modeler/frm_tr_item.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "project/module_state.h"
#include "support/silent_screen.h"
#include "unit/modeler/noted_views.h"

#include <memory>
#include <string>
#include <string_view>

namespace zb::test {

/// The dialog for TR items over a model with the message `Tell`, and `Mute` without a SECS message.
struct ItemDesk {
    ItemDesk() {
        state.SECSMessageStore->addMessageText("* Tell\r\n"
                                               "Data: S6 F11 H<-E\r\n"
                                               "    <L 2\r\n"
                                               "        <A 3 NAME 'abc'>\r\n"
                                               "        <L 5V LIST\r\n"
                                               "            <U2 1 SVID 0>\r\n"
                                               "            <B 1>\r\n"
                                               "        >\r\n"
                                               "    >.\r\n");
        state.TRModelStore = std::make_unique<TRModelStore>();
        addMessage("Tell", "data");
        addMessage("Mute", "NONE");
    }

    TRMessageRecord& addMessage(const std::string& name, std::string secsMessage) {
        auto record = std::make_unique<TRMessageRecord>();
        record->setName(name);
        record->setSECSMessage(std::move(secsMessage));
        record->setDirection(kToHost);
        state.TRModelStore->addTRMessage(std::move(record));
        return *state.TRModelStore->getTRMessage(name);
    }
    TRItemRecord& addItem(const std::string& name, std::string statements = {}) {
        auto record = std::make_unique<TRItemRecord>();
        record->setName(name);
        record->setType("NUMERIC");
        record->setValue("SVID[2]");
        record->setABSValue("abs");
        record->setStatementText(std::move(statements));
        tell().addTRItem(std::move(record));
        return *tell().getTRItem(name);
    }
    TRMessageRecord& tell() { return *state.TRModelStore->getTRMessage("Tell"); }

    Node& node(int index) { return *dialog.tvwStatement.nodes().at(index); }
    Target on(Node& node) {
        Target target = Target::whole(dialog.tvwStatement);
        target.node = &node;
        return target;
    }
    void drop(Pane& picture, Node& node) { hands.drag(Target::whole(picture), on(node)); }
    void drop(std::string text, Node& node) { hands.drop({std::move(text), nullptr}, on(node)); }
    void click(Control& control) { hands.click(Target::whole(control)); }
    void chooseFromPopup(MenuEntry& entry, Node& node) {
        hands.rightClick(on(node));
        click(entry);
    }
    /// Answers the dialog for values the next times that it is shown.
    void answerValue(const std::string& value) {
        screen.modal = [value](Window& window) {
            auto& valueDialog = static_cast<frmSetTRItemValue&>(window);
            valueDialog.txtTRItemValue.setText(value);
            fire(valueDialog.cmdSet.onClick);
        };
    }
    /// The condition S1: {NAME} == 'x'
    void addCondition() {
        hands.choose(dialog.builder.cmbDataItem, "NAME");
        hands.paste(dialog.builder.txtDataItemValue, "x");
        click(dialog.builder.cmdAddCondition);
    }

    SilentScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{settings, files};
    NotedViews views;
    Window modeler{desktop, "frmTRModeler"};
    Button modelerButton{modeler, "cmdAny", ""};
    frmTRItem dialog{desktop, state, views};
    UserHands hands{desktop};
};

} // namespace zb::test
