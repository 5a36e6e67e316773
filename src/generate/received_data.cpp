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

/// Whether a condition is asked before a value is known.
bool hasConditions(const std::vector<Statement>& statements) {
    for (const Statement& statement : statements) {
        if (statement.kind == Statement::Kind::None)
            continue;
        return statement.kind != Statement::Kind::Else || hasConditions(statement.branches);
    }
    return false;
}

/// A long condition on several lines: each operator that is not within parentheses begins one.
std::string wrapped(const std::string& expression, const std::string& indent) {
    constexpr std::size_t kLongest = 80;
    if (expression.size() <= kLongest)
        return expression;
    std::string lines;
    int depth = 0;
    bool isText = false;
    for (std::size_t at = 0; at < expression.size(); ++at) {
        const char character = expression[at];
        if (isText && character == '\\') {
            lines.append(expression, at++, 2);
            continue;
        }
        isText = isText != (character == '"');
        depth += isText ? 0 : character == '(' ? 1 : character == ')' ? -1 : 0;
        const std::string_view rest = std::string_view(expression).substr(at);
        if (!isText && depth == 0 && (rest.starts_with(" && ") || rest.starts_with(" || ")))
            lines += "\n" + indent + "    ";
        else
            lines += character;
    }
    return lines;
}

} // namespace

ReceivedData::ReceivedData(const Language& language, const ValueLiterals& literals,
                           const KnownMessage& message, const MessageNames& names, TemplateData& data)
    : language_(language), literals_(literals), message_(message), names_(names), data_(data),
      members_(language.reservedWords()) {}

void ReceivedData::fill(const ReceivedTransaction& received, const std::string& type) {
    const TRMessageRecord& record = *received.record;
    members_.reserve(type);
    data_.set("type", type);
    data_.set("file", type);
    data_.set("message", names_.type);
    data_.set("nameLiteral", literals_.shownText(record.Name()));
    data_.set("report", literals_.truth(record.Report()));
    data_.set("head", headOf(message_.record));
    data_.set("comment",
              literals_.comment(received.condition ? received.condition->text() : "in all other cases"));
    for (const char* list : {"values", "items"})
        data_.addList(list);
    data_.set("condition", received.condition
                               ? wrapped(expressionOf(*received.condition), language_.word("bodyIndent"))
                               : literals_.truth(true));
    data_.setFlag("hasCondition", received.condition.has_value());
    std::size_t index = 0;
    for (const auto& item : record.TRItems())
        fillItem(*item, index++);
    data_.set("itemCount", std::to_string(index));
}

