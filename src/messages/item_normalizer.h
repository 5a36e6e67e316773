#pragma once

#include "messages/item_record.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

class CodePage;
class Node;

/// The largest count that the item pane takes. Fixed items beyond it are not filled up: a count out of
/// nowhere must not take all memory.
inline constexpr int kLargestItemCount = 1'000'000;
/// A word of the value is not numeric.
inline constexpr int kValueNotNumeric = 101;

/// Brings the values of a type to their canonical words, exactly `count` of them. The status is 0, or
/// kValueNotNumeric with the value as it was.
int normalizeFixedValues(std::string_view type, int count, std::string& value);
/// The same with `count` words at most.
int normalizeVariableValues(std::string_view type, int count, std::string& value);

/// The canonical Text of an item; nothing when the Text has to stay as it is.
std::optional<std::string> normalizedItemText(SECSItemRecord record, const CodePage& codePage);
/// Rewrites the node's Text, which the record was parsed from, to its canonical form.
void normalizeItem(Node& node, const SECSItemRecord& record, const CodePage& codePage);

} // namespace zb
