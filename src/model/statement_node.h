#pragma once

#include "platform/xml_element.h"

#include <string>
#include <string_view>

namespace zb {

class Node;

/// The statements below the root as an element "Condition", with one "Statement" a statement.
XmlElement conditionNodeOf(const Node& root);
/// Puts what stands below the node into its element: the value assigned there, or the statements. A value in
/// front stands alone.
void fillStatementElement(XmlElement& element, const Node& node);
/// An element "Statement" with the type and condition that the text of a node tells; without attributes when
/// it tells no type. A condition ends before the first ":" behind its first parenthesis.
XmlElement statementElement(std::string_view text);
/// What the text of a value node assigns, without the apostrophes around it; "" when it has no "=".
std::string assignedValue(std::string_view text);

} // namespace zb
