#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// The length of a finished condition is limited: a text that doubles at each step would exhaust memory after
/// a few dozen.
inline constexpr std::size_t kLongestCondition = 1'000'000;

/// Returns the condition of an id; empty when there is none.
using ConditionLookup = std::function<std::string(std::string_view id)>;

/// The fully parenthesised text of the condition of a row: "S1 and C2" with the conditions of both ids
/// inserted, "{A} == 1" unchanged. Nothing for an id without a condition, for a condition that refers to
/// itself, and for a text longer than kLongestCondition.
std::optional<std::string> expandCondition(std::string_view condition, const ConditionLookup& conditionOfId);

/// The form of a data item's value in a condition, by the item's type.
enum class ConditionValueForm { Quoted, Boolean, Numeric };
ConditionValueForm conditionValueForm(std::string_view itemType);
/// Whether the text, as typed, is a value of that form.
bool isConditionValue(ConditionValueForm form, std::string_view text);

/// "{ITEM[1]} == value".
std::string simpleCondition(std::string_view dataItem, std::string_view comparison, std::string_view value);

} // namespace zb
