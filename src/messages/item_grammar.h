#pragma once

#include <string>
#include <string_view>

namespace zb {

/// How the items of a type are written and checked.
enum class ItemKind { List, Quoted, Binary, Boolean, Signed, Unsigned, Float, Unknown };

/// No definition is nested deeper; readers of bracket forms refuse more, since the indentation of such a text
/// would exhaust memory.
inline constexpr int kDeepestLevel = 1000;

/// Of an upper-cased type word.
ItemKind itemKind(std::string_view type);

/// The key mark, in any case.
bool isKeyMark(std::string_view word);

/// Whether the third word of an item's Text is a name: not numeric, no opening apostrophe, not the key mark,
/// and for BOOLEAN neither "True" nor "False" in any case.
bool isItemName(std::string_view type, std::string_view thirdWord);

/// The old, unquoted form of X and J items is changed to the quoted one; any other Text is only trimmed.
std::string normalizeItemText(std::string_view text);

/// The first part of `rest` before a blank; `rest` continues after that blank, and is empty at the end.
std::string_view takeWord(std::string_view& rest);

/// The value of a text as a whole number, limited to the range of an int.
int countOf(std::string_view word);

} // namespace zb
