#include "model/statement_node.h"

#include "model/statement_text.h"
#include "platform/text.h"
#include "platform/tree/node.h"

namespace zb {

namespace {

constexpr const char* kStatement = "Statement";
constexpr const char* kType = "Type";
constexpr const char* kCondition = "Condition";
constexpr const char* kNoCondition = "NONE";

bool isEnclosed(std::string_view text, char left, char right) {
    return text.size() >= 2 && text.front() == left && text.back() == right;
}

void appendStatements(XmlElement& element, const Node& node) {
    for (const Node* child = node.child(); child != nullptr; child = child->next()) {
        XmlElement statement = statementElement(child->text());
        if (child->child() != nullptr)
            fillStatementElement(statement, *child);
        element.append(std::move(statement));
    }
}

} // namespace

XmlElement conditionNodeOf(const Node& root) {
    XmlElement element = createElement(kCondition);
    appendStatements(element, root);
    return element;
}

void fillStatementElement(XmlElement& element, const Node& node) {
    if (node.child()->image() == kItemValueImage)
        element.setText(assignedValue(node.child()->text()));
    else
        appendStatements(element, node);
}

XmlElement statementElement(std::string_view text) {
    XmlElement element = createElement(kStatement);
    const std::string_view statement = trimmed(text);
    const std::size_t opening = statement.find('(');
    if (opening == std::string_view::npos) {
        if (statement.starts_with(kElseImage)) {
            setElementAttribute(element, kType, std::string(kElseImage));
            setElementAttribute(element, kCondition, kNoCondition);
        }
        return element;
    }
    const std::string_view type = trimmed(statement.substr(0, opening));
    if (type.empty())
        return element;
    setElementAttribute(element, kType, std::string(type));
    const std::size_t colon = statement.find(':', opening);
    std::string_view condition;
    if (colon != std::string_view::npos)
        condition = trimmed(statement.substr(opening, colon - opening));
    setElementAttribute(element, kCondition,
                        isEnclosed(condition, '(', ')') ? std::string(condition) : kNoCondition);
    return element;
}

std::string assignedValue(std::string_view text) {
    const std::string_view assignment = trimmed(text);
    const std::size_t equals = assignment.find('=');
    if (equals == std::string_view::npos)
        return {};
    std::string_view value = assignment.substr(equals + 1);
    if (isEnclosed(value, '\'', '\''))
        value = value.substr(1, value.size() - 2);
    return std::string(value);
}

} // namespace zb
