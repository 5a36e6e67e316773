#pragma once

#include "messages/item_grammar.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

/// One data item, parsed from the Text of its node: "U2 1 ECID 0", "A 16V NAME 'text' [K]", "L 2".
class SECSItemRecord {
public:
    const std::string& getName() const { return name_; }
    /// The type word, upper-cased.
    const std::string& getType() const { return type_; }
    /// The count without its "V"; a word that is not a number counts 0, and a number is limited to the range
    /// of an int.
    int getCount() const { return count_; }
    void setCount(int count) { count_ = count; }
    bool isFixed() const { return fixed_; }
    /// Without the apostrophes around it; several values are joined by single blanks.
    const std::string& getValue() const { return value_; }
    void setValue(std::string value) { value_ = std::move(value); }
    bool isKey() const { return key_; }
    /// Fills the record from an item Text. The status is empty when the Text has the form of an item;
    /// otherwise the record takes as much as possible.
    std::string parseText(std::string_view text);
    /// Depth of the item within its message, 1 for a direct item; 0 for a record from a Text alone.
    int getLevel() const { return level_; }
    void setLevel(int level) { level_ = level; }

private:
    void takeQuotedValue(std::string_view rest, std::string& status);
    void takeWords(std::string_view rest);

    std::string name_;
    std::string type_;
    std::string value_;
    int count_ = 0;
    int level_ = 0;
    bool fixed_ = true;
    bool key_ = false;
};

/// The Text of an item from its parts: the inverse of parseText.
std::string composeItemText(const SECSItemRecord& record);

} // namespace zb
