#pragma once

#include "messages/item_record.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zb {

/// What a rule says of a definition.
struct DefinitionFault {
    /// How a window shows the fault: most of them as an error, a few as a plain message.
    enum class Tone { Error, Plain };

    std::string_view text;
    Tone tone = Tone::Error;

    bool operator==(const DefinitionFault&) const = default;
};
using OptionalFault = std::optional<DefinitionFault>;

/// The item names of a message so far, compared upper-cased.
class ItemNames {
public:
    bool contains(std::string_view name) const;
    void add(std::string_view name);
    void clear() { names_.clear(); }

private:
    std::unordered_set<std::string> names_;
};

/// Of a message node's Text: the second word is the stream, the third the function.
OptionalFault streamFault(std::string_view nodeText);
OptionalFault functionFault(std::string_view nodeText);

/// A name contains only letters, digits, "_" and ".".
OptionalFault nameCharsFault(std::string_view name);
OptionalFault nameFault(const SECSItemRecord& item, const ItemNames& namesBefore);

/// The first fault of the count and the values of an item Text; `children` is the number of its sub items.
OptionalFault valueFault(std::string_view itemText, int children);
/// One fault of each kind, in the order of the faulty words.
std::vector<DefinitionFault> valueFaults(std::string_view itemText, int children);

} // namespace zb
