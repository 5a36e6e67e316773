#include "generate/plug_in_model.h"

#include "platform/text.h"

#include <algorithm>
#include <utility>

namespace zb::generate {

namespace {

constexpr int kHighestStream = 127;
constexpr int kHighestFunction = 255;

bool isTowards(const SECSMessageRecord& record, Side side) {
    const std::string_view away = side == Side::Host ? "H->E" : "H<-E";
    return record.getDirection() != away;
}

std::string inQuotes(std::string_view name) {
    return "'" + std::string(name) + "'";
}

std::size_t keysOf(const std::vector<ItemTree>& items) {
    std::size_t keys = 0;
    for (const ItemTree& item : items)
        keys += (item.isKey ? 1 : 0) + keysOf(item.members);
    return keys;
}

} // namespace

KnownMessage::KnownMessage(const SECSMessageRecord& ownRecord, ItemForest ownItems)
    : record(ownRecord), items(std::move(ownItems)), shape(items.roots), keys(keysOf(items.roots)) {}

PlugInModel::PlugInModel(const Project& project) : project_(project) {
    takeMessages();
    takeTransactions();
    orderChains();
}

std::optional<std::size_t> PlugInModel::addMessage(const SECSMessageRecord& record, std::string_view place) {
    const std::string name = std::string(place) + " " + inQuotes(record.getName());
    const int stream = record.getStream();
    const int function = record.getFunction();
    if (stream < 0 || stream > kHighestStream || function < 0 || function > kHighestFunction) {
        notes_.push_back(name + " is left out: it has no stream and function");
        return std::nullopt;
    }
    ItemForest items = itemsOf(record);
    if (!items.fault.empty()) {
        notes_.push_back(name + " is left out: " + items.fault);
        return std::nullopt;
    }
    messages_.push_back(std::make_unique<KnownMessage>(record, std::move(items)));
    return messages_.size() - 1;
}

void PlugInModel::takeMessages() {
    const Side other = project_.side == Side::Host ? Side::Equipment : Side::Host;
    for (const SECSMessageRecord& record : project_.messages.records()) {
        const auto index = addMessage(record, "The message");
        if (!index)
            continue;
        byName_.emplace(upper(record.getName()), *index);
        const std::pair place(record.getStream(), record.getFunction());
        if (isTowards(record, project_.side))
            candidates_[place].push_back(*index);
        if (isTowards(record, other))
            replies_[place].push_back(*index);
    }
}

void PlugInModel::takeTransactions() {
    for (const auto& record : project_.model->TRMessages()) {
        const std::string name = "The transaction message " + inQuotes(record->Name());
        const auto found = byName_.find(upper(record->SECSMessage()));
        if (found == byName_.end()) {
            notes_.push_back(name + " is left out: there is no SECS message " +
                             inQuotes(record->SECSMessage()));
        } else if (record->Direction() == project_.model->SentDirection()) {
            takeSent(*record, found->second);
        } else if (record->Direction() == project_.model->ReceivedDirection()) {
            ReceivedTransaction received{record.get(), found->second, std::nullopt};
            if (!isDefaultCondition(record->Condition()))
                received.condition = Condition::parse(trim(record->Condition()));
            if (received.condition && received.condition->faultAt())
                notes_.push_back(name + " never applies: its condition cannot be understood");
            received_.push_back(std::move(received));
        }
    }
}

void PlugInModel::takeSent(const TRMessageRecord& record, std::size_t message) {
    SentTransaction sent{&record, message, std::nullopt};
    if (record.DataBlock()) {
        ItemForest data = itemsOf(*record.DataBlock());
        if (data.fault.empty() && isValueOf(data.roots, messages_[message]->items.roots))
            sent.data = std::move(data);
        else
            notes_.push_back("The transaction message " + inQuotes(record.Name()) +
                             " starts with the values of its SECS message: its own data is not of that form");
    }
    sent_.push_back(std::move(sent));
}

void PlugInModel::orderChains() {
    chains_.resize(messages_.size());
    for (std::size_t index = 0; index < received_.size(); ++index)
        chains_[received_[index].message].push_back(index);
    // The default is asked last, wherever it is in the model. Of several the first one counts.
    for (std::vector<std::size_t>& chain : chains_) {
        const auto defaults = std::stable_partition(chain.begin(), chain.end(), [this](std::size_t index) {
            return received_[index].condition.has_value();
        });
        for (auto hidden = defaults; hidden != chain.end(); ++hidden) {
            if (hidden != defaults)
                notes_.push_back("The transaction message " + inQuotes(received_[*hidden].record->Name()) +
                                 " never applies: another one without a condition comes before it");
        }
        if (defaults != chain.end())
            chain.erase(defaults + 1, chain.end());
    }
    // Of several messages that fit, the one with the most keys is meant.
    for (auto& [place, candidates] : candidates_)
        std::stable_sort(candidates.begin(), candidates.end(), [this](std::size_t left, std::size_t right) {
            return messages_[left]->keys > messages_[right]->keys;
        });
}

std::optional<std::size_t> PlugInModel::automaticReply(std::size_t message) const {
    const SECSMessageRecord& primary = messages_[message]->record;
    if (!primary.getReply() || primary.getFunction() % 2 == 0)
        return std::nullopt;
    const auto reply = replies_.find({primary.getStream(), primary.getFunction() + 1});
    if (reply == replies_.end())
        return std::nullopt;
    return reply->second.front();
}

bool isValueOf(const std::vector<ItemTree>& data, const std::vector<ItemTree>& items) {
    const auto matches = [](const ItemTree& value, const ItemTree& item) {
        if (value.type != item.type)
            return false;
        if (!item.isList())
            return value.count <= item.count;
        if (item.isFixed || item.members.empty())
            return isValueOf(value.members, item.members);
        return value.members.size() <= item.count &&
               std::all_of(value.members.begin(), value.members.end(), [&item](const ItemTree& member) {
                   return isValueOf({member}, {item.members.front()});
               });
    };
    return data.size() == items.size() && std::equal(data.begin(), data.end(), items.begin(), matches);
}

} // namespace zb::generate
