#include "messages/smd/smd_writer.h"

#include "controls/desktop.h"
#include "platform/text.h"
#include "platform/wildcard.h"

#include <cerrno>

namespace zb {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool isSave(std::string_view mode) {
    return mode == "SAVE_PROJECT" || mode == "MODELER_SAVE";
}

bool isBuild(std::string_view mode) {
    return mode == "BUILD_SMD" || mode == "BUILD_MDF";
}

/// A save also keeps what stands below an item that is no list: it may have been read so, and must not get
/// lost.
bool isOpen(const Node& item, std::string_view mode) {
    if (item.child() == nullptr)
        return false;
    std::string_view text = trimmed(item.text());
    return isSave(mode) || takeWord(text) == "L";
}

} // namespace

SmdWriter::SmdWriter(ModuleState& state, EditorPane& pane)
    : state_(state), pane_(pane), validator_(state.desktop, state.codePage) {}

std::string SmdWriter::buildMessageText(const std::string& path, std::string_view mode, NodeTree& tree) {
    fileError_.reset();
    state_.SECSMessageStore = std::make_unique<SECSMessageStore>();
    pane_.InitMsg();
    pane_.hideItemPane();
    if (tree.empty())
        return {};
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!hasColon(node->text()))
            continue;
        if (std::string status = writeMessage(*node, mode, tree); !status.empty())
            return status;
    }
    return writeStore(path, mode);
}

std::string SmdWriter::writeMessage(const Node& node, std::string_view mode, NodeTree& tree) {
    if (!isSave(mode)) {
        OptionalFault fault = streamFault(node.text());
        if (!fault)
            fault = functionFault(node.text());
        if (fault) {
            showDefinitionFault(*fault, tree, node.index(), state_.desktop);
            return std::string(fault->text);
        }
    }
    buffer_.clear();
    writeComment(node, isBuild(mode) ? Form::Build : Form::Project);
    buffer_ += node.text();
    if (node.child() == nullptr) {
        buffer_.append(".").append(kLineEnd);
    } else {
        buffer_ += kLineEnd;
        writeItems(node, mode, tree);
        if (fault_)
            return "occur an Error";
    }
    SECSMessageStore& store = *state_.SECSMessageStore;
    store.addMessageText(buffer_);
    if (const SECSMessageRecord* record = node.key().empty() ? nullptr : store.getByName(node.key()))
        pane_.display_DefSECSMsg(*record);
    return {};
}

std::string SmdWriter::writeStore(const std::string& path, std::string_view mode) {
    const Result<void> written =
        state_.SECSMessageStore->writeFile(state_.files, path, mode, state_.projectSections);
    if (written)
        return {};
    fileError_ = written.error();
    if (fileError_->number != ENOENT && fileError_->number != ENOTDIR)
        return {};
    state_.desktop.showBox("You cannot save this file because the file path is not found.");
    return fileError_->description;
}

void SmdWriter::writeComment(const Node& messageNode, Form form) {
    const std::string banner = form == Form::Build ? std::string(70, '*').append(kLineEnd) : std::string();
    const Node* description = messageNode.previous();
    buffer_.append(banner).append("* ");
    if (description != nullptr)
        buffer_ += description->text();
    buffer_.append(kLineEnd).append(banner);
}

/// Walks without recursion, for trees of any depth. Only the last direct item ends the message.
void SmdWriter::writeItems(const Node& node, std::string_view mode, NodeTree& tree) {
    const Form form = isBuild(mode) ? Form::Build : Form::Project;
    fault_ = false;
    validator_.beginMessage();
    int depth = 0;
    for (const Node* item = node.child(); item != nullptr;) {
        if (!isSave(mode)) {
            fault_ = validator_.checkItemName(item->index(), tree) ||
                     validator_.checkItemValues(tree, item->index());
            if (fault_)
                return;
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

std::optional<SECSMessageRecord> SmdWriter::composeSingleMessage(std::string_view mode, NodeTree& tree) {
    const Node* node = tree.firstRoot();
    while (node != nullptr && !hasColon(node->text()))
        node = node->next();
    if (node == nullptr)
        return std::nullopt;
    buffer_.clear();
    writeComment(*node, Form::Project);
    buffer_ += node->text();
    buffer_.append(node->child() == nullptr ? "." : "").append(kLineEnd);
    if (node->child() != nullptr)
        writeItems(*node, mode, tree);
    SECSMessageRecord record;
    const std::string status = record.parseSmd(buffer_, kFormatSmd);
    buffer_.clear();
    if (isBlank(status))
        return record;
    state_.desktop.showBox("This message is not correct");
    return std::nullopt;
}

} // namespace zb
