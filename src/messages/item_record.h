#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// One data item, taken apart from the Text of its node: "U2 1 ECID 0", "A 16V NAME 'text' [K]", "L 2".
class SECSItemRecord {
public:
    const std::string& getName() const { return name_; }
    /// The type word, upper-cased.
    const std::string& getType() const { return type_; }
    /// The count without its "V".
    int getCount() const { return count_; }
    void setCount(int count) { count_ = count; }
    bool isFixed() const { return fixed_; }
    /// Without apostrophes; several values joined by single blanks.
    const std::string& getValue() const { return value_; }
    void setValue(std::string value) { value_ = std::move(value); }
    bool isKey() const { return key_; }
    /// Fills the record from an item Text. The status is empty when the Text has the form of an item; the record
    /// takes what it can in any case.
    std::string parseText(std::string_view text);
    /// Depth of the item within its message, 1 for a direct item; 0 for a record that came from a Text alone.
    int getLevel() const { return level_; }
    void setLevel(int level) { level_ = level; }

private:
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

/// Whether the third word of an item's Text is a name: not numeric, no opening apostrophe, not the key mark, and for
/// BOOLEAN neither "True" nor "False" in any case.
bool isItemName(std::string_view type, std::string_view thirdWord);

} // namespace zb
