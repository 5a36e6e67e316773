#include "controls/desktop.h"
#include "controls/user_hands.h"
#include "messages/message_store.h"
#include "modeler/frm_tr_message.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "project/module_state.h"
#include "support/silent_screen.h"
#include "unit/modeler/noted_views.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

namespace zb {
namespace {

/// A user who does anything that the dialog allows, in any order, while messages and model change at the same
/// time.
class MessageAnyOrder : public testing::TestWithParam<unsigned> {
public:
    MessageAnyOrder() {
        state.TRModelStore = std::make_unique<TRModelStore>();
        screen.modal = [this](Window& window) { answer(window); };
        fillMessages();
        modeler.show();
    }

    std::size_t pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    std::string text() {
        static constexpr const char* kTexts[] = {"",   "Name", "Dim", "Event", "1",        "3",  "0",
                                                 "-1", "x",    "S1",  "S2",    "C1",       "C2", " C3 ",
                                                 "'",  "1.",   "a:b", "true",  "\xC3\xA4", "> ."};
        return kTexts[pick(std::size(kTexts))];
    }
    Target target(Control& control) {
        Target target = Target::whole(control);
        if (control.kind() == Control::Kind::Tree && !nodes().empty())
            target.node = nodes().at(1 + static_cast<int>(pick(nodes().count())));
        if (control.kind() == Control::Kind::List) {
            const auto& rows = static_cast<List&>(control).rows();
            target.row = rows.empty() ? nullptr : rows[pick(rows.size())].get();
        }
        if (control.kind() == Control::Kind::Toolbar)
            target.button = &static_cast<Toolbar&>(control).buttons()[pick(2)];
        return target;
    }
    Control& anyControl() { return *dialog.controls()[pick(dialog.controls().size())]; }
    NodeTree& nodes() { return dialog.tvwSelSECSMsg.nodes(); }

    void act() {
        Control& control = anyControl();
        switch (pick(8)) {
        case 0:
        case 1:
            if (control.kind() == Control::Kind::TextField)
                hands.paste(control, text());
            else if (control.kind() == Control::Kind::Combo)
                hands.choose(control, "#" + std::to_string(1 + pick(4)));
            break;
        case 2:
            hands.drop({text(), nullptr}, target(control));
            break;
        case 3:
            hands.drag(target(control), target(anyControl()));
            break;
        case 4:
            hands.doubleClick(target(control));
            break;
        case 5:
            // A list has few items here, so that lists within lists stay small.
            hands.click(target(dialog.tvwSelSECSMsg));
            hands.paste(dialog.txtItemValue, std::to_string(pick(3)));
            hands.click(Target::whole(dialog.cmdSetValue));
            break;
        case 6:
            hands.key(control, {static_cast<int>(pick(256)), 0});
            break;
        default:
            hands.click(target(control));
            break;
        }
    }

    void meanwhile() {
        switch (pick(8)) {
        case 0:
            fillMessages();
            break;
        case 1:
            state.SECSMessageStore = std::make_unique<SECSMessageStore>();
            break;
        case 2:
            if (!state.TRModelStore->TRMessages().empty())
                state.TRModelStore->deleteTRMessage(state.TRModelStore->TRMessages().front()->Name());
            break;
        case 3:
            state.ProjectType = 3 - state.ProjectType;
            break;
        case 4:
            dialog.addSndTRMessage();
            break;
        case 5:
            dialog.updateSndTRMessage("Name");
            break;
        case 6:
            dialog.updateRcvTRMessage("Name");
            break;
        default:
            dialog.addRcvTRMessage();
            break;
        }
    }

    test::SilentScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{settings, files};
    test::NotedViews views;
    Window modeler{desktop, "frmTRModeler"};
    frmTRMessage dialog{desktop, state, views};
    UserHands hands{desktop};

private:
    void fillMessages() {
        state.SECSMessageStore = std::make_unique<SECSMessageStore>();
        state.SECSMessageStore->addMessageText("* One\r\nEvent: S6 F11 W H<->E\r\n    L 3\r\n"
                                               "        A 6 MDLN 'abc'\r\n        L 5V LIST\r\n"
                                               "            BOOLEAN 1 ON True\r\n        J 2 N 'ab'.\r\n");
        state.SECSMessageStore->addMessageText("* Two\r\nCommand: S2 F41 W H<->E\r\n    U2 1 CEID 0.\r\n");
        state.SECSMessageStore->addMessageText("* Three\r\nEmpty: S1 F1 W H<->E.\r\n");
    }

    void answer(Window& window) {
        const std::size_t choice = pick(3);
        if (choice == 0) {
            auto& rows = static_cast<List&>(*window.find("lvwArray"));
            Target first = Target::whole(rows);
            first.row = rows.rows().front().get();
            hands.click(first);
            hands.paste(*window.find("txtValue"), text());
        }
        if (choice < 2)
            hands.click(Target::whole(*window.find("cmdOK")));
        window.hide();
    }

    std::mt19937 random_{GetParam()};
};

TEST_P(MessageAnyOrder, StoresNothingButWholeMessages) {
    for (int i = 0; i < 2000; ++i) {
        if (pick(20) == 0 || !dialog.visible())
            meanwhile();
        act();
        if (nodes().count() > 500)
            dialog.addSndTRMessage();
        for (const auto& record : state.TRModelStore->TRMessages()) {
            ASSERT_NE(record->Name(), "");
            ASSERT_NE(record->SECSMessage(), "");
            if (!record->DataBlock())
                continue;
            for (const SECSItemRecord& item : record->DataBlock()->getItems())
                ASSERT_TRUE(item.getType() != "L" || item.isFixed());
        }
        const int pressed = dialog.builder.tlbOperator1.button("==").value() +
                            dialog.builder.tlbOperator1.button("!=").value();
        ASSERT_EQ(pressed, 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, MessageAnyOrder, testing::Range(1U, 9U));

} // namespace
} // namespace zb
