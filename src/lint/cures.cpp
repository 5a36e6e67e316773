#include "lint/cures.h"

#include "lint/checked_message.h"
#include "messages/item_names.h"
#include "messages/libraries/built_in.h"
#include "messages/library_store.h"
#include "messages/message_nodes.h"
#include "platform/text.h"
#include "platform/tree/node_tree.h"
#include "project/project_messages.h"

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

namespace zb {

namespace {

/// The Text with other characters in place of one of its words.
std::string withWord(std::string_view text, int position, std::string_view word) {
    const std::string_view old = wordAt(text, position);
    const auto start = static_cast<std::size_t>(old.data() - text.data());
    return std::string(text.substr(0, start)).append(word).append(text.substr(start + old.size()));
}

std::optional<Cure> countCure(const Node& item, const NodeTree&) {
    const std::string count = std::to_string(item.children());
    if (!isList(item) || wordAt(item.text(), 1) == count)
        return std::nullopt;
    return Cure{"Set the count to " + count, TextCure{item.index(), withWord(item.text(), 1, count)}};
}

std::optional<Cure> itemNameCure(const Node& item, const NodeTree&) {
    const std::string_view name = itemNameInText(item.text());
    if (name.empty())
        return std::nullopt;
    const std::string fresh = MessageItemNames(item).uniqueItemName(name);
    return Cure{"Rename the item to " + fresh, TextCure{item.index(), withWord(item.text(), 2, fresh)}};
}

std::optional<Cure> messageNameCure(const Node& message, const NodeTree& tree) {
    const std::string_view name = nameInText(message.text());
    std::string fresh(trimmed(name));
    do
        fresh += "1";
    while (isMessageKeyUsed(tree, fresh, 0));
    return Cure{"Rename the message to " + fresh,
                TextCure{message.index(), fresh + message.text().substr(name.size())}};
}

Cure waitCure(const Node& message, bool wait) {
    const SECSMessageRecord record = messageRecordOf(message);
    const SECSMessageHead head{std::string(record.getName()),
                               record.getStream(),
                               record.getFunction(),
                               wait,
                               record.getReply(),
                               record.getNoLogging(),
                               std::string(record.getDirection())};
    return {wait ? "Set W" : "Remove W",
            TextCure{message.index(), SECSMessageRecord::fromParts(head, {}, {}).composeNodeText()}};
}

std::string otherWay(std::string_view direction) {
    if (direction == "H->E")
        return "H<-E";
    return direction == "H<-E" ? "H->E" : "H<->E";
}

/// The way of a reply that is missing: where both sides may begin, one of the two may be there.
std::string wayOfMissingReply(const SECSMessageRecord& primary, const NodeTree& tree) {
    const auto isReply = [&](const SECSMessageRecord& record) {
        return record.getStream() == primary.getStream() && record.getFunction() == primary.getFunction() + 1;
    };
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next()) {
        if (!isMessageNode(*node))
            continue;
        const SECSMessageRecord record = messageRecordOf(*node);
        const std::string direction(record.getDirection());
        if (isReply(record) && DirectionSet::of(primary.getDirection()).holds(DirectionSet::of(direction)))
            return otherWay(direction);
    }
    return otherWay(primary.getDirection());
}

/// The published reply with the stream, function and direction; one without data for a message of the user's
/// own.
SECSMessageRecord publishedReply(const SECSMessageHead& head) {
    SECSLibraryStore library(CodePage(1252));
    for (const std::string& block : semiLibraryBlocks())
        library.load(block, kFormatSemi);
    const auto found =
        library.getByStreamFunction("S" + std::to_string(head.stream) + " F" + std::to_string(head.function));
    const auto fitting = std::find_if(found.begin(), found.end(), [&](const SECSMessageRecord* record) {
        return DirectionSet::of(record->getDirection()).holds(DirectionSet::of(head.direction));
    });
    if (fitting != found.end())
        return **fitting;
    return found.empty() ? SECSMessageRecord() : *found.front();
}

std::optional<Cure> replyCure(const Node& message, const NodeTree& tree) {
    const SECSMessageRecord primary = messageRecordOf(message);
    SECSMessageHead head;
    head.stream = primary.getStream();
    head.function = primary.getFunction() + 1;
    head.direction = wayOfMissingReply(primary, tree);
    head.name = "S" + std::to_string(head.stream) + "F" + std::to_string(head.function);
    while (isMessageKeyUsed(tree, head.name, 0))
        head.name += "1";
    const SECSMessageRecord published = publishedReply(head);
    return Cure{
        "Add the reply " + head.name,
        AddedMessageCure{message.index(), SECSMessageRecord::fromParts(head, published.getDescription(),
                                                                       published.getBodyText())}};
}

void addItems(NodeTree& tree, Node& message, const SECSMessageRecord& record) {
    std::vector<Node*> open{&message};
    for (const SECSItemRecord& item : record.getItems()) {
        const auto level = static_cast<std::size_t>(std::max(item.getLevel(), 1));
        open.resize(std::min(level, open.size()));
        Node& node = tree.add(open.back(), Relation::Child, composeItemText(item));
        node.setExpanded(true);
        open.push_back(&node);
    }
}

using CureMaker = std::function<std::optional<Cure>(const Node&, const NodeTree&)>;

const std::map<std::string_view, CureMaker>& cureMakers() {
    static const std::map<std::string_view, CureMaker> kMakers{
        {"smd.item.count", countCure},
        {"smd.item.twice", itemNameCure},
        {"smd.name.twice", messageNameCure},
        {"std.reply.missing", replyCure},
        {"std.wait.missing", [](const Node& message, const NodeTree&) { return waitCure(message, true); }},
        {"std.wait.forbidden", [](const Node& message, const NodeTree&) { return waitCure(message, false); }},
    };
    return kMakers;
}

} // namespace

std::optional<Cure> cureOf(const Finding& finding, const NodeTree& tree) {
    const auto maker = cureMakers().find(finding.id);
    const Node* node = tree.at(finding.place.nodeIndex);
    return maker == cureMakers().end() || node == nullptr ? std::nullopt : maker->second(*node, tree);
}

void apply(const Cure& cure, NodeTree& tree) {
    if (const auto* text = std::get_if<TextCure>(&cure.step)) {
        Node* node = tree.at(text->nodeIndex);
        if (node == nullptr)
            return;
        node->setText(text->text);
        if (isMessageNode(*node))
            tree.setKey(*node, trimmed(nameInText(node->text())));
        return;
    }
    const auto& added = std::get<AddedMessageCure>(cure.step);
    Node* before = tree.at(added.nodeIndex);
    Node& message = addMessageNodes(tree, before, added.message.getName(), added.message.composeNodeText(),
                                    std::string(added.message.getDescription()));
    addItems(tree, message, added.message);
}

} // namespace zb