std::string ReceivedData::valueOf(const DataItemAddress& address) {
    const auto [place, isNew] = functionOf_.try_emplace(address.text());
    if (isNew) {
        place->second = members_.take(literals_.method("valueOf" + typeName(address.text(), "Item")));
        TemplateData& data = data_.add("values");
        data.set("function", place->second);
        data.set("address", literals_.comment(address.text()));
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
    std::string value;
    std::string prefix = "message.";
    const Field* target = nullptr;
    data.addList("steps");
    for (const MessageShape::Place& place : path.places) {
        const Field& field = message_.shape.fieldAt(place);
        target = &field;
        const bool isTarget =
            path.isList && &place == &path.places.back() && field.item->name == address.name();
        const std::string own = prefix + names_.field(place);
        if (!field.takesIndex() || isTarget) {
            found = value = own;
            prefix = own + ".";
            continue;
        }
        const auto index = used < indexes.size() ? indexOf(indexes[used]) : std::optional<std::string>("1");
        isFound = isFound && index.has_value();
        const std::string member = "member" + std::to_string(++used);
        value = member;
        TemplateData& step = data.add("steps");
        step.set("member", member);
        step.set("list", own);
        step.set("index", index.value_or("1"));
        step.set("place", std::to_string(index ? std::stol(*index) - 1 : 0));
        step.setFlag("isLast", field.kind == Field::Kind::Values);
        found.clear();
        prefix = member + language_.word("memberAccess");
    }
    data.setFlag("isFound", isFound);
    data.setFlag("isRead", isFound && (!path.isList || !data.list("steps")->empty()));
    data.setFlag("isList", path.isList);
    data.set("found", path.isList ? std::string() : found);
    const bool hasValue = !path.isList && target != nullptr;
    data.set("value",
             hasValue ? filled(language_.type(target->valueItem().type).value, value) : std::string());
}

std::string ReceivedData::expressionOf(const Condition& condition) {
    if (condition.nodes().empty())
        return literals_.truth(false);
    struct Part {
        std::string text;
        std::optional<Junction::Word> word; ///< of a part that takes parentheses within another one
    };
    std::vector<Part> parts;
    for (const ConditionNode& node : condition.nodes()) {
        if (const auto* comparison = std::get_if<Comparison>(&node)) {
            parts.push_back({expressionOf(*comparison), std::nullopt});
            continue;
        }
        const auto& junction = std::get<Junction>(node);
        const auto within = [&parts, &junction](std::size_t index) {
            const Part& part = parts[index];
            return !part.word || part.word == junction.word ? part.text : "(" + part.text + ")";
        };
        const char* word = junction.word == Junction::Word::And ? " && " : " || ";
        parts.push_back({within(junction.left) + word + within(junction.right), junction.word});
    }
    return parts.back().text;
}

std::string ReceivedData::expressionOf(const Comparison& comparison) {
    const std::string value = valueOf(comparison.item) + "." + literals_.method("is");
    return (comparison.isEqual ? "" : "!") + value + "(" + literals_.comparedText(comparison.plainValue()) +
           ")";
}

std::string ReceivedData::itemOf(const std::string& wordName, const std::string& itemName,
                                 const std::string& value) const {
    // Both texts can have braces of their own.
    constexpr std::string_view kValue = "{value}";
    const std::string& pattern = language_.word(wordName);
    const std::string_view start = before(pattern, kValue);
    const std::string_view end = std::string_view(pattern).substr(start.size() + kValue.size());
    return filled(start, literals_.shownText(itemName)) + value + std::string(end);
}

void ReceivedData::fillItem(const TRItemRecord& item, std::size_t index) {
    TemplateData& data = data_.add("items");
    data.set("item", members_.take(language_.hasUpperFields() ? typeName(item.Name(), "Item")
                                                              : fieldName(item.Name(), "item")));
    data.set("itemIndex", std::to_string(index));
    data.set("itemComment", literals_.comment(item.Type() + " from " + item.Value()));
    data.set("compute", members_.take(literals_.method("compute" + typeName(item.Name(), "Item"))));
    data.addList("lines");
    const std::vector<Statement> statements = statementsOf(item);
    const bool isOpen = !addLines(data, item.Name(), {statements, language_.word("bodyIndent")});
    data.setFlag("isOpen", isOpen);
    const bool hasSource = !item.Value().empty();
    const bool hasAbsolute = !item.ABSValue().empty();
    data.setFlag("hasSource", hasSource);
    data.setFlag("isRead", (isOpen && hasSource) || hasConditions(statements));
    data.setFlag("hasAbsolute", hasAbsolute);
    data.set("source", hasSource ? valueOf(DataItemAddress(item.Value())) : std::string());
    data.set("nameLiteral", literals_.shownText(item.Name()));
    data.set("absolute", literals_.messageText(item.ABSValue()));
}

bool ReceivedData::addLines(TemplateData& data, const std::string& itemName, const Branch& branch) {
    const auto add = [&data, &branch](const std::string& line) {
        data.add("lines").set("line", branch.indent + line);
    };
    const bool ownsLines = language_.opensBlocksOnOwnLines();
    bool isOpen = false;
    bool returns = true;
    bool isWhole = false;
    for (const Statement& statement : branch.statements) {
        if (statement.kind == Statement::Kind::None)
            continue;
        isWhole = statement.kind == Statement::Kind::Else;
        if (isWhole && !isOpen) // no condition comes before it
            return addBranch(data, itemName, statement, branch.indent);
        if (isOpen && ownsLines)
            add("}");
        const std::string joint = !isOpen ? "" : ownsLines ? "else " : "} else ";
        const std::string head =
            isWhole ? joint
                    : joint + "if (" + wrapped(expressionOf(statement.condition), branch.indent) + ") ";
        add(ownsLines ? head.substr(0, head.size() - 1) : head + "{");
        if (ownsLines)
            add("{");
        isOpen = true;
        returns = addBranch(data, itemName, statement, branch.indent + "    ") && returns;
        if (isWhole)
            break;
    }
    if (isOpen)
        add("}");
    return isWhole && returns;
}

bool ReceivedData::addBranch(TemplateData& data, const std::string& itemName, const Statement& statement,
                             const std::string& indent) {
    if (!statement.branches.empty())
        return addLines(data, itemName, {statement.branches, indent});
    const std::string value = literals_.messageText(statement.value);
    data.add("lines").set("line", indent + "return " + itemOf("itemOfText", itemName, value) + ";");
    return true;
}

} // namespace zb::generate
