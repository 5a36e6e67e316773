#include "workbench/uses.h"

#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "model/condition.h"
#include "model/sequences.h"
#include "model/statement.h"
#include "model/tr_model_store.h"
#include "platform/text.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace zb {

namespace {

bool names(const std::vector<DataItemAddress>& items, std::string_view name) {
    return std::any_of(items.begin(), items.end(),
                       [name](const DataItemAddress& item) { return equalsIgnoringCase(item.name(), name); });
}

FoundPlace placeInModel(const TRMessageRecord& record, std::string kind, std::string text) {
    return {
        std::move(kind), record.Name(), std::move(text), {Destination::Kind::TRMessage, 0, record.Name()}};
}

void addItemUses(FoundPlaces& found, const TRMessageRecord& record, const TRItemRecord& item,
                 std::string_view name) {
    if (equalsIgnoringCase(DataItemAddress(item.Value()).name(), name))
        found.push_back(placeInModel(record, "TR item", item.Name() + " = " + item.Value()));
    const std::vector<Statement> statements = statementsOf(item);
    for (const Statement* statement : flatStatements(statements)) {
        if (names(statement->condition.dataItems(), name))
            found.push_back(
                placeInModel(record, "Statement", item.Name() + ": " + statement->condition.text()));
    }
}

void addUsesIn(FoundPlaces& found, const TRMessageRecord& record, std::string_view name) {
    if (names(Condition::parse(record.Condition()).dataItems(), name))
        found.push_back(placeInModel(record, "Condition", record.Condition()));
    if (record.DataBlock()) {
        for (const SECSItemRecord& item : record.DataBlock()->getItems()) {
            if (equalsIgnoringCase(item.getName(), name))
                found.push_back(placeInModel(record, "Data", composeItemText(item)));
        }
    }
    for (const auto& item : record.TRItems())
        addItemUses(found, record, *item, name);
}

/// The rows of the sequences by their TR messages.
class RowsOfMessages {
public:
    explicit RowsOfMessages(const Sequences& sequences) : rows_(sequences.rows()) {
        for (std::size_t at = 0; at < rows_.size(); ++at) {
            if (rows_[at].isHead())
                heads_.push_back(at);
            else
                byName_[rows_[at].transactionName].push_back(at);
        }
    }

    void addPlaces(FoundPlaces& found, std::string_view name) const {
        const auto places = byName_.find(name);
        if (places == byName_.end())
            return;
        for (const std::size_t at : places->second) {
            const SequenceRow& row = rows_[at];
            found.push_back({"Sequence",
                             nameOfSequence(at),
                             row.text + " " + row.direction + " " + row.transactionName,
                             {Destination::Kind::Sequence, at, row.transactionName}});
        }
    }

private:
    /// Empty for a row that no head comes before.
    std::string nameOfSequence(std::size_t row) const {
        const auto after = std::upper_bound(heads_.begin(), heads_.end(), row);
        return after == heads_.begin() ? std::string() : rows_[*std::prev(after)].text;
    }

    const std::vector<SequenceRow>& rows_;
    std::vector<std::size_t> heads_;
    std::unordered_map<std::string_view, std::vector<std::size_t>> byName_;
};

} // namespace

FoundPlace placeOfNode(const NodeTree& tree, int index) {
    Node& node = *tree.at(index);
    Node& root = rootOf(node);
    const Node* message = messageOf(root).message;
    FoundPlace place;
    place.kind = &node != &root ? "Item" : &node == message ? "Message" : "Description";
    place.where = message == nullptr ? std::string() : std::string(nameInText(message->text()));
    place.text = node.text();
    place.destination = {Destination::Kind::Node, static_cast<std::size_t>(index), node.text()};
    return place;
}

FoundPlaces usesOfMessage(const TRModelStore* model, const Sequences& sequences, std::string_view name) {
    FoundPlaces found;
    if (model == nullptr)
        return found;
    const RowsOfMessages rows(sequences);
    for (const auto& record : model->TRMessages()) {
        if (!equalsIgnoringCase(record->SECSMessage(), name))
            continue;
        const bool received = record->Direction() == model->ReceivedDirection();
        found.push_back(placeInModel(*record, "TR message", received ? "received" : "sent"));
        rows.addPlaces(found, record->Name());
    }
    return found;
}

FoundPlaces usesOfTRMessage(const Sequences& sequences, std::string_view name) {
    FoundPlaces found;
    RowsOfMessages(sequences).addPlaces(found, name);
    return found;
}

FoundPlaces usesOfItem(const NodeTree& messages, const TRModelStore* model, std::string_view name) {
    FoundPlaces found;
    const std::string wanted = upper(name);
    for (const Node* root = messages.firstRoot(); root != nullptr; root = root->next()) {
        for (NodeWalk walk(*root); const Node* item = walk.node(); walk.next()) {
            // Most nodes do not even hold the name.
            if (!contains(upper(item->text()), wanted))
                continue;
            SECSItemRecord record;
            record.parseText(item->text());
            if (equalsIgnoringCase(record.getName(), name))
                found.push_back(placeOfNode(messages, item->index()));
        }
    }
    if (model == nullptr)
        return found;
    for (const auto& record : model->TRMessages())
        addUsesIn(found, *record, name);
    return found;
}

} // namespace zb
