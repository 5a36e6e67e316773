#include "generate/sent_data.h"

#include "generate/message_data.h"
#include "platform/text.h"

namespace zb::generate {

void SentData::fill(const SentTransaction& sent, const std::string& type) {
    const SECSMessageRecord& record = message_.record;
    data_.set("type", type);
    data_.set("file", type);
    data_.set("message", names_.type);
    data_.set("nameLiteral", literals_.shownText(sent.record->Name()));
    data_.set("head", headOf(record));
    data_.set("stream", std::to_string(record.getStream()));
    data_.set("function", std::to_string(record.getFunction()));
    data_.set("wait", literals_.truth(record.getWait()));
    data_.setFlag("isPrimary", record.getFunction() % 2 == 1);
    data_.addList("assignments");
    if (sent.data) {
        Cursor cursor{message_.shape.root(), 0, "message."};
        assign(message_.items.roots, sent.data->roots, cursor);
    }
    data_.setFlag("hasRecords", members_ > 0);
}

void SentData::assign(const std::vector<ItemTree>& items, const std::vector<ItemTree>& data, Cursor& cursor) {
    for (std::size_t index = 0; index < items.size(); ++index)
        assignItem(items[index], data[index], cursor);
}

void SentData::assignItem(const ItemTree& item, const ItemTree& data, Cursor& cursor) {
    const RecordShape& record = message_.shape.records()[cursor.record];
    const bool hasField =
        cursor.nextField < record.fields.size() && record.fields[cursor.nextField].item == &item;
    if (!hasField) { // a list whose items are fields of the record around it
        assign(item.members, data.members, cursor);
        return;
    }
    const Field& field = record.fields[cursor.nextField];
    const std::string place = cursor.prefix + names_.fields[cursor.record][cursor.nextField++];
    if (field.kind == Field::Kind::Value) {
        // The value of a data block, with the count of the definition.
        ItemTree value = item;
        value.value = data.value;
        add(place + " = " + literals_.initialValue(value) + ";");
    } else if (field.kind == Field::Kind::Record) {
        Cursor inner{field.record, 0, place + "."};
        assign(item.members, data.members, inner);
    } else {
        assignMembers(field, data, place);
    }
}

void SentData::assignMembers(const Field& field, const ItemTree& data, const std::string& place) {
    for (const ItemTree& member : data.members) {
        if (field.kind == Field::Kind::Values) {
            ItemTree value = field.valueItem();
            value.value = member.value;
            add(replaceAll(filled(language_.word("addValue"), place), "{value}",
                           literals_.initialValue(value)));
            continue;
        }
        const std::string name = "member" + std::to_string(++members_);
        const std::string type = names_.ref + language_.word("scope") + names_.records[field.record];
        add(replaceAll(replaceAll(filled(language_.word("addRecord"), place), "{member}", name), "{type}",
                       type));
        Cursor inner{field.record, 0, name + "."};
        // The member of a list within a list is a record with the inner list as its only field.
        const ItemTree& item = field.item->members.front();
        if (item.isFixed)
            assign(item.members, member.members, inner);
        else
            assign(field.item->members, {member}, inner);
    }
}

} // namespace zb::generate
