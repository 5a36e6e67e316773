#include "generate/received_data.h"

#include "generate/message_data.h"
#include "platform/number.h"
#include "platform/text.h"

#include <optional>
#include <utility>

namespace zb::generate {

namespace {

constexpr double kLargestIndex = 1e9;

/// The index of a member, from 1; nothing for a text that is none.
std::optional<std::string> indexOf(std::string_view text) {
    const auto number = toNumber(text);
    if (!number || *number < 1 || *number > kLargestIndex ||
        *number != static_cast<double>(static_cast<long>(*number)))
        return std::nullopt;
    return std::to_string(static_cast<long>(*number));
}

} // namespace

ReceivedData::ReceivedData(const Language& language, const ValueLiterals& literals,
                           const KnownMessage& message, const MessageNames& names, TemplateData& data)
    : language_(language), literals_(literals), message_(message), names_(names), data_(data),
      functions_(language.reservedWords()) {}

void ReceivedData::fill(const ReceivedTransaction& received, const std::string& type) {
    const TRMessageRecord& record = *received.record;
    data_.set("type", type);
    data_.set("file", type);
    data_.set("message", names_.type);
    data_.set("nameLiteral", literals_.shownText(record.Name()));
    data_.set("report", literals_.truth(record.Report()));
    data_.set("head", headOf(message_.record));
    data_.set("comment", commentText(received.condition ? received.condition->text() : "in all other cases"));
    for (const char* list : {"values", "items"})
        data_.addList(list);
    data_.set("condition", received.condition ? expressionOf(*received.condition) : literals_.truth(true));
    data_.setFlag("hasCondition", received.condition.has_value());
    SafeNames names(language_.reservedWords());
    names.reserve(type);
    std::size_t index = 0;
    for (const auto& item : record.TRItems())
        fillItem(*item, index++, names);
    data_.set("itemCount", std::to_string(index));
}

std::string ReceivedData::valueOf(const DataItemAddress& address) {
    const auto [place, isNew] = functionOf_.try_emplace(address.text());
    if (isNew) {
        place->second = functions_.take(literals_.method("valueOf" + typeName(address.text(), "Item")));
        TemplateData& data = data_.add("values");
        data.set("function", place->second);
        data.set("address", commentText(address.text()));
        fillValue(data, address);
    }
    return place->second + "(message)";
}

/// A value is that of the message, or of a member of its lists: each index leads one list further down. An
/// index that is not given is that of the first member.
void ReceivedData::fillValue(TemplateData& data, const DataItemAddress& address) const {
    const std::vector<std::string> indexes = address.indexes();
    const MessageShape::Path path = message_.shape.pathTo(address.name());
    bool isFound = path.isFound;
    std::size_t used = 0;
    std::string found = path.isList ? "" : "message";
    std::string prefix = "message.";
    data.addList("steps");
    for (const MessageShape::Place place : path.places) {
        const Field& field = message_.shape.fieldAt(place);
        const bool isTarget =
            path.isList && &place == &path.places.back() && field.item->name == address.name();
        const std::string own = prefix + names_.field(place);
        if (!field.takesIndex() || isTarget) {
            found = own;
            prefix = own + ".";
            continue;
        }
        const auto index = used < indexes.size() ? indexOf(indexes[used]) : std::optional<std::string>("1");
        isFound = isFound && index.has_value();
        const std::string member = "member" + std::to_string(++used);
        TemplateData& step = data.add("steps");
        step.set("member", member);
        step.set("list", own);
        step.set("index", index.value_or("1"));
        step.setFlag("isLast", field.kind == Field::Kind::Values);
        found.clear();
        prefix = member + language_.word("memberAccess");
    }
    data.setFlag("isFound", isFound);
    data.setFlag("isList", path.isList);
    data.set("found", path.isList ? std::string() : found);
}

std::string ReceivedData::expressionOf(const Condition& condition) {
    if (condition.nodes().empty())
        return literals_.truth(false);
    std::vector<std::string> expressions;
    for (const ConditionNode& node : condition.nodes()) {
        if (const auto* comparison = std::get_if<Comparison>(&node)) {
            expressions.push_back(expressionOf(*comparison));
            continue;
        }
        const auto& junction = std::get<Junction>(node);
        const char* word = junction.word == Junction::Word::And ? " && " : " || ";
        std::string joined = "(" + std::move(expressions[junction.left]) + word;
        joined += std::move(expressions[junction.right]) + ")";
        expressions.push_back(std::move(joined));
    }
    return expressions.back();
}

std::string ReceivedData::expressionOf(const Comparison& comparison) {
    const std::string value = valueOf(comparison.item) + "." + literals_.method("is");
    return (comparison.isEqual ? "" : "!") + value + "(" + literals_.comparedText(comparison.plainValue()) +
           ")";
}

std::string ReceivedData::itemOf(const std::string& wordName, const std::string& itemName,
                                 const std::string& value) const {
    return replaceAll(filled(language_.word(wordName), literals_.shownText(itemName)), "{value}", value);
}

void ReceivedData::fillItem(const TRItemRecord& item, std::size_t index, SafeNames& names) {
    TemplateData& data = data_.add("items");
    data.set("item", names.take(language_.hasUpperFields() ? typeName(item.Name(), "Item")
                                                           : fieldName(item.Name(), "item")));
    data.set("itemIndex", std::to_string(index));
    data.set("itemComment", commentText(item.Type() + " from " + item.Value()));
    data.set("compute", functions_.take(literals_.method("compute" + typeName(item.Name(), "Item"))));
    data.addList("lines");
    const std::vector<Statement> statements = statementsOf(item);
    data.setFlag("isOpen", !addLines(data, item.Name(), {statements, "        "}));
    const bool hasSource = !item.Value().empty();
    const bool hasAbsolute = !item.ABSValue().empty();
    data.setFlag("hasSource", hasSource);
    data.setFlag("hasAbsolute", hasAbsolute);
    data.set("source", hasSource ? valueOf(DataItemAddress(item.Value())) : std::string());
    data.set("nameLiteral", literals_.shownText(item.Name()));
    data.set("absolute", literals_.messageText(item.ABSValue()));
}

bool ReceivedData::addLines(TemplateData& data, const std::string& itemName, const Branch& branch) {
    const auto add = [&data](std::string line) { data.add("lines").set("line", std::move(line)); };
    bool isOpen = false;
    bool returns = true;
    bool isWhole = false;
    for (const Statement& statement : branch.statements) {
        if (statement.kind == Statement::Kind::None)
            continue;
        isWhole = statement.kind == Statement::Kind::Else;
        const std::string condition = isWhole ? "{" : "if (" + expressionOf(statement.condition) + ") {";
        add(branch.indent + (isOpen ? "} else " : "") + condition);
        isOpen = true;
        const std::string inner = branch.indent + "    ";
        if (statement.branches.empty())
            add(inner + "return " + itemOf("itemOfText", itemName, literals_.messageText(statement.value)) +
                ";");
        else
            returns = addLines(data, itemName, {statement.branches, inner}) && returns;
        if (isWhole)
            break;
    }
    if (isOpen)
        add(branch.indent + "}");
    return isWhole && returns;
}

} // namespace zb::generate
