#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace zb {

class Node;

/// The name in an item's Text, its third word; empty when that is a value or missing.
std::string_view itemNameInText(std::string_view itemText);

/// The item names of one message, compared with case.
class MessageItemNames {
public:
    MessageItemNames() = default;
    /// Collects the names of all items of the message that the node belongs to.
    explicit MessageItemNames(const Node& nodeOfMessage);

    bool holds(std::string_view name) const { return names_.contains(std::string(name)); }
    void add(std::string_view name);

    /// The name followed by "1", as often as needed until no item has it.
    std::string uniqueItemName(std::string_view name);
    /// The Text with its name made unique. Only a name followed by a blank is replaced: a name at the end of
    /// the Text stays, so a list without a value keeps its name in a copy.
    std::string uniqueItemText(std::string_view itemText);

private:
    void collectItemNames(const Node& root);

    std::unordered_set<std::string> names_;
    /// The last unique name made from a name. All shorter forms are taken, so the next search continues here,
    /// and copying a message full of equal names does not try all of them each time.
    std::unordered_map<std::string, std::string> lastMade_;
};

} // namespace zb
