#pragma once

#include "platform/xml_element.h"

#include <string>
#include <string_view>

namespace zb {

class Node;

/// The statements below the root as an element "Condition", with one "Statement" per statement.
XmlElement conditionNodeOf(const Node& root);
/// Adds everything below the node to its element: the assigned value, or the statements. If a value is first,
/// only the value is added.
void fillStatementElement(XmlElement& element, const Node& node);
/// An element "Statement" with the type and condition in the text of a node; without attributes when the text
/// has no type. A condition ends before the first ":" after its first parenthesis.
XmlElement statementElement(std::string_view text);
/// The value that the text of a value node assigns, without the apostrophes around it; "" when it has no "=".
std::string assignedValue(std::string_view text);

} // namespace zb
