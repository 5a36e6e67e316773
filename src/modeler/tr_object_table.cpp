#include "modeler/tr_object_table.h"

#include "controls/list.h"
#include "model/tr_model_store.h"
#include "modeler/model_nodes.h"

namespace zb {

namespace {

void setTRMessageColumns(List& table) {
    table.addColumn("TRMessage", 2000);
    table.addColumn("SECSMessage", 1500);
    table.addColumn("Report", 800);
    table.addColumn("Condition", 3000, "TRNameCondition");
}

void setTRItemColumns(List& table) {
    for (const char* text : {"TRItem", "Type", "Value", "ABSValue"})
        table.addColumn(text, 1500);
}

void addMessageRows(List& table, const TRModelStore& model, int direction, const char* picture) {
    for (const auto& record : model.TRMessages()) {
        if (record->Direction() != direction)
            continue;
        ListRow& row = table.add(record->Name(), record->Name());
        row.setCell(1, record->SECSMessage());
        row.setCell(2, record->Report() ? "True" : "False");
        row.setCell(3, record->Condition());
        row.setImage(picture);
    }
}

void addItemRows(List& table, const TRMessageRecord& record) {
    for (const auto& item : record.TRItems()) {
        ListRow& row = table.add(item->Name(), itemKey(record.Name(), item->Name()));
        row.setCell(1, item->Type());
        row.setCell(2, item->Value());
        row.setCell(3, item->ABSValue());
        row.setImage(itemPicture(item->Name()));
    }
}

} // namespace

void fillTRObjectTable(List& table, const TRModelStore* model, std::string_view name) {
    table.clear();
    table.clearColumns();
    const bool received = name == kReceiveRoot;
    const bool messages = received || name == kSendRoot;
    if (messages)
        setTRMessageColumns(table);
    else
        setTRItemColumns(table);
    if (model == nullptr)
        return;
    if (received)
        addMessageRows(table, *model, model->ReceivedDirection(), kReceivedPicture);
    else if (messages)
        addMessageRows(table, *model, model->SentDirection(), kSentPicture);
    else if (const TRMessageRecord* record = model->getTRMessage(name); record != nullptr)
        addItemRows(table, *record);
}

} // namespace zb
