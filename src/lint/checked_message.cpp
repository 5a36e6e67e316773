#include "lint/checked_message.h"

#include "messages/message_record.h"
#include "platform/text.h"
#include "platform/tree/node.h"
#include "platform/tree/node_walk.h"

#include <algorithm>

namespace zb {

namespace {

void takeHead(CheckedMessage& message, const SECSMessageRecord& record) {
    message.name = record.getName();
    message.stream = record.getStream();
    message.function = record.getFunction();
    message.direction = record.getDirection();
    message.wait = record.getWait();
}

/// Adds items in tree order, each with its depth.
class ItemAdder {
public:
    explicit ItemAdder(CheckedMessage& message) : message_(message) {}

    /// `depth` is 0 for an item that is in no list.
    void add(std::size_t depth, SECSItemRecord record, int nodeIndex) {
        open_.resize(std::min(open_.size(), depth));
        std::vector<CheckedItem>& items = message_.items;
        const std::size_t at = items.size();
        auto& siblings = open_.empty() ? message_.topLevel : items[open_.back()].children;
        siblings.push_back(at);
        std::string path = open_.empty() ? "" : items[open_.back()].path + "/";
        path += std::to_string(siblings.size());
        items.push_back({std::move(record), std::move(path), nodeIndex, {}});
        open_.push_back(at);
    }

private:
    CheckedMessage& message_;
    std::vector<std::size_t> open_;
};

} // namespace

DirectionSet DirectionSet::of(std::string_view direction) {
    return {direction != "H<-E", direction != "H->E"};
}

CheckedMessage CheckedMessage::of(const Node& messageNode) {
    CheckedMessage message;
    SECSMessageRecord head;
    head.parseNodeText(messageNode.text(), "");
    takeHead(message, head);
    if (!contains(messageNode.text(), message.direction))
        message.direction.clear();
    message.nodeIndex = messageNode.index();
    ItemAdder adder(message);
    for (NodeWalk walk(messageNode); const Node* node = walk.node(); walk.next()) {
        SECSItemRecord record;
        record.parseText(node->text());
        adder.add(walk.depth(), std::move(record), node->index());
    }
    return message;
}

CheckedMessage CheckedMessage::of(const SECSMessageRecord& record) {
    CheckedMessage message;
    takeHead(message, record);
    ItemAdder adder(message);
    for (SECSItemRecord& item : record.getItems()) {
        const int level = std::max(item.getLevel(), 1);
        adder.add(static_cast<std::size_t>(level - 1), std::move(item), 0);
    }
    return message;
}

FindingPlace CheckedMessage::place() const {
    return FindingPlace::inMessage(name, {}, nodeIndex);
}

FindingPlace CheckedMessage::place(const CheckedItem& item) const {
    return FindingPlace::inMessage(name, item.path, item.nodeIndex);
}

std::string CheckedMessage::streamFunction() const {
    return "S" + std::to_string(stream) + "F" + std::to_string(function);
}

const CheckedItem* CheckedMessage::key() const {
    const auto found =
        std::find_if(items.begin(), items.end(), [](const CheckedItem& item) { return item.record.isKey(); });
    return found == items.end() ? nullptr : &*found;
}

std::size_t CheckedMessage::variableListsAround(const CheckedItem& item) const {
    return static_cast<std::size_t>(std::count_if(items.begin(), items.end(), [&](const CheckedItem& list) {
        return list.isList() && !list.record.isFixed() && item.path.starts_with(list.path + "/");
    }));
}

} // namespace zb
