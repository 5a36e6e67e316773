#pragma once

#include <string>
#include <vector>

// The message libraries of the program, as text in SMD build form: for each message the title between two
// banners, the head, the items in angle brackets; every line ends in CR LF.
namespace zb {

/// The 93 GEM messages, in the library's order. A message that is also in the SEMI library has the same text
/// in both.
std::string gemLibraryText();

/// The SEMI messages in three blocks, to be loaded one after the other: 176 messages of streams 1 to 6, 109
/// of streams 7 to 14, 72 of streams 15 to 17.
std::vector<std::string> semiLibraryBlocks();

} // namespace zb
