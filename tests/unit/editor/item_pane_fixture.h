#pragma once

#include "controls/desktop.h"
#include "controls/project_commands.h"
#include "controls/user_hands.h"
#include "editor/editor_controls.h"
#include "editor/item_pane.h"
#include "messages/item_record.h"
#include "platform/code_page.h"
#include "unit/editor/box_screen.h"

#include <gtest/gtest.h>

#include <string>

namespace zb {

class NoCommands : public ProjectCommands {
public:
    void run(ProjectCommand /*command*/, Window& /*over*/) override {}
};

/// The pane in its window, over a tree with one message.
class PaneFixture {
public:
    PaneFixture() { window.show(); }

    Node& add(Node& parent, const std::string& text) { return tree().add(&parent, Relation::Child, text); }
    NodeTree& tree() { return window.tvwEdit.nodes(); }

    /// Shows an item in the pane, as a click on it does.
    void open(Node& item) {
        SECSItemRecord record;
        record.parseText(item.text());
        const bool list = record.getType() == "L";
        tree().select(&item);
        window.txtItemName.setText(record.getName());
        pane.selectTypeButton(record.getType());
        window.txtItemCount.setText(std::to_string(record.getCount()));
        window.chkFix.setChecked(record.isFixed());
        window.chkIsItemKey.setChecked(record.isKey());
        window.chkIsItemKey.setEnabled(!list);
        window.txtInit.setEnabled(!list);
        window.txtInit.setText(list ? "" : record.getValue());
    }
    Node& opened(const std::string& text) {
        Node& item = add(message, text);
        open(item);
        return item;
    }

    void type(Control& control, const std::string& text) {
        for (const char character : text)
            key(control, *keyOfCharacter(character));
    }
    void key(Control& control, KeyEvent event) { EXPECT_EQ(hands.key(control, event), ""); }
    void paste(Control& control, const std::string& text) { EXPECT_EQ(hands.paste(control, text), ""); }
    void click(Control& control) { EXPECT_EQ(hands.click(Target::whole(control)), ""); }
    void clickType(const std::string& buttonKey) {
        Target target = Target::whole(window.tbritemType);
        target.button = &window.tbritemType.button(buttonKey);
        EXPECT_EQ(hands.click(target), "");
    }
    /// The Keys of the pressed buttons, and, after a "!", those whose picture differs.
    std::string buttonsDown() {
        std::string down;
        for (const ToolbarButton& button : window.tbritemType.buttons()) {
            if (button.value() == 1)
                down += down.empty() ? button.key() : " " + button.key();
            if (button.image() != 2 * button.index() - (button.value() == 1 ? 0 : 1))
                down += "!" + button.key();
        }
        return down;
    }

    void expectBox(std::string_view text, BoxIcon icon = BoxIcon::None) {
        if (text.empty()) {
            EXPECT_TRUE(screen.boxes.empty()) << screen.boxes.front().text;
            return;
        }
        ASSERT_EQ(screen.boxes.size(), 1U);
        EXPECT_EQ(screen.boxes[0].text, text);
        EXPECT_EQ(screen.boxes[0].title, kApplicationTitle);
        EXPECT_EQ(static_cast<int>(screen.boxes[0].icon), static_cast<int>(icon));
        EXPECT_EQ(static_cast<int>(screen.boxes[0].buttons), static_cast<int>(BoxButtons::OK));
    }

    BoxScreen screen;
    Desktop desktop{screen};
    NoCommands commands;
    CodePage codePage{1252};
    EditorControls window{desktop, commands};
    ItemPane pane{window, codePage};
    UserHands hands{desktop};
    Node& message = tree().add(nullptr, Relation::Last, "S1F1: S1 F1 W H->E");
};

} // namespace zb
