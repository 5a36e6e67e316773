#include "generate/message_shape.h"

#include <algorithm>
#include <utility>

namespace zb::generate {

namespace {

constexpr std::size_t kLargestCount = 0xFFFFFF;

ItemTree treeOf(const SECSItemRecord& record) {
    ItemTree item;
    item.type = record.getType();
    item.name = record.getName();
    item.kind = itemKind(record.getType());
    if (item.kind == ItemKind::Unknown) { // an item of any format is all that is known of it
        item.type = "X";
        item.kind = ItemKind::Quoted;
    }
    item.count = static_cast<std::size_t>(std::max(record.getCount(), 0));
    item.isFixed = record.isFixed();
    item.isKey = record.isKey();
    item.value = record.getValue();
    return item;
}

/// Reads the items from `at` on that are at this level or below it.
std::vector<ItemTree> readLevel(const std::vector<SECSItemRecord>& records, std::size_t& at, int level) {
    std::vector<ItemTree> items;
    while (at < records.size() && records[at].getLevel() >= level) {
        const SECSItemRecord& record = records[at++];
        ItemTree& item = items.emplace_back(treeOf(record));
        item.members = readLevel(records, at, record.getLevel() + 1);
    }
    return items;
}

std::string faultOf(const ItemTree& item) {
    const std::string place = item.name.empty() ? "an item \"" + item.type + "\"" : "the item " + item.name;
    if (!item.isList() && !item.members.empty())
        return place + " has items below it, but is no list";
    if (!item.isList() && item.count > kLargestCount)
        return place + " has more values than a message can carry";
    if (item.isList() && !item.isFixed && item.members.size() > 1)
        return place + " has a variable count, but more than one item below it";
    for (const ItemTree& member : item.members) {
        if (std::string fault = faultOf(member); !fault.empty())
            return fault;
    }
    return {};
}

const std::string& nameOfMembers(const ItemTree& list) {
    const bool isNamed = !list.members.front().isList() && !list.members.front().name.empty();
    return isNamed ? list.members.front().name : list.name;
}

/// The items from the top down to the last one of this name.
bool findWay(const std::vector<ItemTree>& items, std::string_view name, std::vector<const ItemTree*>& way) {
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        way.push_back(&*item);
        if (findWay(item->members, name, way) || item->name == name)
            return true;
        way.pop_back();
    }
    return false;
}

} // namespace

ItemForest itemsOf(const SECSMessageRecord& message) {
    ItemForest forest;
    std::size_t at = 0;
    forest.roots = readLevel(message.getItems(), at, 0);
    if (forest.roots.size() > 1) { // the data of a message is one item
        ItemTree list;
        list.type = "L";
        list.kind = ItemKind::List;
        list.count = forest.roots.size();
        list.members = std::move(forest.roots);
        forest.roots.clear();
        forest.roots.push_back(std::move(list));
    }
    for (const ItemTree& root : forest.roots) {
        if (forest.fault.empty())
            forest.fault = faultOf(root);
    }
    return forest;
}

MessageShape::MessageShape(const std::vector<ItemTree>& roots) : roots_(&roots) {
    addRecord({}, roots);
}

std::size_t MessageShape::addRecord(std::string wish, const std::vector<ItemTree>& items) {
    RecordShape record;
    record.wish = std::move(wish);
    for (const ItemTree& item : items)
        addItem(item, record);
    records_.push_back(std::move(record));
    return records_.size() - 1;
}

std::size_t MessageShape::addListRecord(const ItemTree& list) {
    RecordShape record;
    record.wish = list.name;
    record.list = &list;
    record.steps.push_back({Step::Kind::OpenList, list.members.size()});
    for (const ItemTree& member : list.members)
        addItem(member, record);
    record.steps.push_back({Step::Kind::CloseList, 0});
    records_.push_back(std::move(record));
    return records_.size() - 1;
}

void MessageShape::addItem(const ItemTree& item, RecordShape& record) {
    if (item.isList() && item.isFixed && (item.name.empty() || item.members.empty())) {
        record.steps.push_back({Step::Kind::OpenList, item.members.size()});
        for (const ItemTree& member : item.members)
            addItem(member, record);
        record.steps.push_back({Step::Kind::CloseList, 0});
        return;
    }
    Field field;
    field.item = &item;
    field.wish = item.name;
    if (item.isList() && item.isFixed) {
        field.kind = Field::Kind::Record;
        field.record = addListRecord(item);
    } else if (item.isList() && item.members.empty()) {
        field.kind = Field::Kind::AnyItems;
    } else if (item.isList() && item.members.front().isList()) {
        const ItemTree& member = item.members.front();
        field.kind = Field::Kind::Records;
        field.record = member.isFixed ? addListRecord(member) : addRecord(member.name, item.members);
        RecordShape& members = records_[field.record];
        members.list = &member;
        if (members.wish.empty())
            members.wish = item.name + "_Entry";
    } else if (item.isList()) {
        field.kind = Field::Kind::Values;
        field.wish = nameOfMembers(item);
    }
    record.steps.push_back({Step::Kind::Field, record.fields.size()});
    record.fields.push_back(std::move(field));
}

MessageShape::Path MessageShape::pathTo(std::string_view itemName) const {
    Path path;
    std::vector<const ItemTree*> way;
    if (!findWay(*roots_, itemName, way))
        return path;
    path.isFound = true;
    path.isList = way.back()->isList();
    std::size_t record = root();
    for (const ItemTree* item : way) {
        const std::vector<Field>& fields = records_[record].fields;
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [item](const Field& candidate) { return candidate.item == item; });
        if (field == fields.end())
            continue; // a list whose items are fields of the record around it, or the member of a list
        path.places.push_back({record, static_cast<std::size_t>(field - fields.begin())});
        if (field->kind == Field::Kind::Record || field->kind == Field::Kind::Records)
            record = field->record;
    }
    return path;
}

} // namespace zb::generate
