#include "lint/message_index.h"

#include "platform/number.h"
#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

using Summaries = MessageIndex::Summaries;

/// Calls `visit` with each list of the group that has the message. A list that is empty afterwards is
/// removed.
template<typename Visit>
void visitLists(MessageIndex::Group& group, const MessageSummary& summary, Visit visit) {
    visit(group.all);
    if (!summary.key) {
        visit(group.unkeyed);
        return;
    }
    const auto visitEntry = [&](auto& lists, const std::string& path, const std::string& text) {
        const auto entry = lists.try_emplace({path, text}).first;
        visit(entry->second);
        if (entry->second.empty())
            lists.erase(entry);
    };
    visitEntry(group.byKeyValue, summary.key->path, summary.key->value);
    visitEntry(group.byKeyPlace, summary.key->path, summary.key->name);
}

} // namespace

MessageSummary MessageSummary::of(const CheckedMessage& message) {
    MessageSummary summary;
    summary.name = message.name;
    summary.stream = message.stream;
    summary.function = message.function;
    summary.direction = DirectionSet::of(message.direction);
    summary.wait = message.wait;
    summary.nodeIndex = message.nodeIndex;
    if (const CheckedItem* key = message.key())
        summary.key = Key{key->path, key->record.getName(), comparable(key->record)};
    return summary;
}

std::string MessageSummary::comparable(const SECSItemRecord& item) {
    const ItemKind kind = itemKind(item.getType());
    if (kind == ItemKind::Quoted)
        return trimRight(item.getValue());
    std::vector<std::string> words;
    for (const std::string& word : splitAtBlanks(item.getValue())) {
        const auto number = toNumber(word);
        words.push_back(number ? printDouble(*number) : upper(word));
    }
    return join(words, " ");
}

void MessageIndex::put(const Node& messageNode, MessageSummary summary) {
    remove(messageNode);
    auto owned = std::make_unique<MessageSummary>(std::move(summary));
    visitLists(groups_[{owned->stream, owned->function}], *owned, [&](Summaries& list) {
        const auto place = std::upper_bound(
            list.begin(), list.end(), owned->nodeIndex,
            [](int nodeIndex, const MessageSummary* other) { return nodeIndex < other->nodeIndex; });
        list.insert(place, owned.get());
    });
    nodes_.emplace(owned.get(), &messageNode);
    summaries_.emplace(&messageNode, std::move(owned));
}

void MessageIndex::remove(const Node& messageNode) {
    const auto found = summaries_.find(&messageNode);
    if (found == summaries_.end())
        return;
    const MessageSummary* summary = found->second.get();
    const auto group = groups_.find({summary->stream, summary->function});
    visitLists(group->second, *summary, [&](Summaries& list) { std::erase(list, summary); });
    if (group->second.all.empty())
        groups_.erase(group);
    nodes_.erase(summary);
    summaries_.erase(found);
}

void MessageIndex::clear() {
    groups_.clear();
    nodes_.clear();
    summaries_.clear();
}

const MessageIndex::Group& MessageIndex::group(int stream, int function) const {
    static const Group kEmpty;
    const auto found = groups_.find({stream, function});
    return found == groups_.end() ? kEmpty : found->second;
}

std::vector<const Node*> MessageIndex::nodesBeside(int stream, int function) const {
    const int paired = function % 2 == 1 ? function + 1 : function - 1;
    std::vector<const Node*> nodes;
    for (const int beside : {function, paired})
        for (const MessageSummary* summary : group(stream, beside).all)
            nodes.push_back(nodes_.at(summary));
    return nodes;
}

} // namespace zb
