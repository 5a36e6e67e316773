#pragma once

#include <string>
#include <string_view>

// Texts from other sources, made safe for a terminal: names of files, their contents, arguments. Unchanged,
// they could move the cursor, set colours and titles, forge a line, or reorder the characters on the screen.
namespace zb {

/// The text on one line. Tabs and line ends become blanks; other control characters (C0, DEL, C1) and the
/// marks that turn the direction of writing become "?"; a byte that is no UTF-8 becomes U+FFFD. Each
/// character becomes exactly one, so that columns stay.
std::string printable(std::string_view text);
/// The same for a text of several lines: tabs and LF stay, and CR LF becomes LF.
std::string printableLines(std::string_view text);
/// A JSON text with an escape for each character that `printable` replaces. What it means stays the same.
/// It must be one line of valid UTF-8, as a JSON library writes it.
std::string printableJson(std::string_view json);

} // namespace zb
