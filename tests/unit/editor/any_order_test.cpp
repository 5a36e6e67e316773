#include "unit/editor/editor_desk.h"

#include <random>

namespace zb {
namespace {

/// A user who does anything that the window allows, in any order, on a tree from a damaged file.
class AnyOrder : public EditorDesk, public testing::WithParamInterface<unsigned> {
public:
    void growDamagedTree() {
        addMessage("A: S1 F1 W H->E", {"L 2", "  U2 1 x 0", "  L 5V v", "    A 3 t 'a:b' [K]", "B 1 300"},
                   "a");
        addMessage("B", {"", "X", "L", "U2 V", "Q 9 q 1"}, "no colon: yet");
        tree().add(nullptr, Relation::Last, "stray: item");
        addMessage("C: Sx Fy", {"U2 99999999999999999999 n 0", "BOOLEAN 3V T x 2", "A -5 'x"}, "");
        tree().add(nullptr, Relation::Last, "");
        tree().add(nullptr, Relation::Last, "stray");
        addMessage("A: S1 F2 H<-E", {"F4 2 1e 9", "I8 1 -9e99"}, ":");
        tree().add(nullptr, Relation::First, "L 1V early").setExpanded(true);
    }

    std::size_t pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }

    void act() {
        static constexpr const char* kTexts[] = {"",    "1", "2",   "129",  "-1", "x:y",
                                                 "a b", "'", "1e5", "S1F1", "A"};
        const std::vector<Control*>& controls = window.controls();
        Control& control = *controls[pick(controls.size())];
        Target target = Target::whole(control);
        if (control.kind() == Control::Kind::Tree || pick(3) == 0) {
            target = Target::whole(window.tvwEdit);
            target.node = tree().empty() ? nullptr : tree().at(1 + static_cast<int>(pick(tree().count())));
        }
        if (target.control == &window.tbritemType)
            target.button = &window.tbritemType.buttons()[pick(window.tbritemType.buttons().size())];
        switch (pick(5)) {
        case 0:
            hands.rightClick(target);
            break;
        case 1:
            if (control.kind() == Control::Kind::TextField)
                hands.paste(control, kTexts[pick(std::size(kTexts))]);
            break;
        case 2:
            if (control.takesFocus())
                hands.key(control, {static_cast<int>(1 + pick(200)), static_cast<int>(pick(4))});
            break;
        default:
            hands.click(target);
            break;
        }
        if (pick(10) == 0)
            hands.click(
                Target::whole(pick(2) == 0 ? static_cast<Control&>(window.cmdMsgAdd) : window.chkFix));
    }

    /// Nodes that the links reach; each must be at the position that its own links define.
    std::size_t reachable(const Node* first, const Node* parent) {
        std::size_t count = 0;
        const Node* previous = nullptr;
        for (const Node* node = first; node != nullptr; previous = node, node = node->next()) {
            EXPECT_EQ(node->parent(), parent);
            EXPECT_EQ(node->previous(), previous);
            EXPECT_EQ(tree().at(node->index()), node);
            EXPECT_TRUE(node->key().empty() || tree().find(node->key()) == node) << node->key();
            count += 1 + reachable(node->child(), node);
        }
        return count;
    }

private:
    std::mt19937 random_{GetParam()};
};

TEST_P(AnyOrder, LeavesAWholeTree) {
    growDamagedTree();
    window.show();
    for (int i = 0; i < 4000; ++i) {
        // A root node disables the pane; its handlers must also work when it is enabled.
        window.picItem.setEnabled(true);
        window.picItem.setVisible(true);
        act();
        ASSERT_LT(tree().count(), 100000U);
        if (tree().empty())
            growDamagedTree();
    }
    EXPECT_EQ(reachable(tree().firstRoot(), nullptr), tree().count());
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyOrder, testing::Range(1U, 21U));

} // namespace
} // namespace zb
