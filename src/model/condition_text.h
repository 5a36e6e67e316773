#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zb {

/// A finished condition grows no longer: what doubles at each step would outgrow all memory after a few
/// dozen.
inline constexpr std::size_t kLongestCondition = 1'000'000;

/// Gives the condition of an id; empty when there is none.
using ConditionLookup = std::function<std::string(std::string_view id)>;

/// The fully parenthesised text of a condition as it stands in a row: "S1 and C2" with the conditions of both
/// ids in their places, "{A} == 1" as it is. Nothing for an id without a condition, for what refers to
/// itself, and for what would be longer than kLongestCondition.
std::optional<std::string> expandCondition(std::string_view condition, const ConditionLookup& conditionOfId);

/// How the value of a data item is written in a condition, by the item's type.
enum class ConditionValueForm { Quoted, Boolean, Numeric };
ConditionValueForm conditionValueForm(std::string_view itemType);
/// Whether the text, as typed, can stand as a value of that form.
bool isConditionValue(ConditionValueForm form, std::string_view text);

/// "{ITEM[1]} == value".
std::string simpleCondition(std::string_view dataItem, std::string_view comparison, std::string_view value);

} // namespace zb
