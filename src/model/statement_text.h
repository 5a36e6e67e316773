#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

class Node;

/// The pictures of statement nodes, by which the kinds are told apart.
inline constexpr std::string_view kIfImage = "if";
inline constexpr std::string_view kElifImage = "elif";
inline constexpr std::string_view kElseImage = "else";
inline constexpr std::string_view kItemValueImage = "ItemValue";

/// The text of an item that has no statements.
inline constexpr std::string_view kNoStatements = "NONE";

/// The statements below the root as lines joined by CR LF, each with as many leading blanks as its node has
/// levels above it; "NONE" for a root without children. Where a value stands first in a branch, it is all
/// that is written of the branch.
std::string statementTextOf(const Node& root);

/// The number of leading blanks.
std::size_t lineDepth(std::string_view line);
/// The picture that the beginning of a line calls for. A value whose item's name begins with "if" or "else"
/// passes for a statement.
std::string_view lineImage(std::string_view line);

} // namespace zb
