#pragma once

#include "messages/message_record.h"
#include "messages/message_store.h"
#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "platform/code_page.h"
#include "platform/tree/node_tree.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace zb::test {

inline std::string crlf(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append("\r\n");
    return text;
}

/// One line per node: two blanks per level, the Text, and the Key after "#".
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

/// A tree of messages, and what the readers and walks say of it.
struct Workbench {
    void read(std::initializer_list<std::string_view> sectionLines) { read(crlf(sectionLines)); }
    void read(const std::string& sectionText) {
        readSmdSection(tree, sectionText,
                       [this](std::string_view name) { calls.push_back("name " + std::string(name)); });
    }

    /// Refills the store; the text of a fault is led by "! " when it is shown as an error.
    WalkOutcome walk(WalkMode mode) {
        PreparedWalk walk = SmdWriter(codePage).prepare(mode, tree);
        walk.normalize(tree);
        for (const SECSMessageRecord* record : walk.records)
            calls.push_back("record " + std::string(record->getName()));
        store = std::move(walk.store);
        WalkOutcome outcome = std::move(walk.outcome);
        if (outcome.fault)
            faults.push_back(textOf(outcome.fault->fault));
        return outcome;
    }
    static std::string textOf(const DefinitionFault& fault) {
        return (fault.tone == DefinitionFault::Tone::Error ? "! " : "") + std::string(fault.text);
    }

    /// The section as a save would write it, without the line that opens it.
    std::string saved() {
        walk(WalkMode::SaveProject);
        return store->allTexts();
    }

    CodePage codePage{1252};
    NodeTree tree;
    std::unique_ptr<SECSMessageStore> store = std::make_unique<SECSMessageStore>();
    std::vector<std::string> calls;
    std::vector<std::string> faults;
};

} // namespace zb::test
