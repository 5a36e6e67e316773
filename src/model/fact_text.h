#pragma once

#include <string>
#include <string_view>

// How any text stands on a line of the model's section, between other words or up to the line's end. Line
// ends, control characters, invisible marks and bytes that are no UTF-8 become escapes; all else stays
// readable.
namespace zb {

/// Up to the end of a line: a blank at the end becomes an escape. Blanks at the start stay, so that the
/// indentation of statements can be seen.
void appendFactText(std::string& line, std::string_view text);
/// As one word, which holds no blank, "=" or quotation mark.
void appendFactWord(std::string& line, std::string_view text);
/// Between quotation marks, which are written too.
void appendQuotedFact(std::string& line, std::string_view text);

/// The text that any of them wrote; quotation marks around it have been taken off. An escape that is none
/// stays as it is.
std::string factText(std::string_view escaped);

} // namespace zb
