#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zb {

class Node;

/// The pictures of statement nodes, which identify their kinds.
inline constexpr std::string_view kIfImage = "if";
inline constexpr std::string_view kElifImage = "elif";
inline constexpr std::string_view kElseImage = "else";
inline constexpr std::string_view kItemValueImage = "ItemValue";

/// The text of an item without statements.
inline constexpr std::string_view kNoStatements = "NONE";

/// The statements below the root as lines joined by CR LF, each with as many leading blanks as its node has
/// levels above it; "NONE" for a root without children. When a value is the first node of a branch, only that
/// value of the branch is written.
std::string statementTextOf(const Node& root);

/// The number of leading blanks.
std::size_t lineDepth(std::string_view line);
/// The picture for the start of a line. A value whose item's name begins with "if" or "else" is taken for a
/// statement.
std::string_view lineImage(std::string_view line);

} // namespace zb
