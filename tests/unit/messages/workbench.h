#pragma once

#include "controls/desktop.h"
#include "messages/editor_pane.h"
#include "messages/message_record.h"
#include "messages/module_state.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "platform/tree/node_tree.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace zb::test {

/// Remembers the boxes shown.
class BoxScreen final : public Screen {
public:
    Answer showBox(const Box& box) override {
        boxes.push_back(box);
        return Answer::OK;
    }
    std::string pickFile(const FileDialog& /*dialog*/) override { return {}; }
    void runModal(Window& /*window*/) override {}
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}

    /// The texts of the boxes, each led by "! " when it has the stop icon.
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const Box& box : boxes)
            all.push_back((box.icon == BoxIcon::Critical ? "! " : "") + box.text);
        return all;
    }

    std::vector<Box> boxes;
};

/// Remembers what the reader and the writer asked of the editor.
class CallPane final : public EditorPane {
public:
    void InsertCbo(std::string_view name) override { calls.push_back("InsertCbo " + std::string(name)); }
    void TreeView_ForeColor() override { calls.emplace_back("TreeView_ForeColor"); }
    void InitMsg() override { calls.emplace_back("InitMsg"); }
    void display_DefSECSMsg(const SECSMessageRecord& record) override {
        calls.push_back("display_DefSECSMsg " + record.getName());
    }
    void hideItemPane() override { calls.emplace_back("hideItemPane"); }

    std::vector<std::string> calls;
};

inline std::string crlf(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append("\r\n");
    return text;
}

/// One line a node: two blanks a level, the Text, and the Key behind "#".
inline std::string outline(const NodeTree& tree) {
    std::string text;
    const Node* node = tree.firstRoot();
    while (node != nullptr) {
        text.append(static_cast<std::size_t>(node->level()) * 2, ' ').append(node->text());
        if (!node->key().empty())
            text.append(" #").append(node->key());
        text += '\n';
        if (node->child() != nullptr) {
            node = node->child();
            continue;
        }
        while (node != nullptr && node->next() == nullptr)
            node = node->parent();
        node = node == nullptr ? nullptr : node->next();
    }
    return text;
}

/// A program with a tree and nobody before the screen.
struct Workbench {
    void read(std::initializer_list<std::string_view> sectionLines) { read(crlf(sectionLines)); }
    void read(const std::string& sectionText) { readSmdText(tree, "## [EDIT SMD]\r\n" + sectionText, pane); }

    /// The section as a save would write it, without its first line.
    std::string saved() {
        std::string sections;
        state.projectSections = &sections;
        SmdWriter(state, pane).buildMessageText("", "SAVE_PROJECT", tree);
        state.projectSections = nullptr;
        const std::string marker = "## [EDIT SMD]\r\n";
        return sections.rfind(marker, 0) == 0 ? sections.substr(marker.size()) : sections;
    }

    BoxScreen screen;
    Desktop desktop{screen};
    SettingsStore settings = SettingsStore::inMemory();
    SystemFileLayer files;
    ModuleState state{desktop, settings, files};
    NodeTree tree;
    CallPane pane;
};

} // namespace zb::test
