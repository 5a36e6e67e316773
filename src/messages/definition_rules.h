#pragma once

#include "messages/item_record.h"
#include "messages/name_set.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// What a rule says of a definition.
struct DefinitionFault {
    /// How a window shows the fault: most of them as an error, a few as a plain message.
    enum class Tone { Error, Plain };

    std::string_view text;
    Tone tone = Tone::Error;
    std::string_view id = {}; ///< of the rule, as "smd.item.count"

    bool operator==(const DefinitionFault&) const = default;
};
using OptionalFault = std::optional<DefinitionFault>;

/// Of a message node's Text: the second word is the stream, the third the function.
OptionalFault streamFault(std::string_view nodeText);
OptionalFault functionFault(std::string_view nodeText);

/// A name contains only letters, digits, "_" and ".".
OptionalFault nameCharsFault(std::string_view name);
/// Of an item of a message; `names` has the names of the items before it, and takes its name when that is
/// good.
OptionalFault nameFault(const SECSItemRecord& item, NameSet& names);

/// The first fault of the count and the values of an item Text; `children` is the number of its sub items.
OptionalFault valueFault(std::string_view itemText, int children);
/// One fault of each kind, in the order of the faulty words.
std::vector<DefinitionFault> valueFaults(std::string_view itemText, int children);

} // namespace zb
