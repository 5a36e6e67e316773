#include "messages/smd/smd_writer.h"

#include "messages/value_loss.h"
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
bool isOpen(const Node& item, std::string_view text, WalkMode mode) {
    if (item.child() == nullptr)
        return false;
    text = trimmed(text);
    return isSave(mode) || takeWord(text) == "L";
}

} // namespace

void PreparedWalk::normalize(NodeTree& tree) {
    for (CanonicalText& canonical : canonicalTexts)
        tree.at(canonical.nodeIndex)->setText(std::move(canonical.text));
    canonicalTexts.clear();
}

WalkOutcome SmdWriter::buildMessageText(WalkMode mode, NodeTree& tree, SECSMessageStore& store) {
    PreparedWalk walk = prepare(mode, tree);
    walk.normalize(tree);
    store = std::move(*walk.store);
    return std::move(walk.outcome);
}

PreparedWalk SmdWriter::prepare(WalkMode mode, const NodeTree& tree, const Progress& progress) {
    walk_ = PreparedWalk();
    nodesDone_ = 0;
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        ++nodesDone_;
        if (!hasColon(node->text()))
            continue;
        progress.at(nodesDone_, tree.count());
        walk_.outcome = writeMessage(*node, mode);
        if (!walk_.outcome.status.empty())
            break;
    }
    return std::move(walk_);
}

WalkOutcome SmdWriter::writeMessage(const Node& node, WalkMode mode) {
    if (!isSave(mode)) {
        OptionalFault fault = streamFault(node.text());
        if (!fault)
            fault = functionFault(node.text());
        if (fault)
            return {std::string(fault->text), NodeFault{*fault, node.index()}};
    }
    if (const auto fault = composeMessage(node, mode))
        return {"occur an Error", fault};
    walk_.store->addMessageText(buffer_);
    const SECSMessageRecord* record = node.key().empty() ? nullptr : walk_.store->getByName(node.key());
    if (record != nullptr)
        walk_.records.push_back(record);
    return {};
}

std::string SmdWriter::composeForSave(const NodeTree& tree) {
    std::string text;
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!hasColon(node->text()))
            continue;
        composeMessage(*node, WalkMode::SaveProject);
        text += buffer_;
    }
    buffer_.clear();
    return text;
}

std::optional<NodeFault> SmdWriter::composeMessage(const Node& node, WalkMode mode) {
    buffer_.clear();
    writeComment(node, isBuild(mode) ? Form::Build : Form::Project);
    buffer_ += node.text();
    if (node.child() == nullptr) {
        buffer_.append(".").append(kLineEnd);
        return std::nullopt;
    }
    buffer_ += kLineEnd;
    return writeItems(node, mode);
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
std::optional<NodeFault> SmdWriter::writeItems(const Node& node, WalkMode mode) {
    const Form form = isBuild(mode) ? Form::Build : Form::Project;
    validator_.beginMessage();
    int depth = 0;
    for (const Node* item = node.child(); item != nullptr;) {
        ++nodesDone_;
        std::string_view text = item->text();
        if (!isSave(mode)) {
            Validator::Checked checked = validator_.check(*item);
            if (checked.canonicalText) {
                noteLoss(lostByCount(text, *checked.canonicalText));
                walk_.canonicalTexts.push_back({item->index(), *std::move(checked.canonicalText)});
                text = walk_.canonicalTexts.back().text;
            }
            if (checked.fault)
                return NodeFault{*checked.fault, item->index()};
        }
        const bool isOpenList = isOpen(*item, text, mode);
        writeItem(text, depth, isOpenList, item == node.lastChild(), form);
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

void SmdWriter::noteLoss(std::string loss) {
    if (!loss.empty() && walk_.losses++ == 0)
        walk_.firstLoss = std::move(loss);
}

void SmdWriter::writeItem(std::string_view text, int depth, bool isOpenList, bool isLast, Form form) {
    indent(depth);
    if (form == Form::Build)
        buffer_ += '<';
    buffer_ += text;
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

Result<std::optional<SECSMessageRecord>, std::string> SmdWriter::composeSingleMessage(const NodeTree& tree) {
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
        writeItems(*node, WalkMode::ModelerSave);
    SECSMessageRecord record;
    const std::string status = record.parseSmd(buffer_, kFormatSmd);
    buffer_.clear();
    if (isBlank(status))
        return std::optional(std::move(record));
    return std::string("This message is not correct");
}

} // namespace zb
