#pragma once

#include "model/data_item_address.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zb {

/// "({SVID[1;2]} == 7)": a data item compared with a value.
struct Comparison {
    DataItemAddress item;
    bool isEqual = true; ///< "==", otherwise "!="
    std::string value;   ///< as written, with the apostrophes around a text

    /// Whether the value is a text, and not a number or a truth value.
    bool hasTextValue() const;
    /// The value without the apostrophes around a text.
    std::string_view plainValue() const;

    bool operator==(const Comparison&) const = default;
};

/// "(left and right)" or "(left or right)".
struct Junction {
    enum class Word { And, Or };
    Word word = Word::And;
    std::size_t left = 0;  ///< index among the nodes of the condition
    std::size_t right = 0; ///< likewise

    bool operator==(const Junction&) const = default;
};

using ConditionNode = std::variant<Comparison, Junction>;

/// A finished condition as a tree. The text is always kept, also where it cannot be understood; a text that
/// can be understood is printed from its tree as the same bytes.
class Condition {
public:
    static Condition parse(std::string_view text);

    /// The nodes, each after those that it joins, so the last one is the root. One pass from the first to the
    /// last evaluates the condition, however deep it is. Empty for a text that cannot be understood.
    const std::vector<ConditionNode>& nodes() const { return nodes_; }
    /// The byte of the text up to which it could be understood; nothing for a whole condition.
    std::optional<std::size_t> faultAt() const { return faultAt_; }
    /// As it was parsed.
    const std::string& text() const { return text_; }
    /// The text made from the nodes; that of the input where it could not be understood.
    std::string print() const;

    /// The compared data items, in the order of the text. For a text that cannot be parsed, the items of all
    /// comparisons that can be recognised in it.
    std::vector<DataItemAddress> dataItems() const;

private:
    std::string text_;
    std::vector<ConditionNode> nodes_;
    std::optional<std::size_t> faultAt_;
};

/// Whether a TR message with this condition matches every message that no other one matches.
bool isDefaultCondition(std::string_view condition);

} // namespace zb
