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
    for (const auto& record : model->TRMessages()) {
        if (!equalsIgnoringCase(record->SECSMessage(), name))
            continue;
        const bool received = record->Direction() == model->ReceivedDirection();
        found.push_back(placeInModel(*record, "TR message", received ? "received" : "sent"));
        FoundPlaces rows = usesOfTRMessage(sequences, record->Name());
        std::move(rows.begin(), rows.end(), std::back_inserter(found));
    }
    return found;
}

FoundPlaces usesOfTRMessage(const Sequences& sequences, std::string_view name) {
    FoundPlaces found;
    const auto& rows = sequences.rows();
    std::string sequence;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].isHead())
            sequence = rows[i].text;
        else if (rows[i].transactionName == name)
            found.push_back({"Sequence",
                             sequence,
                             rows[i].text + " " + rows[i].direction + " " + rows[i].transactionName,
                             {Destination::Kind::Sequence, i, rows[i].transactionName}});
    }
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
