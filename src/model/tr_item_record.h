#pragma once

#include "model/named_records.h"
#include "platform/xml_element.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace zb {

/// A named value of a received TR message.
class TRItemRecord final : public NamedRecord {
public:
    /// The source: the name of a data item, with an index when it is inside variable lists.
    const std::string& Value() const { return value_; }
    void setValue(std::string value) { value_ = std::move(value); }
    const std::string& ABSValue() const { return absValue_; }
    void setABSValue(std::string value) { absValue_ = std::move(value); }
    /// The statements as lines joined by CR LF; empty or "NONE" when there are none.
    const std::string& StatementText() const { return statementText_; }
    void setStatementText(std::string text) { statementText_ = std::move(text); }
    /// "STRING" or "NUMERIC".
    const std::string& Type() const { return type_; }
    void setType(std::string type) { type_ = std::move(type); }
    /// The same statements as an element "Condition"; none for an item whose dialog was never accepted.
    const std::optional<XmlElement>& ConditionNode() const { return conditionNode_; }
    void setConditionNode(std::optional<XmlElement> node) { conditionNode_ = std::move(node); }

    std::unique_ptr<TRItemRecord> copy() const;

private:
    std::string value_;
    std::string absValue_;
    std::string statementText_;
    std::string type_;
    std::optional<XmlElement> conditionNode_;
};

} // namespace zb
