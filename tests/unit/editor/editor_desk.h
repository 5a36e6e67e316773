#pragma once

#include "controls/desktop.h"
#include "controls/project_commands.h"
#include "controls/user_hands.h"
#include "editor/frm_sec_editor.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "project/module_state.h"
#include "unit/editor/box_screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// Project commands that record what was requested, and the pointer that the window showed then.
class RecordingCommands final : public ProjectCommands {
public:
    struct Call {
        ProjectCommand command;
        Pointer pointer;
        friend bool operator==(const Call&, const Call&) = default;
    };

    void run(ProjectCommand command, Window& over) override { calls.push_back({command, over.pointer()}); }

    std::vector<Call> calls;
};

/// An editor window with a user.
class EditorDesk : public testing::Test {
public:
    EditorDesk() {
        window.show();
        window.InitMsg();
    }

    /// The oldest box not yet checked.
    void expectBox(std::string_view text, BoxIcon icon = BoxIcon::None) {
        ASSERT_FALSE(screen.boxes.empty()) << "no box that says: " << text;
        EXPECT_EQ(screen.boxes.front().text, text);
        EXPECT_EQ(screen.boxes.front().icon, icon) << text;
        EXPECT_EQ(screen.boxes.front().buttons, BoxButtons::OK) << text;
        EXPECT_EQ(screen.boxes.front().title, kApplicationTitle) << text;
        screen.boxes.erase(screen.boxes.begin());
    }
    void expectNoBox() const {
        EXPECT_TRUE(screen.boxes.empty()) << "unexpected box: " << screen.boxes.front().text;
    }

    void type(TextField& field, std::string_view text) {
        for (const char character : text)
            EXPECT_EQ(hands.key(field, *keyOfCharacter(character)), "");
    }
    void key(Control& control, int code, int shift = 0) { EXPECT_EQ(hands.key(control, {code, shift}), ""); }
    void paste(TextField& field, std::string_view text) { EXPECT_EQ(hands.paste(field, text), ""); }
    void click(Control& control) { EXPECT_EQ(hands.click(Target::whole(control)), ""); }
    void clickNode(Node* node) {
        ASSERT_NE(node, nullptr);
        Target target = Target::whole(window.tvwEdit);
        target.node = node;
        EXPECT_EQ(hands.click(target), "");
    }
    void rightClickTree(Node* node = nullptr) {
        Target target = Target::whole(window.tvwEdit);
        target.node = node;
        EXPECT_EQ(hands.rightClick(target), "");
    }

    NodeTree& tree() { return window.liveTree(); }
    /// Adds a message with the items of an outline, two blanks per level, and its name to the combo.
    Node& addMessage(std::string_view text, const std::vector<std::string>& items = {},
                     std::string_view description = "") {
        NodeTree& nodes = tree();
        nodes.add(nullptr, Relation::Last, "");
        nodes.add(nullptr, Relation::Last, std::string(description)).setBold(true);
        Node& message = nodes.add(nullptr, Relation::Last, std::string(text));
        const std::string name(text.substr(0, text.find(':')));
        nodes.setKey(message, name);
        message.setExpanded(true);
        window.InsertCbo(name);
        std::vector<Node*> parents{&message};
        for (const std::string& item : items) {
            const std::size_t level = std::min(item.find_first_not_of(' '), item.size()) / 2;
            parents.resize(level + 1);
            Node& added = nodes.add(parents.back(), Relation::Child, item.substr(level * 2));
            added.setExpanded(true);
            parents.push_back(&added);
        }
        return message;
    }

    /// The tree or the nodes below one, one line each, two blanks per level.
    static std::vector<std::string> outline(const Node* first, int level = 0) {
        std::vector<std::string> lines;
        for (const Node* node = first; node != nullptr; node = node->next()) {
            lines.push_back(std::string(static_cast<std::size_t>(level) * 2, ' ') + node->text());
            for (std::string& line : outline(node->child(), level + 1))
                lines.push_back(std::move(line));
        }
        return lines;
    }
    std::vector<std::string> treeOutline() { return outline(tree().firstRoot()); }
    std::vector<std::string> clipboardOutline() { return outline(window.clipboard().firstRoot()); }

    BoxScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{settings, files};
    RecordingCommands commands;
    frmSECSEditor window{desktop, state, commands};
    UserHands hands{desktop};
};

using Lines = std::vector<std::string>;

} // namespace zb
