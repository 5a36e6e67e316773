#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zb {

class SECSMessageRecord;

/// Which value of a SECS message a condition or a TR item means: "MDLN", or "SVID[1;2]" for a data item
/// within variable lists.
class DataItemAddress {
public:
    DataItemAddress() = default;
    explicit DataItemAddress(std::string text) : text_(std::move(text)) {}

    /// As it was written.
    const std::string& text() const { return text_; }
    /// The name of the data item, which is all before the first "[", trimmed.
    std::string name() const;
    /// One index a dimension, that of the outermost variable list first, as written. Empty where the text has
    /// no index, or one without its closing bracket.
    std::vector<std::string> indexes() const;

    bool operator==(const DataItemAddress&) const = default;

private:
    std::string text_;
};

/// The number of indexes that the data item `name` of the message needs: how many of the lists around it have
/// no count yet. The walk knows a list as left only when the next variable list comes, and of several items
/// of one name the last one counts.
int checkDimension(const SECSMessageRecord& message, std::string_view name);

/// The names of these lists, from the outermost on. A list without a name has an empty one.
std::vector<std::string> listsAround(const SECSMessageRecord& message, std::string_view name);

} // namespace zb
