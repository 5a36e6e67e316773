#include "generate/message_data.h"

#include "platform/text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace zb::generate {

namespace {

/// One of these is set in each step of a record.
constexpr std::string_view kStepKinds[] = {"openList", "closeList", "value",   "record",
                                           "values",   "records",   "anyItems"};

void setKind(TemplateData& data, std::string_view chosen) {
    for (const std::string_view kind : kStepKinds)
        data.setFlag(kind, kind == chosen);
}

std::string_view kindOf(Field::Kind kind) {
    switch (kind) {
    case Field::Kind::Value:
        return "value";
    case Field::Kind::Record:
        return "record";
    case Field::Kind::Values:
        return "values";
    case Field::Kind::Records:
        return "records";
    case Field::Kind::AnyItems:
        return "anyItems";
    }
    return {};
}

std::string ruleOf(const ItemTree& item) {
    return item.isFixed ? "exactly" : "upTo";
}

bool hasLists(const MessageShape& shape) {
    const auto isList = [](const Field& field) {
        return field.kind != Field::Kind::Value && field.kind != Field::Kind::Record;
    };
    return std::any_of(shape.records().begin(), shape.records().end(), [&isList](const RecordShape& record) {
        return std::any_of(record.fields.begin(), record.fields.end(), isList);
    });
}

/// "U4 1 SVID" of an item, with a mark for a key.
std::string describe(const ItemTree& item) {
    return item.type + " " + std::to_string(item.count) + (item.isFixed ? "" : "V") +
           (item.name.empty() ? "" : " " + item.name) + (item.isKey ? ", key" : "");
}

} // namespace

std::string formatName(const ItemTree& item) {
    if (item.type == "BOOLEAN")
        return "Boolean";
    return item.type == "X" ? "A" : item.type;
}

std::string headOf(const SECSMessageRecord& record) {
    return "S" + std::to_string(record.getStream()) + "F" + std::to_string(record.getFunction()) +
           (record.getWait() ? " W" : "");
}

void MessageData::fill(TemplateData& data, const KnownMessage& message, const MessageNames& names) const {
    const SECSMessageRecord& record = message.record;
    data.set("type", names.type);
    data.set("file", names.type);
    data.set("nameLiteral", literals_.shownText(record.getName()));
    data.set("head", headOf(record));
    data.set("stream", std::to_string(record.getStream()));
    data.set("function", std::to_string(record.getFunction()));
    data.set("wait", literals_.truth(record.getWait()));
    const std::string description = literals_.comment(record.getDescription());
    data.set("summary", headOf(record) + "." + (description.empty() ? "" : " " + description));
    data.setFlag("hasLists", hasLists(message.shape));
    data.addList("nested");
    const auto& records = message.shape.records();
    for (std::size_t index = 0; index < message.shape.root(); ++index)
        fillRecord(data.add("nested"), records[index], index, names);
    fillRecord(data, records.back(), message.shape.root(), names);
}

void MessageData::fillRecord(TemplateData& data, const RecordShape& record, std::size_t index,
                             const MessageNames& names) const {
    data.set("recordType", names.records[index]);
    data.set("recordComment",
             record.list == nullptr ? std::string() : literals_.comment(describe(*record.list)));
    data.addList("fields");
    data.addList("steps");
    for (std::size_t place = 0; place < record.fields.size(); ++place)
        fillField(data.add("fields"), record.fields[place], names.fields[index][place], names);
    for (const Step& step : record.steps)
        fillStep(data.add("steps"), step, record, names.fields[index], names);
}

void MessageData::fillField(TemplateData& data, const Field& field, const std::string& name,
                            const MessageNames& names) const {
    std::string type;
    std::string initial;
    switch (field.kind) {
    case Field::Kind::Value:
        type = typeOf(*field.item);
        initial = literals_.initialValue(*field.item);
        break;
    case Field::Kind::Record:
        type = names.records[field.record];
        initial = filled(language_.word("newRecord"), type);
        break;
    case Field::Kind::Values:
        type = filled(language_.word("listOf"), boxedTypeOf(field.valueItem()));
        break;
    case Field::Kind::Records:
        type = filled(language_.word("listOf"), names.records[field.record]);
        break;
    case Field::Kind::AnyItems:
        type = filled(language_.word("listOf"), language_.word("any"));
        break;
    }
    if (initial.empty())
        initial = filled(language_.word("emptyList"), type);
    data.set("fieldType", type);
    data.set("field", name);
    data.set("initial", initial);
    data.set("fieldComment", literals_.comment(describe(*field.item)));
}

void MessageData::fillStep(TemplateData& data, const Step& step, const RecordShape& record,
                           const std::vector<std::string>& fields, const MessageNames& names) const {
    if (step.kind != Step::Kind::Field) {
        setKind(data, step.kind == Step::Kind::OpenList ? "openList" : "closeList");
        data.set("count", std::to_string(step.number));
        data.setFlag("isKey", false);
        return;
    }
    const Field& field = record.fields[step.number];
    const ItemTree& item = field.valueItem();
    setKind(data, kindOf(field.kind));
    data.set("field", fields[step.number]);
    data.setFlag("isKey", item.isKey && !item.isList());
    data.set("keyLiteral", item.isKey ? literals_.comparedText(item.value) : std::string());
    data.set("rule", literals_.method(ruleOf(*field.item)));
    data.set("count", std::to_string(field.item->count));
    if (field.kind == Field::Kind::Record || field.kind == Field::Kind::Records)
        data.set("partType", names.records[field.record]);
    if (field.kind != Field::Kind::Value && field.kind != Field::Kind::Values)
        return;
    fillValue(data, field, fields[step.number]);
}

void MessageData::fillValue(TemplateData& data, const Field& field, const std::string& name) const {
    const ItemTree& item = field.valueItem();
    const TypeWords& type = language_.type(item.type);
    const std::string rule = literals_.method(ruleOf(item));
    const std::string count = std::to_string(item.count);
    const std::string call = replaceAll(item.isSingle() ? type.call : type.callMany, "{count}",
                                        language_.word("countScope") + rule + "(" + count + ")");
    data.set("format", formatName(item));
    data.set("memberRule", rule);
    data.set("memberCount", count);
    data.set("memberType", typeOf(item));
    data.set("memberInitial", literals_.initialValue(item));
    data.set("read", filled(call, name));
    data.set("readMember", filled(call, "member"));
    data.set("keyValue", filled(type.value, field.kind == Field::Kind::Values ? "value" : name));
}

std::string MessageData::typeOf(const ItemTree& item) const {
    const TypeWords& type = language_.type(item.type);
    return item.isSingle() ? type.one : type.many;
}

std::string MessageData::boxedTypeOf(const ItemTree& item) const {
    const TypeWords& type = language_.type(item.type);
    return item.isSingle() && !type.boxed.empty() ? type.boxed : typeOf(item);
}

} // namespace zb::generate
