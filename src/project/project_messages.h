#pragma once

#include "messages/message_record.h"
#include "messages/smd/smd_reader.h"

#include <memory>
#include <string>
#include <vector>

namespace zb {

/// The nodes of messages, and the names of the messages in tree order.
struct MessageTree {
    std::unique_ptr<NodeTree> nodes = std::make_unique<NodeTree>(); ///< never null
    std::vector<std::string> names;
};

/// The messages of a project, as the text of their section. The text is kept unchanged, including lines that
/// violate the grammar; trees and records are made from it on request.
class ProjectMessages {
public:
    /// A project without a section of messages.
    ProjectMessages() = default;
    /// `text` contains the lines of the section in project form, without its header line. A line within it
    /// that begins with "##" marks a gap between two sections.
    explicit ProjectMessages(std::string text);

    bool hasSection() const { return hasSection_; }
    const std::string& text() const { return text_; }

    /// Fills an empty tree.
    void fill(NodeTree& tree, const MessageNameListener& onMessage = {}) const {
        readSmdSection(tree, text_, onMessage);
    }
    MessageTree tree(const Progress& progress = {}) const;
    /// One record for each node of the tree that is the head of a message, in tree order.
    std::vector<SECSMessageRecord> records() const;

    bool operator==(const ProjectMessages&) const = default;

private:
    std::string text_;
    bool hasSection_ = false;
};

/// The record of a message node with its description and its items.
SECSMessageRecord messageRecordOf(const Node& messageNode);
/// Whether a root node is the head of a message, and not its description.
bool isMessageNode(const Node& node);

} // namespace zb
