#include "model/statement_node.h"
#include "model/statement_text.h"
#include "unit/modeler/item_desk.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

namespace zb {
namespace {

/// A user who does anything that the dialog allows, in any order, while the model changes at the same time.
class ItemAnyOrder : public testing::TestWithParam<unsigned>, public test::ItemDesk {
public:
    ItemAnyOrder() {
        screen.modal = [this](Window& window) { answer(window); };
        modeler.show();
    }

    std::size_t pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }
    std::string text() {
        static constexpr const char* kTexts[] = {"",
                                                 "NAME",
                                                 "ifx",
                                                 "1",
                                                 "'x'",
                                                 "S1",
                                                 "S2",
                                                 "C1",
                                                 "C2",
                                                 " else ",
                                                 "a=b",
                                                 "\xC3\xA4:",
                                                 "if\r\n A=1\r\nelse:\r\n     deep\r\n  back\r\nelif"};
        return kTexts[pick(std::size(kTexts))];
    }
    Target target(Control& control) {
        Target target = Target::whole(control);
        if (control.kind() == Control::Kind::Tree && pick(10) != 0 && !nodes().empty())
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
    NodeTree& nodes() { return dialog.tvwStatement.nodes(); }

    void act() {
        Control& control = anyControl();
        switch (pick(8)) {
        case 0:
            hands.rightClick(target(dialog.tvwStatement));
            hands.click(Target::whole(pick(2) == 0 ? dialog.mnuSetValue : dialog.mnuDelete));
            break;
        case 1:
        case 2: {
            Pane* const pictures[] = {&dialog.picIF, &dialog.picELIF, &dialog.picELSE};
            hands.drag(Target::whole(*pictures[pick(3)]), target(dialog.tvwStatement));
            break;
        }
        case 3:
            hands.drop({text(), nullptr}, target(control));
            break;
        case 4:
            if (control.kind() == Control::Kind::TextField)
                hands.paste(control, text());
            else if (control.kind() == Control::Kind::Combo)
                hands.choose(control, "#" + std::to_string(1 + pick(2)));
            break;
        case 5:
            hands.drag(target(control), target(anyControl()));
            break;
        case 6:
            hands.drop({text(), nullptr}, target(dialog.tvwStatement));
            break;
        default:
            hands.click(target(control));
            break;
        }
    }

    /// Actions in other windows at the same time.
    void meanwhile() {
        switch (pick(6)) {
        case 0:
            state.TRModelStore->deleteTRMessage("Tell");
            break;
        case 1:
            addMessage("Tell", "Data");
            break;
        case 2:
            if (TRMessageRecord* message = state.TRModelStore->getTRMessage("Tell"))
                message->deleteTRItem("NAME");
            break;
        case 3:
            if (state.TRModelStore->getTRMessage("Tell") != nullptr)
                addItem("NAME", text());
            break;
        case 4:
            dialog.updateTRItem("Tell", "Tell_NAME");
            break;
        default:
            dialog.addTRItem("Tell");
            break;
        }
    }

private:
    void answer(Window& window) {
        const std::size_t choice = pick(3);
        for (Control* control : window.controls()) {
            if (control->kind() == Control::Kind::TextField && choice == 0)
                static_cast<TextField*>(control)->paste("2");
        }
        if (choice < 2)
            hands.click(Target::whole(*window.find(window.find("cmdSet") != nullptr ? "cmdSet" : "cmdOK")));
        window.hide();
    }

    std::mt19937 random_{GetParam()};
};

TEST_P(ItemAnyOrder, LeavesATreeThatCanBeWritten) {
    for (int i = 0; i < 2000; ++i) {
        if (pick(20) == 0 || !dialog.visible())
            meanwhile();
        act();
        if (nodes().empty())
            continue;
        const Node& root = *nodes().firstRoot();
        ASSERT_EQ(root.key(), "Conditions");
        ASSERT_EQ(root.next(), nullptr);
        ASSERT_EQ(statementTextOf(root) == kNoStatements, conditionNodeOf(root).children().empty());
        for (int at = 2; const Node* node = nodes().at(at); ++at)
            ASSERT_TRUE(node->key().starts_with("TVW_KEY"));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ItemAnyOrder, testing::Range(1U, 11U));

} // namespace
} // namespace zb
