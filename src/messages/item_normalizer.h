#pragma once

#include "messages/item_record.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

class CodePage;
class Node;

/// The largest count that the item pane accepts. Fixed items beyond it are not padded: an arbitrary count
/// must not exhaust memory.
inline constexpr int kLargestItemCount = 1'000'000;
/// A word of the value is not numeric.
inline constexpr int kValueNotNumeric = 101;

/// Converts the values of a type to their canonical words, exactly `count` of them. The status is 0, or
/// kValueNotNumeric with the value unchanged.
int normalizeFixedValues(std::string_view type, int count, std::string& value);
/// The same with at most `count` words.
int normalizeVariableValues(std::string_view type, int count, std::string& value);

/// The canonical Text of an item; nothing when the Text must not change.
std::optional<std::string> normalizedItemText(SECSItemRecord record, const CodePage& codePage);
/// The same for a Text from which the record was parsed; nothing also when the Text is canonical already.
std::optional<std::string> changedItemText(std::string_view text, const SECSItemRecord& record,
                                           const CodePage& codePage);
/// Rewrites the node's Text, from which the record was parsed, in its canonical form.
void normalizeItem(Node& node, const SECSItemRecord& record, const CodePage& codePage);

} // namespace zb
