#include "lint/message_rules.h"
#include "lint/rule.h"
#include "lint/rule_context.h"
#include "platform/code_page.h"

#include <algorithm>

namespace zb {

namespace {

constexpr int kNoStream = -2;

/// The first of these messages that is another one and goes the same way; null for none.
const MessageSummary* firstBeside(const CheckedMessage& message, const MessageIndex::Summaries& others) {
    const DirectionSet direction = DirectionSet::of(message.direction);
    const auto found = std::find_if(others.begin(), others.end(), [&](const MessageSummary* other) {
        return other->nodeIndex != message.nodeIndex && other->direction.overlaps(direction);
    });
    return found == others.end() ? nullptr : *found;
}

/// An item without a mark at the place where another message has its key.
struct LostKey {
    const CheckedItem* item = nullptr;
    const MessageSummary* other = nullptr;
};

/// The item must have a value that looks like a key's: a message for all other cases has none.
LostKey lostKey(const MessageContext& context, const MessageIndex::Group& group) {
    const CheckedMessage& message = context.message;
    if (message.key() != nullptr)
        return {};
    for (const auto& entry : group.byKeyPlace) {
        const auto& place = entry.first;
        const auto item =
            std::find_if(message.items.begin(), message.items.end(), [&](const CheckedItem& candidate) {
                return candidate.path == place.first && candidate.record.getName() == place.second;
            });
        if (item == message.items.end())
            continue;
        const std::string value = MessageSummary::comparable(item->record);
        const MessageSummary* other = firstBeside(message, entry.second);
        if (other != nullptr && !value.empty() && value != "0")
            return {&*item, other};
    }
    return {};
}

const MessageIndex::Group& groupOf(const MessageContext& context) {
    const CheckedMessage& message = context.message;
    // Without a stream and a function there is nothing to tell apart.
    return message.isNumbered() ? context.index.group(message.stream, message.function)
                                : context.index.group(kNoStream, 0);
}

} // namespace

void checkToldApart(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    const MessageIndex::Group& group = groupOf(context);
    if (message.key() != nullptr || lostKey(context, group).item != nullptr)
        return;
    const MessageSummary* other = firstBeside(message, group.unkeyed);
    if (other != nullptr && other->nodeIndex < message.nodeIndex)
        report.tell(message.place(), "No key item tells this message from \"" + other->name +
                                         "\", which is " + message.streamFunction() + ", too");
}

void checkKeysDiffer(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    const CheckedItem* key = message.key();
    const MessageIndex::Group& group = groupOf(context);
    if (key == nullptr || group.all.empty())
        return;
    const std::string value = MessageSummary::comparable(key->record);
    const auto same = group.byKeyValue.find({key->path, value});
    const MessageSummary* other =
        same == group.byKeyValue.end() ? nullptr : firstBeside(message, same->second);
    if (other != nullptr && other->nodeIndex < message.nodeIndex)
        report.tell(message.place(*key),
                    "The key item has the value of the one of \"" + other->name + "\": " + value);
}

void checkKeyKept(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    const auto [item, other] = lostKey(context, groupOf(context));
    if (item != nullptr)
        report.tell(message.place(*item), "This item has no key mark, and that of \"" + other->name +
                                              "\", which is " + message.streamFunction() + ", too, has one");
}

void checkKeyPlace(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    for (const CheckedItem& item : message.items) {
        const bool repeats = item.isList() && !item.record.isFixed();
        if (item.record.isKey() && (repeats || message.variableListsAround(item) > 0))
            report.tell(message.place(item), "An item that is repeated cannot be the key");
    }
}

// A driver compares all bytes of an item.
void checkKeyLength(const MessageContext& context, Report& report) {
    for (const CheckedItem& item : context.message.items) {
        const SECSItemRecord& record = item.record;
        if (!record.isKey() || !record.isFixed() || itemKind(record.getType()) != ItemKind::Quoted)
            continue;
        const auto length = static_cast<long>(context.codePage.ansiByteLength(record.getValue()));
        if (length < record.getCount())
            report.tell(context.message.place(item),
                        "The key text has " + std::to_string(length) + " bytes, and the item always " +
                            std::to_string(record.getCount()) + ", so that no message matches");
    }
}

void checkKeySingle(const MessageContext& context, Report& report) {
    const CheckedMessage& message = context.message;
    bool hasKey = false;
    for (const CheckedItem& item : message.items) {
        if (item.record.isKey() && hasKey)
            report.tell(message.place(item), "The message has another key item before this one");
        hasKey = hasKey || item.record.isKey();
    }
}

} // namespace zb
