#include "messages/smd/smd_writer.h"

#include "platform/text.h"
#include "platform/wildcard.h"

namespace zb {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool isSave(WalkMode mode) {
    return mode == WalkMode::SaveProject || mode == WalkMode::ModelerSave;
}

bool isBuild(WalkMode mode) {
    return mode == WalkMode::BuildSmd || mode == WalkMode::BuildMdf;
}

/// A save also keeps items below an item that is not a list: they may have been read so, and must not be
/// lost.
bool isOpen(const Node& item, WalkMode mode) {
    if (item.child() == nullptr)
        return false;
    std::string_view text = trimmed(item.text());
    return isSave(mode) || takeWord(text) == "L";
}

} // namespace

WalkOutcome SmdWriter::buildMessageText(WalkMode mode, NodeTree& tree, SECSMessageStore& store) {
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!hasColon(node->text()))
            continue;
        if (WalkOutcome outcome = writeMessage(*node, mode, tree, store); !outcome.status.empty())
            return outcome;
    }
    return {};
}

WalkOutcome SmdWriter::writeMessage(const Node& node, WalkMode mode, NodeTree& tree,
                                    SECSMessageStore& store) {
    if (!isSave(mode)) {
        OptionalFault fault = streamFault(node.text());
        if (!fault)
            fault = functionFault(node.text());
        if (fault)
            return {std::string(fault->text), NodeFault{*fault, node.index()}};
    }
    if (const auto fault = composeMessage(node, mode, tree))
        return {"occur an Error", fault};
    store.addMessageText(buffer_);
    const SECSMessageRecord* record = node.key().empty() ? nullptr : store.getByName(node.key());
    if (record != nullptr && onRecord_)
        onRecord_(*record);
    return {};
}

std::string SmdWriter::composeForSave(NodeTree& tree) {
    std::string text;
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!hasColon(node->text()))
            continue;
        composeMessage(*node, WalkMode::SaveProject, tree);
        text += buffer_;
    }
    buffer_.clear();
    return text;
}

std::optional<NodeFault> SmdWriter::composeMessage(const Node& node, WalkMode mode, NodeTree& tree) {
    buffer_.clear();
    writeComment(node, isBuild(mode) ? Form::Build : Form::Project);
    buffer_ += node.text();
    if (node.child() == nullptr) {
        buffer_.append(".").append(kLineEnd);
        return std::nullopt;
    }
    buffer_ += kLineEnd;
    return writeItems(node, mode, tree);
}

void SmdWriter::writeComment(const Node& messageNode, Form form) {
    const std::string banner = form == Form::Build ? std::string(70, '*').append(kLineEnd) : std::string();
    const Node* description = messageNode.previous();
    buffer_.append(banner).append("* ");
    if (description != nullptr)
        buffer_ += description->text();
    buffer_.append(kLineEnd).append(banner);
}

/// Without recursion, for trees of any depth. Only the last direct item ends the message.
std::optional<NodeFault> SmdWriter::writeItems(const Node& node, WalkMode mode, NodeTree& tree) {
    const Form form = isBuild(mode) ? Form::Build : Form::Project;
    validator_.beginMessage();
    int depth = 0;
    for (const Node* item = node.child(); item != nullptr;) {
        if (!isSave(mode)) {
            if (const auto fault = checkItem(item->index(), tree))
                return fault;
        }
        const bool isOpenList = isOpen(*item, mode);
        writeItem(*item, depth, isOpenList, item == node.lastChild(), form);
        if (isOpenList) {
            item = item->child();
            ++depth;
            continue;
        }
        while (item->next() == nullptr && item->parent() != &node) {
            item = item->parent();
            --depth;
            closeList(depth, item == node.lastChild(), form);
        }
        item = item->next();
    }
    return std::nullopt;
}

std::optional<NodeFault> SmdWriter::checkItem(int index, NodeTree& tree) {
    OptionalFault fault = validator_.checkItemName(index, tree);
    if (!fault)
        fault = Validator::checkItemValues(tree, index);
    return fault ? std::optional(NodeFault{*fault, index}) : std::nullopt;
}

void SmdWriter::writeItem(const Node& item, int depth, bool isOpenList, bool isLast, Form form) {
    indent(depth);
    if (form == Form::Build)
        buffer_ += '<';
    buffer_ += item.text();
    if (form == Form::Build && !isOpenList)
        buffer_ += '>';
    if (isLast && !isOpenList)
        buffer_ += '.';
    buffer_ += kLineEnd;
}

void SmdWriter::closeList(int depth, bool isLast, Form form) {
    if (form == Form::Build) {
        indent(depth);
        buffer_.append(isLast ? ">." : ">").append(kLineEnd);
    } else if (isLast) {
        buffer_.resize(buffer_.size() - kLineEnd.size());
        buffer_.append(".").append(kLineEnd);
    }
}

void SmdWriter::indent(int depth) {
    buffer_.append((static_cast<std::size_t>(depth) + 1) * 4, ' ');
}

Result<std::optional<SECSMessageRecord>, std::string> SmdWriter::composeSingleMessage(NodeTree& tree) {
    const Node* node = tree.firstRoot();
    while (node != nullptr && !hasColon(node->text()))
        node = node->next();
    if (node == nullptr)
        return std::optional<SECSMessageRecord>();
    buffer_.clear();
    writeComment(*node, Form::Project);
    buffer_ += node->text();
    buffer_.append(node->child() == nullptr ? "." : "").append(kLineEnd);
    if (node->child() != nullptr)
        writeItems(*node, WalkMode::ModelerSave, tree);
    SECSMessageRecord record;
    const std::string status = record.parseSmd(buffer_, kFormatSmd);
    buffer_.clear();
    if (isBlank(status))
        return std::optional(std::move(record));
    return std::string("This message is not correct");
}

} // namespace zb
