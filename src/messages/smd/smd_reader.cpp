#include "messages/smd/smd_reader.h"

#include "messages/indentation.h"
#include "messages/item_grammar.h"
#include "messages/message_nodes.h"
#include "messages/smd/smd_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/wildcard.h"

#include <optional>

namespace zb {

namespace {

/// Adds the three root nodes of a message and returns its message node.
Node& addMessageNodes(NodeTree& tree, std::string_view name, std::string nodeText,
                      std::string_view description) {
    tree.add(nullptr, Relation::Last, "");
    tree.add(nullptr, Relation::Last, std::string(description)).setBold(true);
    Node& message = tree.add(nullptr, Relation::Last, std::move(nodeText));
    tree.setKey(message, name);
    message.setExpanded(true);
    return message;
}

/// Adds items below a message by their depths. Only the direction of a step down counts, not its length.
class ItemPlacer {
public:
    ItemPlacer(NodeTree& tree, Node* message) : tree_(&tree), last_(message) {}

    void add(long depth, std::string text) {
        Node& item = place(depth, std::move(text));
        item.setExpanded(true);
        last_ = &item;
        depth_ = depth;
    }

private:
    Node& place(long depth, std::string text) {
        if (depth == depth_)
            return tree_->add(last_, Relation::Next, std::move(text));
        if (depth > depth_)
            return tree_->add(last_, Relation::Child, std::move(text));
        Node* above = last_;
        for (long steps = depth_ - depth + 1; steps > 0 && above != nullptr; --steps)
            above = above->parent();
        return tree_->add(above, Relation::Child, std::move(text));
    }

    NodeTree* tree_;
    Node* last_;
    long depth_ = 0;
};

/// Takes the lines of the section one by one.
class SectionReader {
public:
    SectionReader(NodeTree& tree, const MessageNameListener& onMessage)
        : tree_(tree), onMessage_(onMessage), items_(tree, nullptr) {}

    void line(std::string_view anyLine) {
        const std::string_view line = anyLine.substr(0, anyLine.find_last_not_of(' ') + 1);
        if (line.starts_with("##")) {
            comment_ = {};
            return;
        }
        if (line.empty())
            return;
        if (line.substr(0, 2) == "* ") {
            comment_ = line.substr(2);
            return;
        }
        if (hasColon(line))
            takeHead(trimmed(line));
        else if (isOpen_)
            takeItem(line);
        comment_ = {};
    }

private:
    /// Removes the "." that ends a message from the line.
    static bool takeEnd(std::string_view& content) {
        if (content.back() != '.')
            return false;
        content.remove_suffix(1);
        content = trimmed(content);
        return true;
    }

    void takeHead(std::string_view content) {
        const std::string name = trim(before(content, ": "));
        const bool ended = takeEnd(content);
        Node& message = addMessageNodes(tree_, name, std::string(content), trimmed(comment_));
        items_ = ItemPlacer(tree_, &message);
        isOpen_ = !ended;
        if (onMessage_)
            onMessage_(name);
    }

    void takeItem(std::string_view line) {
        const long depth = depthOfIndentation(line.find_first_not_of(' '));
        std::string_view content = trimmed(line);
        const bool ended = takeEnd(content);
        if (!content.empty())
            items_.add(depth, normalizeItemText(content));
        isOpen_ = !ended;
    }

    NodeTree& tree_;
    const MessageNameListener& onMessage_;
    std::string_view comment_;
    ItemPlacer items_; ///< of the last message
    bool isOpen_ = false;
};

void addItems(NodeTree& tree, Node& message, const SECSMessageRecord& record) {
    ItemPlacer items(tree, &message);
    const std::string body = record.getBodyText();
    LineReader lines(body);
    while (const std::optional<std::string_view> line = lines.next()) {
        if (isBlank(*line))
            continue;
        std::string_view text = *line;
        const int depth = countOf(takeWord(text));
        items.add(depth, trim(text));
    }
}

} // namespace

void readSmdSection(NodeTree& tree, std::string_view sectionText, const MessageNameListener& onMessage,
                    const Progress& progress) {
    const NodeTree::Filling filling(tree);
    SectionReader reader(tree, onMessage);
    LineReader lines(sectionText);
    while (const std::optional<std::string_view> line = lines.next()) {
        reader.line(*line);
        progress.at(static_cast<std::size_t>(line->data() - sectionText.data()), sectionText.size());
    }
}

std::vector<std::size_t> linesOfNodes(std::string_view sectionText) {
    NodeTree tree;
    const NodeTree::Filling filling(tree);
    const MessageNameListener onMessage;
    SectionReader reader(tree, onMessage);
    LineReader lines(sectionText);
    std::vector<std::size_t> lineOfNode;
    for (std::size_t number = 1; const std::optional<std::string_view> line = lines.next(); ++number) {
        reader.line(*line);
        lineOfNode.resize(tree.count(), number);
    }
    return lineOfNode;
}

std::string addMessageToTree(NodeTree& tree, const SECSMessageRecord& record) {
    const std::string head = record.getHeadText();
    const std::size_t lineEnd = head.find("\r\n");
    const std::string_view nodeText = std::string_view(head).substr(lineEnd + 2);
    if (isMessageKeyUsed(tree, record.getName(), 0))
        return "Key";
    if (!hasColon(nodeText))
        return {};
    addItems(tree,
             addMessageNodes(tree, record.getName(), std::string(nodeText),
                             std::string(std::string_view(head).substr(0, lineEnd))),
             record);
    return {};
}

bool replaceMessageInTree(NodeTree& tree, const SECSMessageRecord& record) {
    Node* message = tree.find(record.getName());
    if (message == nullptr || !hasColon(record.getNodeText()))
        return false;
    message->setText(std::string(record.getNodeText()));
    if (Node* description = messageOf(*message).description; description != nullptr)
        description->setText(std::string(record.getDescription()));
    while (message->child() != nullptr)
        tree.remove(*message->child());
    addItems(tree, *message, record);
    return true;
}

} // namespace zb
